// SPDX-License-Identifier: MIT
#pragma once

#include <ksundo/core/ksUndoCommand.h>

#include <string>
#include <vector>

/// What commands did, in order.
using ksProbeLog = std::vector<std::string>;

/// A command that logs its runs and its end under its text, and merges as every command of the library does.
/// Each \a kind is a command class with an id of its own.
template <int kind = 0>
class ksProbeCommand : public ksUndoCommand
{
    KS_UNDO_COMMAND(ksProbeCommand)

public:
    ksProbeCommand(const QString &text, ksProbeLog &log, QUndoCommand *parent = nullptr)
        : ksUndoCommand(text, parent)
        , log(log)
    {}

    ~ksProbeCommand() override { report("delete"); }

    void undo() override { report("undo"); }
    void redo() override { report("redo"); }
    bool mergeWith(const QUndoCommand *other) override { return absorb(other); }

private:
    void report(const char *event) { log.push_back(event + (' ' + text().toStdString())); }

    ksProbeLog &log;
};

/// A command that sets a number by exchange. It merges with the command before it, whenever that was made,
/// unless its switch is off.
class ksSetNumberCommand : public ksUndoCommand
{
    KS_UNDO_COMMAND(ksSetNumberCommand)

public:
    ksSetNumberCommand(const QString &text, int &number, int value, QUndoCommand *parent = nullptr)
        : ksUndoCommand(text, parent)
        , number(number)
        , value(value)
    {
        setMergeResponseDelta(-1.0);
    }

    void undo() override { redo(); }
    void redo() override { std::swap(number, value); }
    bool mergeWith(const QUndoCommand *other) override { return absorb(other); }

private:
    int &number;
    int value;
};
