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
    bool told = value;
    ksBoolFieldUndoCommand::redo();
    ksDetail::ksTell([&] { method.call(told); },
                     [&] {
                         told = value;
                         ksBoolFieldUndoCommand::redo();
                     });
}
