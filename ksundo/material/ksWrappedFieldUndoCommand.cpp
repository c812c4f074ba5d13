// SPDX-License-Identifier: MIT
#include <ksundo/material/ksWrappedFieldUndoCommand.h>

#include <ksMessage.h>

void ksWrappedFieldUndoCommand::undo()
{
    command->undo();
}

void ksWrappedFieldUndoCommand::redo()
{
    command->redo();
}

bool ksWrappedFieldUndoCommand::mergeWith(const QUndoCommand *other)
{
    return absorb(other) &&
           command->mergeWith(static_cast<const ksWrappedFieldUndoCommand *>(other)->command.get());
}

void ksWrappedFieldUndoCommand::makeMessage(ksMessage &message) const
{
    ksUndoCommand::makeMessage(message);
    message.set("container", command->containerId(), true);
}

bool ksWrappedFieldUndoCommand::canMergeWith(const QUndoCommand *other) const
{
    if (!ksUndoCommand::canMergeWith(other))
        return false;
    const auto *newer = static_cast<const ksWrappedFieldUndoCommand *>(other);
    return isSameContext(*newer) && command->canMergeWith(newer->command.get());
}

ksWrappedFieldUndoCommand::ksWrappedFieldUndoCommand(const QString &text, ksFieldBaseUndoCommand *command,
                                                     const osg::FieldContainerPtr &first,
                                                     const osg::FieldContainerPtr &second,
                                                     QUndoCommand *parent)
    : ksUndoCommand(text, parent)
    , ksContainerContext(first, second)
    , command(command)
{}
