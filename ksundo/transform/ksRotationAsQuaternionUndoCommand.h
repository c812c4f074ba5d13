// SPDX-License-Identifier: MIT
#pragma once

#include <ksundo/transform/ksFunctionUndoCommand.h>

#include <OpenSG/OSGQuaternion.h>

/// Sets a transform node's rotation from a quaternion, writing quaternion and Euler angles of its core in one
/// edit.
///
/// A node whose core is not an osg::Transform3D reads as the identity and is left alone.
class KSUNDO_EXPORT ksRotationAsQuaternionUndoCommand
    : public ksFunctionUndoCommand<osg::QuaternionBase<float>>
{
    KS_UNDO_COMMAND(ksRotationAsQuaternionUndoCommand)

public:
    using ksFunctionUndoCommand::ksFunctionUndoCommand;

    /// Adds "id", then "transformCommand", which is true. Unlike other commands on a node, it does not name
    /// it.
    void makeMessage(ksMessage &message) const override;

    osg::QuaternionBase<float> get(osg::NodePtr node) override;
    void set(osg::NodePtr node, osg::QuaternionBase<float> rotation) override;
};
