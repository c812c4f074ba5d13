// SPDX-License-Identifier: MIT
#include <editor/edits/ksAddChildUndoCommand.h>
#include <editor/scene/ksContainers.h>

ksAddChildUndoCommand::ksAddChildUndoCommand(const osg::NodePtr &parent, const osg::NodePtr &child)
    : ksContainerUndoCommand(QStringLiteral("Add '") + ksContainers::nameOf(child) + QLatin1Char('\''),
                             parent, false, true, nullptr)
    , child(child)
{}

void ksAddChildUndoCommand::apply(const osg::NodePtr &parent, bool, bool isIn) const
{
    CPEdit(parent, osg::Node::ChildrenFieldMask);
    if (isIn)
        parent->addChild(child.get());
    else
        parent->subChild(child.get());
}
