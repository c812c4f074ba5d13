// SPDX-License-Identifier: MIT
#pragma once

#include <QUndoCommand>

namespace ksDetail {

/// What a command is besides a QUndoCommand.
enum class ksCommandKind
{
    plain,  ///< nothing
    single, ///< a ksUndoCommand
    multi   ///< a ksMultiCommand
};

/// The kind of \a command. It is looked into once for each class, and not at every step.
ksCommandKind ksKindOf(const QUndoCommand &command);

} // namespace ksDetail
