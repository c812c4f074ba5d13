// SPDX-License-Identifier: MIT
#include <ksundo/field/ksFieldBaseUndoCommand.h>

#include <ksMessage.h>
#include <ksPlatform.h>

ksFieldBaseUndoCommand::ksFieldBaseUndoCommand(const QString &text, osg::FieldContainerPtr container,
                                               ksFieldKey field, QUndoCommand *parent)
    : ksUndoCommand(text, parent)
{
    if (const osg::FieldDescription *description = field.findIn(container)) {
        fcId = ksPlatform::idOf(container);
        fieldId = description->getFieldId();
        fieldMask = description->getFieldMask();
    }
}

void ksFieldBaseUndoCommand::makeMessage(ksMessage &message) const
{
    ksUndoCommand::makeMessage(message);
    message.set("container", fcId, true);
    message.set("fieldId", fieldId, true);
}

bool ksFieldBaseUndoCommand::canMergeWith(const QUndoCommand *other) const
{
    if (!ksUndoCommand::canMergeWith(other))
        return false;
    const auto *newer = static_cast<const ksFieldBaseUndoCommand *>(other);
    return newer->fcId == fcId && newer->fieldId == fieldId && newer->fieldMask == fieldMask;
}
