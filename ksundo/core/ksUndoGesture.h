// SPDX-License-Identifier: MIT
#pragma once

#include <ksundo/core/ksUndoStack.h>

/// Makes what one gesture of the user adds to a stack, such as a drag or the typing into a field, one step
/// whatever its pace, and keeps two gestures apart however fast they follow each other.
///
/// The first command that is added merges with nothing before it. Those that follow merge as ever, composites
/// child by child, but without limit of time: commands of one kind and one target are one step. Nothing that
/// comes later merges with them. What cannot merge, or is told not to, is a step of its own; so is what comes
/// after setClean(), and within a macro all this goes for the macro's commands. The text of a step is that of
/// its first command.
///
/// The gesture ends when the object goes. Brackets nest: an inner one is part of the outer one.
/// \code
/// void Handle::mousePressEvent(QMouseEvent *) { gesture.emplace(stack); }
/// void Handle::mouseMoveEvent(QMouseEvent *event)
/// {
///     if (gesture)
///         stack->add(makeCommand(event->pos()));
/// }
/// void Handle::mouseReleaseEvent(QMouseEvent *) { gesture.reset(); }
/// void Handle::escape()
/// {
///     if (gesture)
///         gesture->takeBack();
///     gesture.reset();
/// }
/// \endcode
class ksUndoGesture
{
public:
    /// Begins a gesture on \a stack, which must not be null and must outlive the bracket.
    [[nodiscard]] explicit ksUndoGesture(ksUndoStack *stack = ksUndoStack::get(0))
        : stack(stack)
    {
        Q_ASSERT(stack != nullptr);
        stack->beginGesture();
    }

    /// Ends it. What has been done stays done, also when an exception passes.
    ~ksUndoGesture() { stack->endGesture(); }

    Q_DISABLE_COPY(ksUndoGesture)

    /// Undoes what the gesture, the outermost one of those that nest, has done so far, or since it was saved,
    /// and leaves neither a step nor a redo of it. See ksUndoStack::takeBackGesture().
    void takeBack() { stack->takeBackGesture(); }

private:
    ksUndoStack *stack;
};
