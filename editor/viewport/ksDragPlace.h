// SPDX-License-Identifier: MIT
#pragma once

#include <editor/viewport/ksViewHandles.h>

#include <OSGTransform3D.h>
#include <OpenSG/OSGNode.h>

#include <QMatrix4x4>
#include <QQuaternion>
#include <QVector3D>

/// Where a node with a transform is, as the calling thread's aspect has it.
struct ksDragPlace
{
    /// \a node has an osg::Transform3D.
    explicit ksDragPlace(const osg::NodePtr &node);

    /// Whether values in the world can be told in the parent's space.
    bool canInvert() const { return isInvertible; }

    /// Where \a tool has its handles: at the pivot that it works about, along the world's axes or the node's.
    ksViewHandleFrame frame(ksViewTool tool, bool isWorld) const;

    /// The pivots in the parent's space.
    QVector3D turnPivot() const;
    QVector3D scalePivot() const { return scalePivotWith(rotation); }
    QVector3D scalePivotWith(const QQuaternion &turn) const;

    /// The orientation, which is done before the rotation.
    QQuaternion orientationTurn() const;

    osg::NodePtr node;
    osg::Transform3DPtr transform;

    /// From the parent's space to the world, and back.
    QMatrix4x4 toWorld;
    QMatrix4x4 toParent;

    /// Its own transform.
    QMatrix4x4 own;

    QVector3D translation;
    QVector3D euler;
    QVector3D scale;
    QVector3D shear;
    QQuaternion rotation;

private:
    bool isInvertible;
    std::array<QVector3D, 3> orientation;
};
