// SPDX-License-Identifier: MIT
#pragma once

#include <ksundo/core/detail/ksTakeBack.h>
#include <ksundo/core/ksNonMergingUndoCommand.h>

#include <type_traits>
#include <utility>

/// Mechanics of the commands that know the state of their target before and after the edit: redo applies the
/// one after, undo the one before. Both are settled when the command is built. When the application throws in
/// a step, the opposite one is applied. The message has "id" only, unless the class adds more.
///
/// \tparam Command the class, with a function `void apply(const State &from, const State &to)` that takes the
/// target from one state to the other, and does nothing when the target has gone
/// \tparam State what the command keeps of its target
/// \tparam Base the command base that it refines
template <class Command, class State, class Base = ksNonMergingUndoCommand<>>
class ksBeforeAfterUndoCommand : public Base
{
    static_assert(std::is_base_of_v<ksUndoCommand, Base>, "Base must be a command");

public:
    /// Applies the state before.
    void undo() override
    {
        ksDetail::ksStep([this] { self().apply(after, before); }, [this] { self().takeBack(after, before); });
    }

    /// Applies the state after.
    void redo() override
    {
        ksDetail::ksStep([this] { self().apply(before, after); }, [this] { self().takeBack(before, after); });
    }

protected:
    /// Keeps both states, or what a State is made of; \a arguments are those of the base.
    template <class Before = State, class After = State, class... Arguments>
    explicit ksBeforeAfterUndoCommand(Before &&before, After &&after, Arguments &&...arguments)
        : Base(std::forward<Arguments>(arguments)...)
        , before(std::forward<Before>(before))
        , after(std::forward<After>(after))
    {}

    State before; ///< what undo takes the target to
    State after;  ///< what redo takes the target to

    /// What is done when the application throws on the way from one state to the other.
    void takeBack(const State &from, const State &to) { self().apply(to, from); }

private:
    Command &self() { return *static_cast<Command *>(this); }
};
