// SPDX-License-Identifier: MIT
#include "ksFieldFixture.h"

#include <ksundo/field/ksStringFieldUndoCommand.h>

using ksStringFieldUndoCommandTest = ksFieldFixture;

TEST_F(ksStringFieldUndoCommandTest, HasAConstructorPerWayToNameTheField)
{
    QUndoCommand parent;
    const QString text = QStringLiteral("text");
    const int id = osg::ProbeContainer::TextFieldId;
    for (ksStringFieldUndoCommand *command :
         {new ksStringFieldUndoCommand(text, container(), "text", "new", &parent),
          new ksStringFieldUndoCommand(container(), "text", "new", &parent),
          new ksStringFieldUndoCommand(text, container(), id, "new", &parent),
          new ksStringFieldUndoCommand(container(), id, "new", &parent)}) {
        probe->setText("other");
        command->redo();
        EXPECT_EQ(probe->getText(), "new");
        command->undo();
        EXPECT_EQ(probe->getText(), "");
    }
    ASSERT_EQ(parent.childCount(), 4);
    expectForms(parent, id);
}

TEST_F(ksStringFieldUndoCommandTest, KeepsEveryByte)
{
    const std::string before("a\0b\n\xff", 5);
    const std::string after("\0", 1);
    probe->setText(before);
    ksStringFieldUndoCommand command(container(), "text", after);
    command.redo();
    EXPECT_EQ(probe->getText(), after);
    command.undo();
    EXPECT_EQ(probe->getText(), before);
}

TEST_F(ksStringFieldUndoCommandTest, ComparesEveryByteWhenItMerges)
{
    ksStringFieldUndoCommand older(container(), "text", std::string("a\0b", 3));
    probe->setText(std::string("a\0c", 3));
    ksStringFieldUndoCommand newer(container(), "text", "");
    newer.setMergeResponseDelta(-1.0);
    EXPECT_FALSE(older.canMergeWith(&newer));
}
