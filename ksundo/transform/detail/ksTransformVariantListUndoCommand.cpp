// SPDX-License-Identifier: MIT
#include <ksundo/core/NodeUtils.h>
#include <ksundo/transform/detail/ksTransformVariantListUndoCommand.h>

#include <ksNodeUtils.h>
#include <ksPlatform.h>

#include <algorithm>
#include <utility>

namespace ksDetail {

ksTransformVariantListUndoCommand::ksTransformVariantListUndoCommand(const QString &text,
                                                                     const osg::NodePtr &node,
                                                                     unsigned long index,
                                                                     QUndoCommand *parent,
                                                                     Notification notification)
    : ksNonMergingUndoCommand(text.arg(NodeUtils::displayName(node)), parent)
    , nodeId(ksPlatform::idOf(node))
    , index(index)
    , notification(std::move(notification))
{}

bool ksTransformVariantListUndoCommand::insertInto(const osg::NodePtr &node)
{
    const osg::TransformVariantPtr inserted = variant.get();
    if (inserted == osg::NullFC)
        return false;
    if (ksNodeUtils::getTransformVariantsAttachment(node) == osg::NullFC) {
        if (const auto own = attachment.get(); own != osg::NullFC)
            ksNodeUtils::setTransformVariantsAttachment(node, own);
        else
            attachment = ksHeldReference<osg::TransformVariantsAttachmentPtr>(
                ksNodeUtils::createTransformVariantsAttachment(node));
    }
    ksNodeUtils::insertTransformVariant(node, index, inserted);
    return true;
}

void ksTransformVariantListUndoCommand::restore(bool wasIn, bool hadAttachment)
{
    const auto node = ksFindContainer<osg::NodePtr>(nodeId);
    if (node == osg::NullFC)
        return;
    const auto last = static_cast<unsigned long>(ksNodeUtils::getTransformVariantCount(node)) - 1;
    const unsigned long place = std::min(index, last); // beyond the end is at the end
    const auto there = ksNodeUtils::getTransformVariant(node, place);
    const bool isIn = there != osg::NullFC && there == variant.get();
    if (wasIn && !isIn)
        insertInto(node);
    if (!wasIn && isIn)
        ksTakeBack([&] { ksNodeUtils::removeTransformVariant(node, static_cast<int>(place)); });
    if (!hadAttachment)
        ksNodeUtils::removeTransformVariantsAttachment(node);
}

void ksTransformVariantListUndoCommand::removeFrom(const osg::NodePtr &node, bool withAttachment) const
{
    ksNodeUtils::removeTransformVariant(node, static_cast<int>(index));
    if (withAttachment && ksNodeUtils::getTransformVariantCount(node) == 0)
        ksNodeUtils::removeTransformVariantsAttachment(node);
}

} // namespace ksDetail
