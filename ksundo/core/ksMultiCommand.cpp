// SPDX-License-Identifier: MIT
#include <ksundo/core/ksMultiCommand.h>

#include <utility>

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
        const ksUndoCommand *mine = libraryChild(i);
        const auto *theirs = dynamic_cast<const ksUndoCommand *>(other->child(i));
        if (mine == nullptr || theirs == nullptr || !mine->canMergeWith(theirs))
            return false;
    }
    for (int i = 0; i < children; ++i)
        libraryChild(i)->mergeWith(other->child(i));
    return true;
}

void ksMultiCommand::makeMessage(ksMessage &message) const
{
    if (const auto *first = dynamic_cast<const ksUndoCommand *>(child(0)))
        first->makeMessage(message);
}

/// The child at \a position when it is a command of the library, null otherwise. QUndoCommand hands its
/// children out as constant although they are this command's own.
ksUndoCommand *ksMultiCommand::libraryChild(int position) const
{
    return dynamic_cast<ksUndoCommand *>(const_cast<QUndoCommand *>(child(position)));
}

void ksMultiCommand::runPostAction() const
{
    if (postAction)
        postAction();
}
