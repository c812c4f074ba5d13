// SPDX-License-Identifier: MIT
#include <ksundo/core/detail/ksCommandKind.h>
#include <ksundo/core/ksMultiCommand.h>

#include <utility>

namespace {

/// \a command when it is one of the library, null otherwise, and for null.
const ksUndoCommand *asUndoCommand(const QUndoCommand *command)
{
    const bool isOne = command != nullptr && ksDetail::ksKindOf(*command) == ksDetail::ksCommandKind::single;
    return isOne ? static_cast<const ksUndoCommand *>(command) : nullptr;
}

} // namespace

ksMultiCommand::ksMultiCommand(const QString &text, std::function<void()> postAction)
    : QUndoCommand(text)
    , postAction(std::move(postAction))
{}

void ksMultiCommand::undo()
{
    QUndoCommand::undo();
    runPostAction();
}

void ksMultiCommand::redo()
{
    QUndoCommand::redo();
    runPostAction();
}

bool ksMultiCommand::mergeWith(const QUndoCommand *other)
{
    const int children = childCount();
    if (other->id() != id() || other->childCount() != children)
        return false;

    for (int i = 0; i < children; ++i) {
        const ksUndoCommand *mine = asUndoCommand(child(i));
        const ksUndoCommand *theirs = asUndoCommand(other->child(i));
        if (mine == nullptr || theirs == nullptr || !mine->canMergeWith(theirs))
            return false;
    }
    // QUndoCommand hands its children out as constant although they are this command's own.
    for (int i = 0; i < children; ++i)
        const_cast<QUndoCommand *>(child(i))->mergeWith(other->child(i));
    return true;
}

void ksMultiCommand::makeMessage(ksMessage &message) const
{
    if (const ksUndoCommand *first = asUndoCommand(child(0)))
        first->makeMessage(message);
}

void ksMultiCommand::runPostAction() const
{
    if (postAction)
        postAction();
}
