// SPDX-License-Identifier: MIT
#pragma once

#include <ksundo/core/ksContainerUndoCommand.h>
#include <ksundo/core/ksHeldReference.h>

#include <OpenSG/OSGNode.h>

/// A place among the children of a node.
struct ksNodePlace
{
    /// The node's id; 0 for none.
    osg::UInt32 parent = 0;

    osg::UInt32 index = 0;

    /// Where \a node is.
    static ksNodePlace of(const osg::NodePtr &node);
};

/// Takes a node, with all that is below it, to another place in the tree, or out of it. The command keeps the
/// node alive while it is out. A node or a parent that has gone makes a step a silent no-op. It never merges.
class ksMoveNodeUndoCommand : public ksContainerUndoCommand<ksMoveNodeUndoCommand, osg::NodePtr, ksNodePlace>
{
    KS_UNDO_COMMAND(ksMoveNodeUndoCommand)

public:
    /// Moves \a node, which must have a parent, to \a place, whose index counts the children without it; a
    /// place without a parent is out of the tree.
    ksMoveNodeUndoCommand(const QString &text, const osg::NodePtr &node, const ksNodePlace &place);

    /// A node that the command has taken out goes for good: circles of references below it are broken.
    ~ksMoveNodeUndoCommand() override;

private:
    friend ksContainerUndoCommand;

    static void apply(const osg::NodePtr &node, const ksNodePlace &from, const ksNodePlace &to);

    ksHeldReference<osg::NodePtr> held;
};
