// SPDX-License-Identifier: MIT
#include <ksundo/material/detail/ksWrappedFieldUndoCommand.h>

#include <ksMessage.h>

namespace ksDetail {

bool ksWrappedFieldUndoCommand::mergeWith(const QUndoCommand *other)
{
    return absorb(other) &&
           inner().mergeWith(&static_cast<const ksWrappedFieldUndoCommand *>(other)->inner());
}

void ksWrappedFieldUndoCommand::makeMessage(ksMessage &message) const
{
    ksUndoCommand::makeMessage(message);
    message.set("container", inner().containerId(), true);
}

bool ksWrappedFieldUndoCommand::canMergeWith(const QUndoCommand *other) const
{
    if (!ksUndoCommand::canMergeWith(other))
        return false;
    const auto *newer = static_cast<const ksWrappedFieldUndoCommand *>(other);
    if (!isSameContext(*newer))
        return false;
    inner().setGesture(getGesture());
    newer->inner().setGesture(newer->getGesture());
    return inner().canMergeWith(&newer->inner());
}

ksWrappedFieldUndoCommand::ksWrappedFieldUndoCommand(const QString &text, ksFieldBaseUndoCommand *command,
                                                     const osg::FieldContainerPtr &first,
                                                     const osg::FieldContainerPtr &second,
                                                     QUndoCommand *parent)
    : ksUndoCommand(text, parent)
    , ksContainerContext(first, second)
    , command(command)
{}

} // namespace ksDetail
