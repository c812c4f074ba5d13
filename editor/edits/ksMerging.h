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

/// How the command of a drag's event \a event, counted from 0, merges: all with the first one.
inline ksMerging ksMergingOfEvent(int event)
{
    return event > 0 ? ksMerging::WithPrevious : ksMerging::Never;
}

/// Lets \a command merge as \a merging says. Returns it.
inline ksUndoCommand *ksMergingAs(ksMerging merging, ksUndoCommand *command)
{
    command->setMergeEnabled(merging == ksMerging::WithPrevious);
    command->setMergeResponseDelta(-1);
    return command;
}
