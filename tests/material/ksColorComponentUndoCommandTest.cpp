// SPDX-License-Identifier: MIT
#include "ksMaterialFixture.h"

#include <ksundo/material/ksColorComponentUndoCommand.h>

namespace {

class ksColorComponentUndoCommandTest : public ksMaterialFixture
{
protected:
    ksColorComponentUndoCommand command{QString(), weightCommand(2), component.get(), material.get()};
};

} // namespace

TEST_F(ksColorComponentUndoCommandTest, SendsNoNotificationOfItsOwn)
{
    const osg::Vec3f blended = material->getBlendedColor();
    for (int i = 0; i < 2; ++i) {
        command.redo();
        expectStep(weightEdit(), weightCalls("2"));
        command.undo();
        expectStep(weightEdit(), weightCalls("1"));
    }
    EXPECT_EQ(material->getBlendedColor(), blended);
}

TEST_F(ksColorComponentUndoCommandTest, IsIdleWhenTheComponentHasGone)
{
    command.redo();
    destroyComponent();
    command.undo();
    EXPECT_EQ(recorder.take(), ksRecords());
    expectIdle(command);
}

TEST_F(ksColorComponentUndoCommandTest, GoesOnWhenTheParentHasGone)
{
    destroyMaterial();
    command.redo();
    EXPECT_EQ(component->getWeight(), 2);
    command.undo();
    EXPECT_EQ(component->getWeight(), 1);
}

TEST_F(ksColorComponentUndoCommandTest, ReachesTheOtherAspect)
{
    shareMaterial();
    command.redo();
    expectSharedStep();
    command.undo();
    expectSharedStep();
}
