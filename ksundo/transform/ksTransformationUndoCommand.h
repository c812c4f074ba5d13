// SPDX-License-Identifier: MIT
#pragma once

#include <ksundo/core/ksSyncFunction.h>
#include <ksundo/core/ksUndoCommand.h>
#include <ksundo/transform/ksTransformUndoBaseCommand.h>

#include <OpenSG/OSGNode.h>
#include <OpenSG/OSGVector.h>

#include <functional>
#include <string>

/// Replaces the complete transformation of a transform node.
///
/// The old one is read once, when the command is built, from the transform that governs the node; where there
/// is none it is all zeros and empty. Undo writes exactly that. Every step then calls the notification and,
/// for the node's own transform, the sync function. A node that has gone makes the step a silent no-op. The
/// command never merges.
class KSUNDO_EXPORT ksTransformationUndoCommand
    : public ksUndoCommand,
      public ksTransformUndoBaseCommand,
      public ksSyncFunction<ksTransformationUndoCommand, void(const osg::NodePtr &)>
{
    KS_UNDO_COMMAND(ksTransformationUndoCommand)

public:
    /// Receives the transform index.
    using Notification = std::function<void(int)>;

    /// The values in the order and the units of ksNodeUtils::setTransformNodeValues().
    /// \param syncs whether the class's sync function is called after each step, which takes \a index -1, too
    /// \param notification may be empty
    /// \param index which of the node's transforms: -1 its own, from 0 on those of its variants
    ksTransformationUndoCommand(osg::NodePtr node, osg::Vector<float, 3u> translation,
                                osg::Vector<float, 3u> rotation, osg::Vector<float, 3u> scale,
                                osg::Vector<float, 3u> shear, osg::Vector<float, 3u> scalePivot,
                                osg::Vector<float, 3u> rotatePivot,
                                osg::Vector<float, 3u> scalePivotTranslation,
                                osg::Vector<float, 3u> rotatePivotTranslation, int inheritType,
                                std::string eulerRotationOrder, bool rotationDirectionOn,
                                osg::Vector<float, 3u> rotationDirection, int rotationDirectionMode,
                                bool syncs, QUndoCommand *parent, Notification notification, int index);

    void undo() override;
    void redo() override;

    /// Never.
    bool canMergeWith(const QUndoCommand *other) const override;

private:
    struct Values
    {
        osg::Vector<float, 3u> translation{0, 0, 0};
        osg::Vector<float, 3u> rotation{0, 0, 0};
        osg::Vector<float, 3u> scale{0, 0, 0};
        osg::Vector<float, 3u> shear{0, 0, 0};
        osg::Vector<float, 3u> scalePivot{0, 0, 0};
        osg::Vector<float, 3u> rotatePivot{0, 0, 0};
        osg::Vector<float, 3u> scalePivotTranslation{0, 0, 0};
        osg::Vector<float, 3u> rotatePivotTranslation{0, 0, 0};
        int inheritType = 0;
        std::string eulerRotationOrder;
        bool rotationDirectionOn = false;
        osg::Vector<float, 3u> rotationDirection{0, 0, 0};
        int rotationDirectionMode = 0;
    };

    static Values currentValues(const osg::NodePtr &node, int index);
    void apply(const Values &values) const;

    Values newValues;
    Values oldValues;
    osg::UInt32 nodeId;
    long long index;
    Notification notification;
    bool syncs;
};

extern template class ksSyncFunction<ksTransformationUndoCommand, void(const osg::NodePtr &)>;
