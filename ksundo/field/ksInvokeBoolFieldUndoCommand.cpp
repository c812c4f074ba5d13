// SPDX-License-Identifier: MIT
#include <ksundo/core/detail/ksTakeBack.h>
#include <ksundo/field/ksInvokeBoolFieldUndoCommand.h>

ksInvokeBoolFieldUndoCommand::ksInvokeBoolFieldUndoCommand(const QString &text,
                                                           osg::FieldContainerPtr container, ksFieldKey field,
                                                           bool value, QObject *object, const char *method,
                                                           QUndoCommand *parent)
    : ksBoolFieldUndoCommand(text, container, field, value, parent)
    , method(object, method)
{}

void ksInvokeBoolFieldUndoCommand::redo()
{
    const bool written = value;
    ksBoolFieldUndoCommand::redo();
    ksDetail::ksStep([&] { method.call(written); },
                     [this] {
                         const bool previous = value;
                         ksBoolFieldUndoCommand::redo();
                         method.call(previous);
                     });
}
