// SPDX-License-Identifier: MIT
#include <editor/edits/ksAttachUndoCommand.h>
#include <editor/scene/ksContainers.h>

ksAttachUndoCommand::ksAttachUndoCommand(const osg::NodePtr &node, const osg::AttachmentPtr &attachment,
                                         QUndoCommand *parent)
    : ksContainerUndoCommand(QStringLiteral("Attach ") + QString::fromLatin1(attachment->getTypeName()) +
                                 QStringLiteral(" to '") + ksContainers::nameOf(node) + QLatin1Char('\''),
                             node, false, true, parent)
    , attachment(attachment)
{}

void ksAttachUndoCommand::apply(const osg::NodePtr &node, bool, bool isIn) const
{
    CPEdit(node, osg::Node::AttachmentsFieldMask);
    if (isIn)
        node->addAttachment(attachment.get());
    else
        node->subAttachment(attachment.get());
}
