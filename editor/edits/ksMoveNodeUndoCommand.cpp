// SPDX-License-Identifier: MIT
#include <editor/edits/ksMoveNodeUndoCommand.h>
#include <editor/scene/ksReferenceCycles.h>

ksNodePlace ksNodePlace::of(const osg::NodePtr &node)
{
    const osg::NodePtr parent = node->getParent();
    if (parent == osg::NullFC)
        return {};
    return {parent.getFieldContainerId(), static_cast<osg::UInt32>(parent->findChild(node))};
}

ksMoveNodeUndoCommand::ksMoveNodeUndoCommand(const QString &text, const osg::NodePtr &node,
                                             const ksNodePlace &place)
    : ksContainerUndoCommand(text, node, ksNodePlace::of(node), place, nullptr)
    , held(node)
{}

ksMoveNodeUndoCommand::~ksMoveNodeUndoCommand()
{
    const osg::NodePtr node = held.get();
    if (after.parent == 0 && node != osg::NullFC && node->getParent() == osg::NullFC)
        ksReferenceCycles::release(node);
}

void ksMoveNodeUndoCommand::apply(const osg::NodePtr &node, const ksNodePlace &from, const ksNodePlace &to)
{
    const auto oldParent = ksFindContainer<osg::NodePtr>(from.parent);
    const auto newParent = ksFindContainer<osg::NodePtr>(to.parent);
    if (newParent != osg::NullFC) {
        CPEdit(newParent, osg::Node::ChildrenFieldMask);
        newParent->insertChild(to.index, node);
    } else if (to.parent == 0 && oldParent != osg::NullFC) {
        CPEdit(oldParent, osg::Node::ChildrenFieldMask);
        oldParent->subChild(node);
    }
}
