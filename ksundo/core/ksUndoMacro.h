// SPDX-License-Identifier: MIT
#pragma once

#include <ksundo/core/detail/ksTakeBack.h>
#include <ksundo/core/ksUndoStack.h>

#include <exception>

/// Groups what is added to a stack within a scope into one undo step.
///
/// The macro ends when the object goes. When an exception passes, what has been done by then stays done and
/// is undone as one step, or is taken back, as the bracket was told. Brackets nest.
///
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
    /// What happens when an exception leaves the scope.
    enum class OnException
    {
        keep,    ///< what has been done stays
        takeBack ///< it is undone, and nothing is left to redo
    };

    /// Opens a macro that the history shows as \a text on \a stack, which must not be null, must outlive the
    /// bracket and must not be cleared within it. Within another macro \a onException is without effect: what
    /// is taken back is an outermost macro as a whole.
    [[nodiscard]] explicit ksUndoMacro(const QString &text, ksUndoStack *stack = ksUndoStack::get(0),
                                       OnException onException = OnException::keep)
        : stack(stack)
        , onException(onException)
    {
        Q_ASSERT(stack != nullptr);
        stack->beginMacro(text);
    }

    /// Closes the macro. What is taken back is reported as the addition that it was, and then as an undo.
    /// What receivers throw at that passes on, unless an exception is on its way already: then it is dropped.
    ~ksUndoMacro() noexcept(false)
    {
        if (std::uncaught_exceptions() == exceptions)
            stack->endMacro();
        else if (onException == OnException::takeBack)
            stack->takeBackMacro();
        else
            ksDetail::ksTakeBack([this] { stack->endMacro(); });
    }

    Q_DISABLE_COPY(ksUndoMacro)

private:
    ksUndoStack *stack;
    OnException onException;
    int exceptions = std::uncaught_exceptions();
};
