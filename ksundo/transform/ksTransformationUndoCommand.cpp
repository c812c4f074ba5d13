// SPDX-License-Identifier: MIT
#include <ksundo/core/NodeUtils.h>
#include <ksundo/core/detail/ksSync.h>
#include <ksundo/transform/ksTransformationUndoCommand.h>

#include <ksNodeUtils.h>
#include <ksPlatform.h>

ksTransformationUndoCommand::SyncFunction ksTransformationUndoCommand::s_sync;

ksTransformationUndoCommand::ksTransformationUndoCommand(osg::NodePtr node, ksTransformation values,
                                                         bool syncs, QUndoCommand *parent,
                                                         Notification notification, int index)
    : ksContainerUndoCommand(
          QStringLiteral("Apply transformation to %1").arg(NodeUtils::displayName(node)), node,
          ksTransformation::of(ksNodeUtils::getTransform3D(ksNodeUtils::findTransform(node), index)),
          std::move(values), parent)
    , index(index)
    , notification(std::move(notification))
    , syncs(syncs)
{}

void ksTransformationUndoCommand::apply(const osg::NodePtr &node, const ksTransformation &,
                                        const ksTransformation &values) const
{
    ksPlatform::setTransformation(node, values, index);
    if (notification)
        notification(index);
    if (s_sync && syncs && index == -1)
        ksDetail::ksSync(s_sync, containerId);
}
