// SPDX-License-Identifier: MIT
#pragma once

#include <ksundo/core/ksContainerUndoCommand.h>
#include <ksundo/core/ksHeldReference.h>

#include <OpenSG/OSGNode.h>

/// Adds a node, with all that is below it, as the last child of another one. The command keeps the child
/// alive while it is out of the scene; a parent that has gone makes a step a silent no-op. It never merges.
class ksAddChildUndoCommand : public ksContainerUndoCommand<ksAddChildUndoCommand, osg::NodePtr, bool>
{
    KS_UNDO_COMMAND(ksAddChildUndoCommand)

public:
    /// \a child must not have a parent.
    ksAddChildUndoCommand(const osg::NodePtr &parent, const osg::NodePtr &child);

private:
    friend ksContainerUndoCommand;

    void apply(const osg::NodePtr &parent, bool, bool isIn) const;

    ksHeldReference<osg::NodePtr> child;
};
