// SPDX-License-Identifier: MIT
#pragma once

#include <ksundo/core/ksContainerUndoCommand.h>
#include <ksundo/core/ksHeldReference.h>

#include <OpenSG/OSGAttachment.h>
#include <OpenSG/OSGNode.h>

/// Attaches something to a node that has no attachment of that class. The command keeps the attachment alive
/// while it is off; a node that has gone makes a step a silent no-op. It never merges.
class ksAttachUndoCommand : public ksContainerUndoCommand<ksAttachUndoCommand, osg::NodePtr, bool>
{
    KS_UNDO_COMMAND(ksAttachUndoCommand)

public:
    ksAttachUndoCommand(const osg::NodePtr &node, const osg::AttachmentPtr &attachment,
                        QUndoCommand *parent = nullptr);

private:
    friend ksContainerUndoCommand;

    void apply(const osg::NodePtr &node, bool, bool isIn) const;

    ksHeldReference<osg::AttachmentPtr> attachment;
};
