// SPDX-License-Identifier: MIT
#include "ksFieldTable.h"

#include <OSGColorComponentSettings.h>

#include <gtest/gtest.h>

#include <support/ksAspects.h>

namespace {

using namespace osg;

TEST(OSGColorComponentSettingsTest, IsAnAttachmentContainerWithTheseFields)
{
    EXPECT_EQ(ColorComponentSettings::getClassType().getParent(), &AttachmentContainer::getClassType());
    EXPECT_EQ(ksFieldTableOf<ColorComponentSettings>(),
              (std::vector<std::string>{"mappingScale SFVec2f = 1 1", "mappingOffset SFVec2f = 0 0",
                                        "mappingRotation SFReal32 = 0", "planarProjection SFBool = FALSE",
                                        "projectionSize SFReal32 = 1"}));
}

TEST(OSGColorComponentSettingsTest, EditReachesTheOtherAspect)
{
    const ColorComponentSettingsRefPtr settings(ColorComponentSettings::create());
    ksSyncAspects();
    {
        const CPEditor edit(settings, ColorComponentSettingsBase::PlanarProjectionFieldMask);
        settings->setPlanarProjection(true);
    }
    ksExpectSync(settings);
}

} // namespace
