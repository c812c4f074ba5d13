// SPDX-License-Identifier: MIT
#pragma once

#include <ksundo/core/ksUndoCommand.h>

/// What a command is told about merging when it is built: a bool switches it on or off, a double is the merge
/// window in seconds, of which a negative one, and not a number, is without limit.
class ksMergeOption
{
public:
    /// What every command begins with: merging is on, with the default window.
    ksMergeOption() = default;

    /// Switches merging on or off.
    ksMergeOption(bool enabled)
        : enabled(enabled)
    {}

    /// Sets the merge window.
    ksMergeOption(double seconds)
        : seconds(seconds)
    {}

    /// Tells \a command.
    void applyTo(ksUndoCommand &command) const
    {
        command.setMergeEnabled(enabled);
        command.setMergeResponseDelta(seconds);
    }

private:
    bool enabled = true;
    double seconds = ksUndoCommand::defaultMergeResponseDelta;
};
