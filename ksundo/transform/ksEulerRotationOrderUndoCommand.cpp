// SPDX-License-Identifier: MIT
#include <ksundo/transform/ksEulerRotationOrderUndoCommand.h>

#include <ksNodeUtils.h>

#include <QCoreApplication>

#include <utility>

template class ksSyncFunction<ksEulerRotationOrderUndoCommand,
                              void(const osg::NodePtr &, const std::string &)>;

namespace {

QString verb()
{
    return QCoreApplication::translate("ksEulerRotationOrderUndoCommand", "Translate");
}

} // namespace

ksEulerRotationOrderUndoCommand::ksEulerRotationOrderUndoCommand(osg::NodePtr node, std::string order,
                                                                 QUndoCommand *parent,
                                                                 ChangeCallback callback, int index)
    : ksTransformUndoCommand(verb(), node, std::move(order), false, parent, index)
    , changeCallback(std::move(callback))
{}

ksEulerRotationOrderUndoCommand::ksEulerRotationOrderUndoCommand(osg::NodePtr node, std::string order,
                                                                 bool mergeEnabled, QUndoCommand *parent,
                                                                 ChangeCallback callback, int index)
    : ksTransformUndoCommand(verb(), node, std::move(order), false, mergeEnabled, parent, index)
    , changeCallback(std::move(callback))
{}

ksEulerRotationOrderUndoCommand::ksEulerRotationOrderUndoCommand(osg::NodePtr node, std::string order,
                                                                 double mergeResponseDelta,
                                                                 QUndoCommand *parent,
                                                                 ChangeCallback callback, int index)
    : ksTransformUndoCommand(verb(), node, std::move(order), false, mergeResponseDelta, parent, index)
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
        changeCallback(node.getFieldContainerId(), order, index);
    if (index == -1)
        sync(node, order);
}
