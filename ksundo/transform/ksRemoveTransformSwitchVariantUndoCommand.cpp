// SPDX-License-Identifier: MIT
#include <ksundo/core/NodeUtils.h>
#include <ksundo/transform/ksRemoveTransformSwitchVariantUndoCommand.h>

#include <ksNodeUtils.h>

#include <utility>

ksRemoveTransformSwitchVariantUndoCommand::ksRemoveTransformSwitchVariantUndoCommand(
    osg::NodePtr node, unsigned long index, QUndoCommand *parent, Notification notification)
    : ksUndoCommand(QStringLiteral("Remove transform variant '%1'").arg(NodeUtils::getText(node)), parent)
    , place(node, index, std::move(notification))
{
    if (node == osg::NullFC)
        return;
    const osg::TransformVariantPtr removed = ksNodeUtils::getTransformVariant(node, index);
    if (removed == osg::NullFC)
        return;
    place.variant = ksHeldReference(removed);
    place.attachment = ksHeldReference(ksNodeUtils::getTransformVariantsAttachment(node));
}

void ksRemoveTransformSwitchVariantUndoCommand::undo()
{
    const osg::NodePtr node = place.findNode();
    if (node == osg::NullFC)
        return;
    const osg::TransformVariantPtr removed = place.variant.get();
    if (removed == osg::NullFC)
        return;
    const osg::TransformVariantsAttachmentPtr captured = place.attachment.get();
    if (captured == osg::NullFC)
        return;
    if (ksNodeUtils::getTransformVariantsAttachment(node) == osg::NullFC)
        ksNodeUtils::setTransformVariantsAttachment(node, captured);
    ksNodeUtils::insertTransformVariant(node, place.index, removed);
    place.notify();
}

void ksRemoveTransformSwitchVariantUndoCommand::redo()
{
    const osg::NodePtr node = place.findNode();
    if (node == osg::NullFC)
        return;
    place.removeFrom(node);
    if (ksNodeUtils::getTransformVariantCount(node) == 0)
        ksNodeUtils::removeTransformVariantsAttachment(node);
    place.notify();
}

bool ksRemoveTransformSwitchVariantUndoCommand::canMergeWith(const QUndoCommand *) const
{
    return false;
}
