// SPDX-License-Identifier: MIT
#pragma once

#include <ksundo/core/detail/ksTakeBack.h>
#include <ksundo/core/ksFindContainer.h>
#include <ksundo/core/ksUndoCommand.h>

#include <OpenSG/OSGNode.h>
#include <ksMessage.h>
#include <ksPlatform.h>

#include <type_traits>
#include <utility>

/// Changes one property of one node through a getter and a setter of the application.
///
/// Redo and undo are the same exchange: the node's value is read, the stored one is written, and the one that
/// was read is stored. Derived classes supply the getter, the setter and the id. Commands on the same node
/// merge within the merge window; one undo then restores the value from before the first of them. A node that
/// has gone makes the step a silent no-op.
///
/// \tparam T the property's type: anything that can be copied and assigned
template <class T>
class ksFunctionUndoCommand : public ksUndoCommand
{
    static_assert(std::is_copy_constructible_v<T> && std::is_copy_assignable_v<T>, "T must be copyable");

public:
    /// Sets the property of \a node, which may be null, to \a value when it is run, and not before.
    ksFunctionUndoCommand(const QString &text, osg::NodePtr node, T value, QUndoCommand *parent = nullptr)
        : ksUndoCommand(text, parent)
        , nodeId(ksPlatform::idOf(node))
        , value(std::move(value))
    {}

    /// The same exchange as redo().
    void undo() override { redo(); }

    /// Exchanges the node's value and the stored one. When the setter throws, the value that the node had is
    /// set once more, and the stored one stays.
    void redo() override
    {
        const auto node = ksFindContainer<osg::NodePtr>(nodeId);
        if (node == osg::NullFC)
            return;
        T previous = get(node);
        ksDetail::ksStep([&] { set(node, value); }, [&] { setLiving(previous); });
        value = std::move(previous);
    }

    /// Takes over the time of \a other; this command already has the value from before both.
    bool mergeWith(const QUndoCommand *other) override { return absorb(other); }

    /// Adds "id", then "node", the node's id as unsigned int.
    void makeMessage(ksMessage &message) const override
    {
        ksUndoCommand::makeMessage(message);
        message.set("node", nodeId, true);
    }

    /// Demands, beyond ksUndoCommand's conditions, the same node.
    bool canMergeWith(const QUndoCommand *other) const override
    {
        return ksUndoCommand::canMergeWith(other) &&
               static_cast<const ksFunctionUndoCommand *>(other)->nodeId == nodeId;
    }

    /// Reads the property of \a node, which is never null.
    virtual T get(osg::NodePtr node) = 0;

    /// Writes the property of \a node, which is never null, and tells whoever must know.
    virtual void set(osg::NodePtr node, T value) = 0;

protected:
    osg::UInt32 nodeId; ///< 0 for none

    /// What the next redo or undo writes.
    T value;

private:
    void setLiving(const T &previous)
    {
        const auto node = ksFindContainer<osg::NodePtr>(nodeId);
        if (node != osg::NullFC)
            set(node, previous);
    }
};
