// SPDX-License-Identifier: MIT
#pragma once

#include <ksundo/core/ksSyncFunction.h>
#include <ksundo/transform/ksTransformUndoCommand.h>

#include <functional>
#include <string>

/// Sets the order in which a transform node applies its three Euler rotations, in the application's notation,
/// such as XYZ. The history shows it as a translation: Translate 'Box'.
class KSUNDO_EXPORT ksEulerRotationOrderUndoCommand
    : public ksTransformUndoCommand<std::string>,
      public ksSyncFunction<ksEulerRotationOrderUndoCommand, void(const osg::NodePtr &, const std::string &)>
{
    KS_UNDO_COMMAND(ksEulerRotationOrderUndoCommand)

public:
    /// Called after the command has written: with the node's id, the order written, and the index.
    using ChangeCallback = std::function<void(unsigned int, const std::string &, int)>;

    ksEulerRotationOrderUndoCommand(osg::NodePtr node, std::string order, QUndoCommand *parent = nullptr,
                                    ChangeCallback callback = {}, int index = -1);

    /// The same with merging switched on or off.
    ksEulerRotationOrderUndoCommand(osg::NodePtr node, std::string order, bool mergeEnabled,
                                    QUndoCommand *parent = nullptr, ChangeCallback callback = {},
                                    int index = -1);

    /// The same with a merge window in seconds.
    ksEulerRotationOrderUndoCommand(osg::NodePtr node, std::string order, double mergeResponseDelta,
                                    QUndoCommand *parent = nullptr, ChangeCallback callback = {},
                                    int index = -1);

    std::string get(osg::NodePtr node) override;

    /// Writes the order, then calls the callback and, for index -1, the sync function.
    void set(osg::NodePtr node, std::string order) override;

private:
    ChangeCallback changeCallback;
};

extern template class ksSyncFunction<ksEulerRotationOrderUndoCommand,
                                     void(const osg::NodePtr &, const std::string &)>;
