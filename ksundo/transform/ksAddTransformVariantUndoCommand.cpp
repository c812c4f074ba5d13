// SPDX-License-Identifier: MIT
#include <ksundo/core/NodeUtils.h>
#include <ksundo/transform/ksAddTransformVariantUndoCommand.h>

#include <ksNodeUtils.h>

#include <utility>

ksAddTransformVariantUndoCommand::ksAddTransformVariantUndoCommand(osg::NodePtr node,
                                                                   osg::TransformVariantPtr variant,
                                                                   unsigned long index, QUndoCommand *parent,
                                                                   Notification notification)
    : ksUndoCommand(QStringLiteral("Insert transform variant '%1'").arg(NodeUtils::getText(node)), parent)
    , place(node, index, std::move(notification))
{
    place.variant = ksHeldReference(variant);
}

void ksAddTransformVariantUndoCommand::undo()
{
    const osg::NodePtr node = place.findNode();
    if (node == osg::NullFC)
        return;
    place.removeFrom(node);
    if (ksNodeUtils::getTransformVariantCount(node) == 0 && place.attachment.get() != osg::NullFC)
        ksNodeUtils::removeTransformVariantsAttachment(node);
    place.notify();
}

void ksAddTransformVariantUndoCommand::redo()
{
    const osg::NodePtr node = place.findNode();
    if (node == osg::NullFC)
        return;
    const osg::TransformVariantPtr inserted = place.variant.get();
    if (inserted == osg::NullFC)
        return;
    provideAttachment(node);
    ksNodeUtils::insertTransformVariant(node, place.index, inserted);
    place.notify();
}

void ksAddTransformVariantUndoCommand::provideAttachment(const osg::NodePtr &node)
{
    if (ksNodeUtils::getTransformVariantsAttachment(node) != osg::NullFC)
        return;
    const osg::TransformVariantsAttachmentPtr own = place.attachment.get();
    if (own != osg::NullFC)
        ksNodeUtils::setTransformVariantsAttachment(node, own);
    else
        place.attachment = ksHeldReference(ksNodeUtils::createTransformVariantsAttachment(node));
}

bool ksAddTransformVariantUndoCommand::canMergeWith(const QUndoCommand *) const
{
    return false;
}
