// SPDX-License-Identifier: MIT
#pragma once

#include <ksundo/core/ksBeforeAfterUndoCommand.h>
#include <ksundo/core/ksFindContainer.h>

#include <ksPlatform.h>

/// Mechanics of the commands that know the state of one container before and after the edit. The container is
/// known by its id: one that has gone, or was null, makes a step a silent no-op. The commands never merge,
/// and their message has "id" only, unless the class adds more.
///
/// \tparam Command the class, with a function
/// `void apply(const PtrT &container, const State &from, const State &to)` that takes the container, which is
/// not null, from one state to the other
/// \tparam PtrT the type of the container's handle
/// \tparam State what the command keeps of it
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

    osg::UInt32 containerId; ///< 0 for none

private:
    friend Base;

    void apply(const State &from, const State &to)
    {
        const auto container = ksFindContainer<PtrT>(containerId);
        if (container != osg::NullFC)
            static_cast<Command *>(this)->apply(container, from, to);
    }
};
