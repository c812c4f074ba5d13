// SPDX-License-Identifier: MIT
#pragma once

#include <ksundo/core/ksBeforeAfterUndoCommand.h>
#include <ksundo/core/ksFindContainer.h>

#include <ksPlatform.h>

#include <type_traits>

/// Mechanics of the commands that know the state of one container before and after the edit. The container is
/// known by its id: one that has gone, or was null, makes a step a silent no-op. The commands never merge,
/// and their message has "id" only, unless the class adds more.
///
/// \tparam Command the class, with a function
/// `void apply(const PtrT &container, const State &from, const State &to)` that takes the container, which is
/// not null, from one state to the other
/// \tparam PtrT the type of the container's handle
/// \tparam State what the command keeps of it; bool for commands that take entries out of lists, or put them
/// in: whether they are out
template <class Command, class PtrT, class State>
class ksContainerUndoCommand
    : public ksBeforeAfterUndoCommand<ksContainerUndoCommand<Command, PtrT, State>, State>
{
    using Base = ksBeforeAfterUndoCommand<ksContainerUndoCommand, State>;

protected:
    /// \a container may be null.
    ksContainerUndoCommand(const QString &text, const PtrT &container, State before, State after,
                           QUndoCommand *parent)
        : Base(std::move(before), std::move(after), text, parent)
        , containerId(ksPlatform::idOf(container))
    {}

    /// What is done when the application throws on the way from one state to the other.
    void takeBack(const PtrT &container, const State &from, const State &to)
    {
        auto *command = static_cast<Command *>(this);
        if constexpr (std::is_same_v<State, bool>) {
            // Of several entries, some may be out of their list, and others not yet.
            ksDetail::ksTakeBack([&] { command->apply(container, false, true); });
            if (from)
                return;
        }
        command->apply(container, to, from);
    }

    osg::UInt32 containerId; ///< 0 for none

private:
    friend Base;

    void apply(const State &from, const State &to)
    {
        const auto container = ksFindContainer<PtrT>(containerId);
        if (container != osg::NullFC)
            static_cast<Command *>(this)->apply(container, from, to);
    }

    void takeBack(const State &from, const State &to)
    {
        const auto container = ksFindContainer<PtrT>(containerId);
        if (container != osg::NullFC)
            static_cast<Command *>(this)->takeBack(container, from, to);
    }
};
