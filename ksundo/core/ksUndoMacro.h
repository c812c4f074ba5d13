// SPDX-License-Identifier: MIT
#pragma once

#include <ksundo/core/ksUndoStack.h>

/// Groups what is added to a stack within a scope into one undo step.
///
/// The macro ends when the object goes, also when an exception passes: what has been done by then stays done
/// and is undone as one step. Brackets nest. What hears of the macro's end must not throw: the process ends
/// otherwise.
/// \code
/// {
///     const ksUndoMacro macro(tr("Align"));
///     stack->add(...);
///     stack->add(...);
/// }
/// \endcode
class ksUndoMacro
{
public:
    /// Opens a macro that the history shows as \a text on \a stack, which must not be null, must outlive the
    /// bracket and must not be cleared within it.
    [[nodiscard]] explicit ksUndoMacro(const QString &text, ksUndoStack *stack = ksUndoStack::get(0))
        : stack(stack)
    {
        Q_ASSERT(stack != nullptr);
        stack->beginMacro(text);
    }

    /// Closes the macro.
    ~ksUndoMacro() { stack->endMacro(); }

    Q_DISABLE_COPY(ksUndoMacro)

private:
    ksUndoStack *stack;
};
