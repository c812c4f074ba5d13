// SPDX-License-Identifier: MIT
#include <editor/edits/ksAttachUndoCommand.h>
#include <editor/scene/ksContainers.h>

#include <ksundo/core/ksFindContainer.h>

ksAttachUndoCommand::ksAttachUndoCommand(const osg::NodePtr &node, const osg::AttachmentPtr &attachment)
    : ksUndoCommand(QStringLiteral("Attach ") + QString::fromLatin1(attachment->getTypeName()) +
                    QStringLiteral(" to '") + ksContainers::nameOf(node) + QLatin1Char('\''))
    , nodeId(node.getFieldContainerId())
    , attachment(attachment)
{}

void ksAttachUndoCommand::undo()
{
    const auto node = ksFindContainer<osg::NodePtr>(nodeId);
    if (node == osg::NullFC)
        return;
    CPEdit(node, osg::Node::AttachmentsFieldMask);
    node->subAttachment(attachment.get());
}

void ksAttachUndoCommand::redo()
{
    const auto node = ksFindContainer<osg::NodePtr>(nodeId);
    if (node == osg::NullFC)
        return;
    CPEdit(node, osg::Node::AttachmentsFieldMask);
    node->addAttachment(attachment.get());
}

bool ksAttachUndoCommand::canMergeWith(const QUndoCommand *) const
{
    return false;
}
