// SPDX-License-Identifier: MIT
#include <ksundo/core/detail/ksSync.h>
#include <ksundo/transform/ksEulerRotationOrderUndoCommand.h>

#include <ksNodeUtils.h>
#include <ksPlatform.h>

#include <QCoreApplication>

ksEulerRotationOrderUndoCommand::SyncFunction ksEulerRotationOrderUndoCommand::s_sync;

ksEulerRotationOrderUndoCommand::ksEulerRotationOrderUndoCommand(osg::NodePtr node, std::string order,
                                                                 ksMergeOption merging, QUndoCommand *parent,
                                                                 ChangeCallback callback, int index)
    : ksTransformUndoCommand(QCoreApplication::translate("ksEulerRotationOrderUndoCommand", "Translate"),
                             node, std::move(order), false, merging, parent, index)
    , changeCallback(std::move(callback))
{}

std::string ksEulerRotationOrderUndoCommand::get(osg::NodePtr node)
{
    return ksNodeUtils::getTransformNodeEulerRotationOrder(node, index);
}

void ksEulerRotationOrderUndoCommand::set(osg::NodePtr node, std::string order)
{
    const osg::UInt32 id = ksPlatform::idOf(node);
    ksNodeUtils::setTransformNodeEulerRotationOrder(node, order, index);
    if (changeCallback)
        changeCallback(id, order, index);
    if (s_sync && index == -1)
        ksDetail::ksSync(s_sync, id, order);
}
