// SPDX-License-Identifier: MIT
#pragma once

#include <ksundo/core/ksUndoCommand.h>

/// Base of the commands that never merge: each is an undo step of its own.
///
/// \tparam Base the command base that it refines
template <class Base = ksUndoCommand>
class ksNonMergingUndoCommand : public Base
{
public:
    using Base::Base;

    /// Never.
    bool canMergeWith(const QUndoCommand *) const override { return false; }
};
