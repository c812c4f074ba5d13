// SPDX-License-Identifier: MIT
#pragma once

#include <ksundo/transform/ksFunctionUndoCommand.h>

#include <OpenSG/OSGQuaternion.h>

/// Sets a transform node's rotation from a quaternion, writing quaternion and Euler angles of its core in one
/// edit.
///
/// Quaternions are x, y, z and w, of length 1. A node whose core is not an osg::Transform3D reads as the
/// identity, which is what the command then has for the next step, and is left alone; so is one that has
/// gone, or was null. There is no sync function.
class KSUNDO_EXPORT ksRotationAsQuaternionUndoCommand
    : public ksFunctionUndoCommand<osg::QuaternionBase<float>>
{
    KS_UNDO_COMMAND(ksRotationAsQuaternionUndoCommand)

public:
    using ksFunctionUndoCommand::ksFunctionUndoCommand;

    /// Adds "id", then "transformCommand", which is true. Unlike other commands on a node, it does not name
    /// it.
    void makeMessage(ksMessage &message) const override;

    /// The quaternion of the node's core.
    osg::QuaternionBase<float> get(osg::NodePtr node) override;

    /// Writes quaternion and Euler angles of the node's core and ends the edit.
    void set(osg::NodePtr node, osg::QuaternionBase<float> rotation) override;
};
