// SPDX-License-Identifier: MIT
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
    ksNodeUtils::setTransformNodeEulerRotationOrder(node, order, index);
    if (changeCallback)
        changeCallback(ksPlatform::idOf(node), order, index);
    if (s_sync && index == -1)
        s_sync(node, order);
}
