// SPDX-License-Identifier: MIT
#include <ksundo/core/ksFindContainer.h>
#include <ksundo/transform/ksTransformVariantOptionsUndoCommand.h>

#include <ksTransformVariantUtils.h>

#include <QCoreApplication>

#include <utility>

ksTransformVariantOptionsUndoCommand::ksTransformVariantOptionsUndoCommand(osg::TransformVariantPtr variant,
                                                                           unsigned long long flags,
                                                                           QUndoCommand *parent,
                                                                           std::function<void()> notification)
    : ksUndoCommand(
          QCoreApplication::translate("ksTransformVariantOptionsUndoCommand", "Transform Variant Options"),
          parent)
    , variantId(variant.getFieldContainerId())
    , oldFlags(variant->getApplyFlags())
    , newFlags(flags)
    , notification(std::move(notification))
{}

void ksTransformVariantOptionsUndoCommand::undo()
{
    apply(oldFlags);
}

void ksTransformVariantOptionsUndoCommand::redo()
{
    apply(newFlags);
}

bool ksTransformVariantOptionsUndoCommand::canMergeWith(const QUndoCommand *) const
{
    return false;
}

void ksTransformVariantOptionsUndoCommand::apply(unsigned long long flags) const
{
    const auto variant = ksFindContainer<osg::TransformVariantPtr>(variantId);
    if (variant == osg::NullFC)
        return;
    ksTransformVariantUtils::setApplyFlags(variant, flags);
    notification();
}
