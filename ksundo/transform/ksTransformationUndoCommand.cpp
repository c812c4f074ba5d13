// SPDX-License-Identifier: MIT
#include <ksundo/core/NodeUtils.h>
#include <ksundo/core/ksFindContainer.h>
#include <ksundo/transform/ksTransformationUndoCommand.h>

#include <ksNodeUtils.h>

#include <utility>

template class ksSyncFunction<ksTransformationUndoCommand, void(const osg::NodePtr &)>;

ksTransformationUndoCommand::ksTransformationUndoCommand(
    osg::NodePtr node, osg::Vector<float, 3u> translation, osg::Vector<float, 3u> rotation,
    osg::Vector<float, 3u> scale, osg::Vector<float, 3u> shear, osg::Vector<float, 3u> scalePivot,
    osg::Vector<float, 3u> rotatePivot, osg::Vector<float, 3u> scalePivotTranslation,
    osg::Vector<float, 3u> rotatePivotTranslation, int inheritType, std::string eulerRotationOrder,
    bool rotationDirectionOn, osg::Vector<float, 3u> rotationDirection, int rotationDirectionMode, bool syncs,
    QUndoCommand *parent, Notification notification, int index)
    : ksUndoCommand(QStringLiteral("Apply transformation to %1").arg(NodeUtils::getText(node)), parent)
    , newValues{translation,
                rotation,
                scale,
                shear,
                scalePivot,
                rotatePivot,
                scalePivotTranslation,
                rotatePivotTranslation,
                inheritType,
                std::move(eulerRotationOrder),
                rotationDirectionOn,
                rotationDirection,
                rotationDirectionMode}
    , oldValues(currentValues(node, index))
    , nodeId(node.getFieldContainerId())
    , index(index)
    , notification(std::move(notification))
    , syncs(syncs)
{}

void ksTransformationUndoCommand::undo()
{
    apply(oldValues);
}

void ksTransformationUndoCommand::redo()
{
    apply(newValues);
}

bool ksTransformationUndoCommand::canMergeWith(const QUndoCommand *) const
{
    return false;
}

ksTransformationUndoCommand::Values ksTransformationUndoCommand::currentValues(const osg::NodePtr &node,
                                                                               int index)
{
    Values values;
    const osg::Transform3DPtr core = ksNodeUtils::getTransform3D(ksNodeUtils::findTransform(node), index);
    if (core == osg::NullFC)
        return values;
    values.translation = core->getTranslation();
    values.rotation = core->getEulerRotation();
    values.scale = core->getScale();
    values.shear = core->getShear();
    values.scalePivot = core->getScalePivot();
    values.rotatePivot = core->getRotatePivot();
    values.scalePivotTranslation = core->getScalePivotTranslation();
    values.rotatePivotTranslation = core->getRotatePivotTranslation();
    values.inheritType = core->getInheritType();
    values.eulerRotationOrder = core->getEulerRotationOrder();
    values.rotationDirectionOn =
        core->getRotationDirectionValues(values.rotationDirection, values.rotationDirectionMode);
    return values;
}

void ksTransformationUndoCommand::apply(const Values &values) const
{
    const auto node = ksFindContainer<osg::NodePtr>(nodeId);
    if (node == osg::NullFC)
        return;
    const int transform = static_cast<int>(index);
    ksNodeUtils::setTransformNodeValues(node, values.translation, values.rotation, values.scale, values.shear,
                                        values.scalePivot, values.rotatePivot, values.scalePivotTranslation,
                                        values.rotatePivotTranslation, values.inheritType,
                                        values.eulerRotationOrder, values.rotationDirectionOn,
                                        values.rotationDirection, values.rotationDirectionMode, transform);
    if (notification)
        notification(transform);
    if (syncs && index == -1)
        sync(node);
}
