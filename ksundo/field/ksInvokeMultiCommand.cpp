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
    ksDetail::ksTell([this] { method.call(); }, [this] { ksMultiCommand::redo(); });
}

void ksInvokeMultiCommand::redo()
{
    ksMultiCommand::redo();
    ksDetail::ksTell([this] { method.call(); }, [this] { ksMultiCommand::undo(); });
}
