// SPDX-License-Identifier: MIT
#pragma once

#include <ksundo/core/ksContainerUndoCommand.h>
#include <ksundo/core/ksSyncHook.h>
#include <ksundo/transform/ksTransformUndoBaseCommand.h>
#include <ksundo/transform/ksTransformation.h>

#include <OpenSG/OSGNode.h>

#include <functional>

/// Replaces the complete transformation of a transform node: Apply transformation to Box.
///
/// The old one is read once, when the command is built, from the transform that governs the node; where there
/// is none it is all zeros and empty. Undo writes exactly that. Every step then calls the notification and,
/// for the node's own transform, the sync function. A node that has gone makes the step a silent no-op. The
/// command never merges.
class KSUNDO_EXPORT ksTransformationUndoCommand
    : public ksContainerUndoCommand<ksTransformationUndoCommand, osg::NodePtr, ksTransformation>,
      public ksTransformUndoBaseCommand
{
    KS_UNDO_COMMAND(ksTransformationUndoCommand)
    KS_SYNC_HOOK(void(const osg::NodePtr &))

public:
    /// Receives the transform index.
    using Notification = std::function<void(int)>;

    /// \a index tells which of the node's transforms gets \a values: -1 its own, from 0 on that of
    /// the variant which stands there when a step is done. \a syncs tells whether the class's sync function
    /// is called after each step, which takes index -1, too. \a node may be null, the command then does
    /// nothing, and \a notification empty.
    ksTransformationUndoCommand(osg::NodePtr node, ksTransformation values, bool syncs,
                                QUndoCommand *parent = nullptr, Notification notification = {},
                                int index = -1);

    /// The same with the values of a ksTransformation one by one, in their order.
    ksTransformationUndoCommand(osg::NodePtr node, osg::Vec3f translation, osg::Vec3f rotation,
                                osg::Vec3f scale, osg::Vec3f shear, osg::Vec3f scalePivot,
                                osg::Vec3f rotatePivot, osg::Vec3f scalePivotTranslation,
                                osg::Vec3f rotatePivotTranslation, int inheritType,
                                std::string eulerRotationOrder, bool rotationDirectionOn,
                                osg::Vec3f rotationDirection, int rotationDirectionMode, bool syncs,
                                QUndoCommand *parent, Notification notification, int index)
        : ksTransformationUndoCommand(node,
                                      {translation, rotation, scale, shear, scalePivot, rotatePivot,
                                       scalePivotTranslation, rotatePivotTranslation, inheritType,
                                       std::move(eulerRotationOrder), rotationDirectionOn, rotationDirection,
                                       rotationDirectionMode},
                                      syncs, parent, std::move(notification), index)
    {}

private:
    friend ksContainerUndoCommand;

    void apply(const osg::NodePtr &node, const ksTransformation &, const ksTransformation &values) const;

    int index;
    Notification notification;
    bool syncs;
};
