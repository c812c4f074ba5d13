// SPDX-License-Identifier: MIT
#include <ksundo/core/detail/ksCommandKind.h>
#include <ksundo/core/detail/ksTakeBack.h>
#include <ksundo/core/ksMultiCommand.h>

#include <functional>
#include <typeinfo>
#include <utility>

namespace {

/// \a command when it is one of the library, null otherwise, and for null.
const ksUndoCommand *asUndoCommand(const QUndoCommand *command)
{
    const bool isOne = command != nullptr && ksDetail::ksKindOf(*command) == ksDetail::ksCommandKind::single;
    return isOne ? static_cast<const ksUndoCommand *>(command) : nullptr;
}

void runChild(QUndoCommand &command, bool undoing);

/// The child of \a command that is run as number \a i.
QUndoCommand &childAt(const QUndoCommand &command, int i, bool undoing)
{
    // QUndoCommand hands its children out as constant although they are this command's own.
    return *const_cast<QUndoCommand *>(command.child(undoing ? command.childCount() - 1 - i : i));
}

/// Takes back the first \a count children that were run.
void takeBackChildren(const QUndoCommand &command, int count, bool undoing)
{
    while (--count >= 0)
        ksDetail::ksTakeBack([&] { runChild(childAt(command, count, undoing), !undoing); });
}

/// Undoes the children of \a command, the last first, or redoes them. Those that were done by then are taken
/// back when one of them throws.
void runChildren(const QUndoCommand &command, bool undoing)
{
    int done = 0;
    try {
        for (; done < command.childCount(); ++done)
            runChild(childAt(command, done, undoing), undoing);
    } catch (const ksDetail::ksMissingNotification &) {
        takeBackChildren(command, done + 1, undoing); // the one that lacks it has been done
        throw std::bad_function_call();               // this one has not
    } catch (...) {
        takeBackChildren(command, done, undoing);
        throw;
    }
}

void runChild(QUndoCommand &command, bool undoing)
{
    if (command.childCount() > 0 && typeid(command) == typeid(QUndoCommand))
        runChildren(command, undoing);
    else if (undoing)
        command.undo();
    else
        command.redo();
}

} // namespace

ksMultiCommand::ksMultiCommand(const QString &text, std::function<void()> postAction)
    : QUndoCommand(text)
    , postAction(std::move(postAction))
{}

void ksMultiCommand::undo()
{
    run(true);
}

void ksMultiCommand::redo()
{
    run(false);
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
    for (int i = 0; i < children; ++i)
        const_cast<QUndoCommand *>(child(i))->mergeWith(other->child(i));
    return true;
}

void ksMultiCommand::makeMessage(ksMessage &message) const
{
    if (const ksUndoCommand *first = asUndoCommand(child(0)))
        first->makeMessage(message);
}

void ksMultiCommand::run(bool undoing) const
{
    runChildren(*this, undoing);
    ksDetail::ksTell([this] { runPostAction(); }, [=] { takeBackChildren(*this, childCount(), undoing); });
}

void ksMultiCommand::runPostAction() const
{
    if (postAction)
        postAction();
}
