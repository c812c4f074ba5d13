// SPDX-License-Identifier: MIT
#include <tests/editor/ksEditorFixture.h>

#include <OpenSG/OSGFieldContainerType.h>

#include <map>

/// The settings stand for what the scene classes lack: a field of every width that can be edited.
TEST(ksNodeSettings, HasAFieldOfEveryWidth)
{
    const osg::ksNodeSettingsRefPtr settings(osg::ksNodeSettings::create());
    std::map<std::string, std::string> types;
    const osg::FieldContainerType &type = osg::ksNodeSettings::getClassType();
    for (osg::UInt32 id = osg::Attachment::NextFieldId; id <= type.getNumFieldDescs(); ++id)
        types[type.getFieldDescription(id)->getCName()] = settings->getField(id)->getType().getCName();
    EXPECT_EQ(types, (std::map<std::string, std::string>{{"layer", "SFUInt8"},
                                                         {"lodBias", "SFInt8"},
                                                         {"renderOrder", "SFInt16"},
                                                         {"stencilReference", "SFUInt16"},
                                                         {"pickId", "SFUInt32"},
                                                         {"sortKey", "SFInt32"},
                                                         {"userFlags", "SFUInt64"},
                                                         {"revision", "SFInt64"},
                                                         {"opacity", "SFReal32"},
                                                         {"timeOffset", "SFReal64"},
                                                         {"locked", "SFBool"},
                                                         {"comment", "SFString"}}));
}

TEST(ksNodeSettings, StartsVisibleAndUnlocked)
{
    const osg::ksNodeSettingsRefPtr settings(osg::ksNodeSettings::create());
    EXPECT_EQ(settings->getOpacity(), 1);
    EXPECT_FALSE(settings->getLocked());
    EXPECT_EQ(settings->getLayer(), 0);
}
