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
    ksDetail::ksStep([this] { touchMaterial(); },
                     [this] {
                         ksWrappedFieldUndoCommand::redo();
                         touchMaterial();
                     });
}

void ksMaterialUndoCommand::redo()
{
    ksWrappedFieldUndoCommand::redo();
    ksDetail::ksStep([this] { touchMaterial(); },
                     [this] {
                         ksWrappedFieldUndoCommand::undo();
                         touchMaterial();
                     });
}

void ksMaterialUndoCommand::makeMessage(ksMessage &message) const
{
    ksWrappedFieldUndoCommand::makeMessage(message);
    addContext(message, "material", "componentSettings");
}
