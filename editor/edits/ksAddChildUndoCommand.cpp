// SPDX-License-Identifier: MIT
#include <editor/edits/ksAddChildUndoCommand.h>
#include <editor/scene/ksContainers.h>

#include <ksundo/core/ksFindContainer.h>

ksAddChildUndoCommand::ksAddChildUndoCommand(const osg::NodePtr &parent, const osg::NodePtr &child)
    : ksUndoCommand(QStringLiteral("Add '") + ksContainers::nameOf(child) + QLatin1Char('\''))
    , parentId(parent.getFieldContainerId())
    , child(child)
{}

void ksAddChildUndoCommand::undo()
{
    const auto parent = ksFindContainer<osg::NodePtr>(parentId);
    if (parent == osg::NullFC)
        return;
    CPEdit(parent, osg::Node::ChildrenFieldMask);
    parent->subChild(child.get());
}

void ksAddChildUndoCommand::redo()
{
    const auto parent = ksFindContainer<osg::NodePtr>(parentId);
    if (parent == osg::NullFC)
        return;
    CPEdit(parent, osg::Node::ChildrenFieldMask);
    parent->addChild(child.get());
}

bool ksAddChildUndoCommand::canMergeWith(const QUndoCommand *) const
{
    return false;
}
