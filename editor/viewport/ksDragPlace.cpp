// SPDX-License-Identifier: MIT
#include <editor/scene/ksWorldSpace.h>
#include <editor/viewport/ksDragPlace.h>
#include <editor/viewport/ksViewMath.h>

#include <ksNodeUtils.h>

ksDragPlace::ksDragPlace(const osg::NodePtr &placed)
    : node(placed)
    , transform(ksNodeUtils::getTransform3D(placed, -1))
    , toWorld(ksToQt(osg::inPrecisionOf<osg::Matrix>(ksWorldSpace::above(placed))))
    , toParent(toWorld.inverted(&isInvertible))
    , own(ksToQt(transform->getMatrix()))
    , translation(ksToQt(transform->getTranslation()))
    , euler(ksToQt(transform->getEulerRotation()))
    , scale(ksToQt(transform->getScale()))
    , shear(ksToQt(transform->getShear()))
{
    const osg::Quaternion &turn = transform->getRotation();
    rotation = QQuaternion(turn.w(), turn.x(), turn.y(), turn.z());
    rotation = rotation.isNull() ? QQuaternion() : rotation.normalized();
    for (int axis = 0; axis < 3; ++axis)
        orientation[std::size_t(axis)] = ksToQt(transform->getOrientedAxis(axis));
}

ksViewHandleFrame ksDragPlace::frame(ksViewTool tool, bool isWorld) const
{
    ksViewHandleFrame frame;
    frame.origin = toWorld.map(tool == ksViewTool::Scale ? scalePivot() : turnPivot());
    for (std::size_t axis = 0; axis < 3 && !isWorld; ++axis) {
        const QVector3D along = toWorld.mapVector(rotation.rotatedVector(orientation[axis])).normalized();
        if (!along.isNull())
            frame.axes[axis] = along;
    }
    return frame;
}

QVector3D ksDragPlace::turnPivot() const
{
    return translation + ksToQt(transform->getRotatePivotTranslation()) + ksToQt(transform->getRotatePivot());
}

QVector3D ksDragPlace::scalePivotWith(const QQuaternion &turn) const
{
    const QVector3D way = ksToQt(transform->getScalePivotTranslation()) + ksToQt(transform->getScalePivot()) -
                          ksToQt(transform->getRotatePivot());
    return turnPivot() + turn.rotatedVector(orientationTurn().rotatedVector(way));
}

QQuaternion ksDragPlace::orientationTurn() const
{
    return QQuaternion::fromAxes(orientation[0], orientation[1], orientation[2]);
}
