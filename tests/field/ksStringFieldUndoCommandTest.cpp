// SPDX-License-Identifier: MIT
#include "ksFieldFixture.h"

#include <ksundo/field/ksStringFieldUndoCommand.h>

#include <support/ksDescribe.h>
#include <support/ksFieldTarget.h>

using ksStringFieldUndoCommandTest = ksFieldFixture;

TEST_F(ksStringFieldUndoCommandTest, HasAConstructorPerWayToNameTheField)
{
    QUndoCommand parent;
    const QString text = QStringLiteral("text");
    const int id = osg::ProbeContainer::TextFieldId;
    ksStringFieldUndoCommand *const commands[] = {
        new ksStringFieldUndoCommand(text, container(), "text", "new", &parent),
        new ksStringFieldUndoCommand(container(), "text", "new", &parent),
        new ksStringFieldUndoCommand(text, container(), id, "new", &parent),
        new ksStringFieldUndoCommand(container(), id, "new", &parent),
    };
    ASSERT_EQ(parent.childCount(), 4);
    for (int i = 0; i < 4; ++i) {
        ksStringFieldUndoCommand &command = *commands[i];
        EXPECT_EQ(parent.child(i), &command);
        EXPECT_EQ(command.text(), i % 2 == 0 ? text : QString());
        EXPECT_EQ(command.containerId(), probeId());
        EXPECT_EQ(ksFieldTarget::idOfField(command), osg::ProbeContainer::TextFieldId);
        EXPECT_EQ(ksFieldTarget::maskOf(command), osg::ProbeContainer::TextFieldMask);
        probe->setText("other");
        command.redo();
        EXPECT_EQ(probe->getText(), "new");
        command.undo();
        EXPECT_EQ(probe->getText(), "");
    }
}

TEST_F(ksStringFieldUndoCommandTest, HasNoAimWithAnIdThatIsNoField)
{
    const auto count = static_cast<int>(probe->getType().getNumFieldDescs());
    const ksFieldTexts before = values();
    for (const int id : {0, -1, count + 1}) {
        ksStringFieldUndoCommand command(container(), id, "new");
        EXPECT_EQ(ksMessageOf(command), "container=uint:0 fieldId=uint:0 id=int:" +
                                            std::to_string(ksStringFieldUndoCommand::commandId()));
        command.redo();
        command.undo();
    }
    EXPECT_EQ(values(), before);
    expectNoEdit();
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
