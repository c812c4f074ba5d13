// SPDX-License-Identifier: MIT
#include <editor/edits/ksAddChildUndoCommand.h>
#include <tests/editor/ksEditorFixture.h>

#include <ksundo/core/ksUndoStack.h>

#include <memory>

namespace {

class ksAddChildUndoCommandTest : public ksEditorFixture
{
protected:
    ~ksAddChildUndoCommandTest() override { stack.clear(); }

    ksUndoStack stack;
    const osg::NodePtr added = makeNode("Added");
    const osg::UInt32 id = added.getFieldContainerId();
};

} // namespace

TEST_F(ksAddChildUndoCommandTest, AddsTheVerySameChildAgain)
{
    stack.add(new ksAddChildUndoCommand(root, added));
    ASSERT_EQ(root->getNChildren(), 2u);
    EXPECT_EQ(root->getChild(1), added);
    EXPECT_EQ(stack.undoText(), QStringLiteral("Add 'Added'"));
    stack.undo();
    EXPECT_EQ(root->getNChildren(), 1u);
    EXPECT_EQ(added->getParent(), osg::NullFC);
    stack.redo();
    EXPECT_EQ(root->getChild(1), added);
}

TEST_F(ksAddChildUndoCommandTest, KeepsTheChildOnlyWhileItLives)
{
    stack.add(new ksAddChildUndoCommand(root, added));
    stack.undo();
    EXPECT_NE(osg::FieldContainerFactory::the()->getContainer(id), osg::NullFC);
    stack.clear();
    EXPECT_EQ(osg::FieldContainerFactory::the()->getContainer(id), osg::NullFC);
}

TEST_F(ksAddChildUndoCommandTest, DoesNothingWithoutTheParent)
{
    stack.add(new ksAddChildUndoCommand(child, added));
    {
        CPEdit(root.get(), osg::Node::ChildrenFieldMask);
        root->subChild(child);
    }
    stack.undo();
    stack.redo();
    EXPECT_EQ(added->getParent(), osg::NullFC);
}

TEST_F(ksAddChildUndoCommandTest, NeverMerges)
{
    const ksAddChildUndoCommand command(root, added);
    EXPECT_FALSE(command.canMergeWith(&command));
}

/// Aspect 1 follows.
TEST_F(ksAddChildUndoCommandTest, RecordsItsEdits)
{
    ksSyncAspects();
    stack.add(new ksAddChildUndoCommand(root, added));
    ksExpectSync(root.get());
    stack.undo();
    ksExpectSync(root.get());
}
