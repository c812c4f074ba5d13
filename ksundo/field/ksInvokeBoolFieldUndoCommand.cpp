// SPDX-License-Identifier: MIT
#include <ksundo/field/ksInvokeBoolFieldUndoCommand.h>

ksInvokeBoolFieldUndoCommand::ksInvokeBoolFieldUndoCommand(const QString &text,
                                                           osg::FieldContainerPtr container,
                                                           const std::string &fieldName, bool value,
                                                           QObject *object, const char *method,
                                                           QUndoCommand *parent)
    : ksBoolFieldUndoCommand(text, container, fieldName, value, parent)
    , method(object, method)
{}

ksInvokeBoolFieldUndoCommand::ksInvokeBoolFieldUndoCommand(osg::FieldContainerPtr container,
                                                           const std::string &fieldName, bool value,
                                                           QObject *object, const char *method,
                                                           QUndoCommand *parent)
    : ksBoolFieldUndoCommand(container, fieldName, value, parent)
    , method(object, method)
{}

ksInvokeBoolFieldUndoCommand::ksInvokeBoolFieldUndoCommand(const QString &text,
                                                           osg::FieldContainerPtr container, int fieldId,
                                                           bool value, QObject *object, const char *method,
                                                           QUndoCommand *parent)
    : ksBoolFieldUndoCommand(text, container, fieldId, value, parent)
    , method(object, method)
{}

ksInvokeBoolFieldUndoCommand::ksInvokeBoolFieldUndoCommand(osg::FieldContainerPtr container, int fieldId,
                                                           bool value, QObject *object, const char *method,
                                                           QUndoCommand *parent)
    : ksBoolFieldUndoCommand(container, fieldId, value, parent)
    , method(object, method)
{}

void ksInvokeBoolFieldUndoCommand::undo()
{}

void ksInvokeBoolFieldUndoCommand::redo()
{
    const bool written = value;
    ksBoolFieldUndoCommand::redo();
    method.call(written);
}

bool ksInvokeBoolFieldUndoCommand::mergeWith(const QUndoCommand *other)
{
    return absorb(other);
}

bool ksInvokeBoolFieldUndoCommand::canMergeWith(const QUndoCommand *) const
{
    return false;
}
