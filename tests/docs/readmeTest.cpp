// SPDX-License-Identifier: MIT
#include <OpenSG/OSGGroup.h>

#include <gmock/gmock.h>

#include <readme.h> // the example of README.md

TEST(ksReadme, ShowsWhatWorks)
{
    const osg::NodeRefPtr lamp(osg::Node::create());
    const osg::UberLightPtr light = osg::UberLight::create();
    lamp->setCore(light);
    const osg::NodeRefPtr table(osg::Node::create());
    table->setCore(osg::Group::create());
    const osg::UInt32 shown = table->getTravMask();

    ksUndoStack stack;
    testing::internal::CaptureStdout();
    edit(stack, lamp.get(), {lamp.get(), table.get()});
    const std::string said = testing::internal::GetCapturedStdout();
    EXPECT_THAT(said, testing::EndsWith("ksURManager::redo Hide 'UberLight', 'Group'\n"
                                        "ksURManager::undo Hide 'UberLight', 'Group'\n"
                                        "ksURManager::undo Dim Lamp\n"));
    EXPECT_EQ(stack.count(), 2) << "a drag and a batch";
    EXPECT_EQ(stack.index(), 0);
    EXPECT_FLOAT_EQ(light->getIntensity(), 1.0f);
    EXPECT_EQ(table->getTravMask(), shown);

    stack.redo();
    EXPECT_FLOAT_EQ(light->getIntensity(), 0.4f);
    stack.redo();
    EXPECT_EQ(lamp->getTravMask(), 0u);
    EXPECT_EQ(table->getTravMask(), 0u);
}
