// SPDX-License-Identifier: MIT
#include <ksundo/transform/ksRemoveTransformSwitchVariantUndoCommand.h>

#include <ksNodeUtils.h>

ksRemoveTransformSwitchVariantUndoCommand::ksRemoveTransformSwitchVariantUndoCommand(
    osg::NodePtr node, unsigned long index, QUndoCommand *parent, Notification notification)
    : ksTransformVariantListUndoCommand(QStringLiteral("Remove transform variant '%1'"), node, index, parent,
                                        std::move(notification))
{
    if (node == osg::NullFC)
        return;
    const osg::TransformVariantPtr removed = ksNodeUtils::getTransformVariant(node, index);
    if (removed == osg::NullFC)
        return;
    variant = ksHeldReference(removed);
    attachment = ksHeldReference<osg::TransformVariantsAttachmentPtr>(
        ksNodeUtils::getTransformVariantsAttachment(node));
}

void ksRemoveTransformSwitchVariantUndoCommand::undo()
{
    change(false,
           [this](const osg::NodePtr &node) { return attachment.get() != osg::NullFC && insertInto(node); });
}

void ksRemoveTransformSwitchVariantUndoCommand::redo()
{
    change(true, [this](const osg::NodePtr &node) {
        removeFrom(node, true);
        return true;
    });
}
