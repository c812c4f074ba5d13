// SPDX-License-Identifier: MIT
#pragma once

#include <QUndoCommand>

#include <memory>

/// A command that takes no parent as a part of another one all the same. It never merges.
class ksPartUndoCommand : public QUndoCommand
{
public:
    ksPartUndoCommand(std::unique_ptr<QUndoCommand> whole, QUndoCommand *parent)
        : QUndoCommand(whole->text(), parent)
        , command(std::move(whole))
    {}

    void undo() override { command->undo(); }
    void redo() override { command->redo(); }

private:
    const std::unique_ptr<QUndoCommand> command;
};
