// SPDX-License-Identifier: MIT
#include <ksundo/core/detail/ksTakeBack.h>
#include <ksundo/material/ksMaterialUndoCommand.h>

ksMaterialUndoCommand::ksMaterialUndoCommand(const QString &text, ksFieldBaseUndoCommand *command,
                                             osg::FieldContainerPtr material,
                                             osg::FieldContainerPtr componentSettings, QUndoCommand *parent)
    : ksWrappedFieldUndoCommand(text, command, material, componentSettings, parent)
{}

void ksMaterialUndoCommand::undo()
{
    ksWrappedFieldUndoCommand::undo();
    ksDetail::ksTell([this] { touchMaterial(); }, [this] { ksWrappedFieldUndoCommand::redo(); });
}

void ksMaterialUndoCommand::redo()
{
    ksWrappedFieldUndoCommand::redo();
    ksDetail::ksTell([this] { touchMaterial(); }, [this] { ksWrappedFieldUndoCommand::undo(); });
}

void ksMaterialUndoCommand::makeMessage(ksMessage &message) const
{
    ksWrappedFieldUndoCommand::makeMessage(message);
    addContext(message, "material", "componentSettings");
}
