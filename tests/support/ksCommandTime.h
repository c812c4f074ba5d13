// SPDX-License-Identifier: MIT
#pragma once

#include <ksundo/core/ksUndoCommand.h>

/// Reads and sets when a command was made, so that no test waits for a clock.
struct ksCommandTime : ksUndoCommand
{
    static double &of(ksUndoCommand &command) { return command.*(&ksCommandTime::creationTime); }
};
