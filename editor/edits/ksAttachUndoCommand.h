// SPDX-License-Identifier: MIT
#pragma once

#include <ksundo/core/ksHeldReference.h>
#include <ksundo/core/ksUndoCommand.h>

#include <OpenSG/OSGAttachment.h>
#include <OpenSG/OSGNode.h>

/// Attaches something to a node that has no attachment of that class. The command keeps the attachment alive
/// while it is off; a node that has gone makes a step a silent no-op. It never merges.
class ksAttachUndoCommand : public ksUndoCommand
{
    KS_UNDO_COMMAND(ksAttachUndoCommand)

public:
    ksAttachUndoCommand(const osg::NodePtr &node, const osg::AttachmentPtr &attachment);

    void undo() override;
    void redo() override;

    /// Never.
    bool canMergeWith(const QUndoCommand *other) const override;

private:
    osg::UInt32 nodeId;
    ksHeldReference<osg::AttachmentPtr> attachment;
};
