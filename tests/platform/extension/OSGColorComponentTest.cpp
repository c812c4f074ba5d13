// SPDX-License-Identifier: MIT
#include "ksFieldTable.h"

#include <OSGColorComponent.h>

#include <gtest/gtest.h>

namespace {

using namespace osg;

TEST(OSGColorComponentTest, IsAnAttachmentContainerWithTheseFields)
{
    EXPECT_EQ(ColorComponent::getClassType().getParent(), &AttachmentContainer::getClassType());
    EXPECT_EQ(ksFieldTableOf<ColorComponent>(),
              (std::vector<std::string>{"color SFVec3f = 1 1 1", "weight SFReal32 = 1",
                                        "enabled SFBool = TRUE", "image SFImagePtr = 0"}));
}

TEST(OSGColorComponentTest, CopyHasTheOtherValues)
{
    const ColorComponentRefPtr component(ColorComponent::create());
    component->setColor(Vec3f(1, 2, 3));
    component->setWeight(4);
    component->setEnabled(false);

    const ColorComponentRefPtr copy(ColorComponentPtr::dcast(component->shallowCopy()));

    EXPECT_EQ(copy->getColor(), Vec3f(1, 2, 3));
    EXPECT_EQ(copy->getWeight(), 4);
    EXPECT_FALSE(copy->getEnabled());
}

} // namespace
