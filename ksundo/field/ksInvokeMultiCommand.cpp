// SPDX-License-Identifier: MIT
#include <ksundo/field/ksInvokeMultiCommand.h>

ksInvokeMultiCommand::ksInvokeMultiCommand(const QString &text, QObject *object, const char *method)
    : ksMultiCommand(text)
    , method(object, method)
{}

void ksInvokeMultiCommand::undo()
{
    ksMultiCommand::undo();
    method.call();
}

void ksInvokeMultiCommand::redo()
{
    ksMultiCommand::redo();
    method.call();
}
