// SPDX-License-Identifier: MIT
#pragma once

#include <ksundo/core/ksUndoCommand.h>

#include <type_traits>

/// Base of the commands that never merge: each is an undo step of its own.
///
/// \tparam Base the command base that it refines
template <class Base = ksUndoCommand>
class ksNonMergingUndoCommand : public Base
{
    static_assert(std::is_base_of_v<ksUndoCommand, Base>, "Base must be a command");

public:
    using Base::Base;

    /// Never.
    bool canMergeWith(const QUndoCommand *) const override { return false; }
};
