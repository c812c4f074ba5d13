// SPDX-License-Identifier: MIT
#pragma once

#include <ksundo/core/ksSyncHook.h>
#include <ksundo/transform/ksTransformUndoCommand.h>

#include <string>
#include <utility>

/// Sets the order in which a transform node applies its three Euler rotations, in the application's notation,
/// such as XYZ: the text is passed on to the application's setter as it is. The history shows it as a
/// translation: Translate 'Box'. A node that has gone makes a step a silent no-op. Syncs for index -1.
class KSUNDO_EXPORT ksEulerRotationOrderUndoCommand : public ksTransformUndoCommand<std::string>
{
    KS_UNDO_COMMAND(ksEulerRotationOrderUndoCommand)
    KS_SYNC_HOOK(void(const osg::NodePtr &, const std::string &))

public:
    /// Called after the command has written: with the node's id, the order written, and the index.
    using ChangeCallback = std::function<void(unsigned int, const std::string &, int)>;

    /// \a index tells which of the node's transforms gets \a order: -1 its own, from 0 on that of
    /// the variant which stands there when a step is done. \a merging tells whether the command may merge, or
    /// its merge window in seconds. \a node may be null, the command then does nothing, and \a callback
    /// empty.
    ksEulerRotationOrderUndoCommand(osg::NodePtr node, std::string order, ksMergeOption merging,
                                    QUndoCommand *parent = nullptr, ChangeCallback callback = {},
                                    int index = -1);

    /// The same, with merging as every command begins.
    ksEulerRotationOrderUndoCommand(osg::NodePtr node, std::string order, QUndoCommand *parent = nullptr,
                                    ChangeCallback callback = {}, int index = -1)
        : ksEulerRotationOrderUndoCommand(node, std::move(order), ksMergeOption(), parent,
                                          std::move(callback), index)
    {}

    /// Asks the application's getter.
    std::string get(osg::NodePtr node) override;

    /// Writes the order, then calls the callback and, for index -1, the sync function.
    void set(osg::NodePtr node, std::string order) override;

private:
    ChangeCallback changeCallback;
};
