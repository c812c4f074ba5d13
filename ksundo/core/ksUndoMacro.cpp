// SPDX-License-Identifier: MIT
#include <ksundo/core/ksUndoMacro.h>

ksUndoMacro::ksUndoMacro(const QString &text, ksUndoStack *stack)
    : stack(stack)
{
    stack->beginMacro(text);
}

ksUndoMacro::~ksUndoMacro()
{
    stack->endMacro();
}
