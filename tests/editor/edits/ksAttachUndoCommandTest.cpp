// SPDX-License-Identifier: MIT
#include <editor/edits/ksAttachUndoCommand.h>
#include <tests/editor/ksEditorFixture.h>

#include <ksundo/core/ksUndoStack.h>

#include <OSGTagAttachment.h>

namespace {

class ksAttachUndoCommandTest : public ksEditorFixture
{
protected:
    ~ksAttachUndoCommandTest() override { stack.clear(); }

    osg::AttachmentPtr attached() const { return child->findAttachment(osg::TagAttachment::getClassType()); }

    ksUndoStack stack;
    const osg::TagAttachmentPtr tags = osg::TagAttachment::create();
    const osg::UInt32 id = tags.getFieldContainerId();
};

} // namespace

TEST_F(ksAttachUndoCommandTest, AttachesTheVerySameAgain)
{
    stack.add(new ksAttachUndoCommand(child, tags));
    EXPECT_EQ(attached(), tags);
    EXPECT_EQ(stack.undoText(), QStringLiteral("Attach TagAttachment to 'Child'"));
    stack.undo();
    EXPECT_EQ(attached(), osg::NullFC);
    stack.redo();
    EXPECT_EQ(attached(), tags);
}

TEST_F(ksAttachUndoCommandTest, KeepsTheAttachmentOnlyWhileItLives)
{
    stack.add(new ksAttachUndoCommand(child, tags));
    stack.undo();
    EXPECT_NE(osg::FieldContainerFactory::the()->getContainer(id), osg::NullFC);
    stack.clear();
    EXPECT_EQ(osg::FieldContainerFactory::the()->getContainer(id), osg::NullFC);
}

TEST_F(ksAttachUndoCommandTest, DoesNothingWithoutTheNode)
{
    stack.add(new ksAttachUndoCommand(child, tags));
    {
        CPEdit(root.get(), osg::Node::ChildrenFieldMask);
        root->subChild(child);
    }
    stack.undo();
    stack.redo();
    EXPECT_TRUE(tags->getParents().empty());
}

TEST_F(ksAttachUndoCommandTest, NeverMerges)
{
    const ksAttachUndoCommand command(child, tags);
    EXPECT_FALSE(command.canMergeWith(&command));
}

/// Aspect 1 follows.
TEST_F(ksAttachUndoCommandTest, RecordsItsEdits)
{
    ksSyncAspects();
    stack.add(new ksAttachUndoCommand(child, tags));
    ksExpectSync(child);
    stack.undo();
    ksExpectSync(child);
}
