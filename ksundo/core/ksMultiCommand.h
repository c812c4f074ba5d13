// SPDX-License-Identifier: MIT
#pragma once

#include <ksundo/core/ksUndoCommand.h>

#include <functional>

/// Several commands that are done and undone as one step, with an optional action afterwards.
///
/// The children are built with the multi-command as their parent, which owns them. A multi-command is always
/// a top-level command itself. Its id and its message are not those of a ksUndoCommand, from which it does
/// not derive: it has no creation time of its own and merges child by child.
class KSUNDO_EXPORT ksMultiCommand : public QUndoCommand
{
    KS_UNDO_COMMAND(ksMultiCommand)

public:
    /// Builds a multi-command without children that the history shows as \a text, with an action, which may
    /// be empty, that runs after the children on every redo and on every undo.
    explicit ksMultiCommand(const QString &text, std::function<void()> postAction = {});

    /// Undoes the children, the last first, then runs the action. When one of them throws, or the action
    /// does, those that have been undone are redone.
    void undo() override;

    /// Redoes the children, the first first, then runs the action. The same, the other way round.
    void redo() override;

    /// Absorbs \a other when it is of the same class, has as many children and each of its children can merge
    /// into the child at the same position. Either all children merge or none. Two multi-commands without
    /// children merge. The action of \a other is dropped.
    bool mergeWith(const QUndoCommand *other) override;

    /// Adds what the first child says about itself; nothing when there is no child or the first one is not a
    /// ksUndoCommand.
    virtual void makeMessage(ksMessage &message) const;

private:
    void run(bool undoing) const;
    void runPostAction() const;

    std::function<void()> postAction;
};
