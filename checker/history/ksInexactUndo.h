// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

class QUndoCommand;
class ksCheckedHistory;

/// What undoing a command does not bring back bit for bit, although the command does what it should: values
/// in world space, the angles of a turn by a quaternion, the order of a constraint's sources.
namespace ksInexactUndo {

/// To be called before \a command, which is about to be added to \a history, runs. The function that it
/// returns is to be called after that; it lets the history expect what will not come back.
std::function<void()> watch(const QUndoCommand &command, ksCheckedHistory &history);

} // namespace ksInexactUndo
