// SPDX-License-Identifier: MIT
#pragma once

#include <ksundo/core/ksUndoCommand.h>

/// Whether an edit may become one step with the edit before it.
enum class ksMerging
{
    Never,

    /// When the edit before it is of the same kind and the same target, however long ago it was.
    WithPrevious
};

/// Lets \a command merge as \a merging says. Returns it.
inline ksUndoCommand *ksMergingAs(ksMerging merging, ksUndoCommand *command)
{
    command->setMergeEnabled(merging == ksMerging::WithPrevious);
    command->setMergeResponseDelta(-1);
    return command;
}
