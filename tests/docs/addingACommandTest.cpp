// SPDX-License-Identifier: MIT
#include <OpenSG/OSGGroup.h>
#include <OpenSG/OSGSimpleAttachments.h>

#include <gmock/gmock.h>

#include <addedCommand.h> // the example of docs/adding-a-command.md
#include <support/ksRecords.h>

namespace {

osg::NodePtr nodeCalled(const char *name)
{
    const osg::NodePtr node = osg::Node::create();
    node->setCore(osg::Group::create());
    osg::setName(node, name);
    return node;
}

} // namespace

TEST(myMaskUndoCommand, DoesWhatThePageSays)
{
    const osg::NodeRefPtr node(nodeCalled("Box"));
    const osg::UInt32 before = node->getTravMask();
    ksUndoStack stack;
    ksRecorder recorder;
    ksRecords edit;
    edit.change(recorder.idOf(node.get()), osg::Node::TravMaskFieldMask);

    stack.add(new myMaskUndoCommand(node.get(), 5));
    EXPECT_EQ(stack.undoText(), QStringLiteral("Mask 'Box'"));
    EXPECT_EQ(node->getTravMask(), 5u);
    EXPECT_EQ(recorder.take(), edit);
    stack.undo();
    EXPECT_EQ(node->getTravMask(), before);
    EXPECT_EQ(recorder.take(), edit);
    stack.redo();
    EXPECT_EQ(node->getTravMask(), 5u);

    stack.add(new myMaskUndoCommand(node.get(), 5));
    EXPECT_EQ(stack.count(), 2) << "it never merges";
}

TEST(myMaskUndoCommand, IsIdleWithoutANode)
{
    ksRecorder recorder;
    myMaskUndoCommand command(osg::NodePtr(), 5);
    command.redo();
    command.undo();
    EXPECT_EQ(recorder.take(), ksRecords());
}

TEST(myMaskUndoCommand, IsIdleWhenItsNodeHasGone)
{
    osg::NodeRefPtr node(nodeCalled("Box"));
    myMaskUndoCommand command(node.get(), 5);
    node = osg::NullFC;
    ksRecorder recorder;
    command.redo();
    command.undo();
    EXPECT_EQ(recorder.take(), ksRecords());
}
