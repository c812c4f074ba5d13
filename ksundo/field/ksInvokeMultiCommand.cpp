// SPDX-License-Identifier: MIT
#include <ksundo/core/detail/ksTakeBack.h>
#include <ksundo/field/ksInvokeMultiCommand.h>

ksInvokeMultiCommand::ksInvokeMultiCommand(const QString &text, QObject *object, const char *method)
    : ksMultiCommand(text)
    , method(object, method)
{}

void ksInvokeMultiCommand::undo()
{
    ksMultiCommand::undo();
    ksDetail::ksStep([this] { method.call(); },
                     [this] {
                         ksMultiCommand::redo();
                         method.call();
                     });
}

void ksInvokeMultiCommand::redo()
{
    ksMultiCommand::redo();
    ksDetail::ksStep([this] { method.call(); },
                     [this] {
                         ksMultiCommand::undo();
                         method.call();
                     });
}
