// SPDX-License-Identifier: MIT
#include <ksundo/core/detail/ksNotNull.h>
#include <ksundo/core/detail/ksTakeBack.h>
#include <ksundo/transform/ksTransformVariantOptionsUndoCommand.h>

#include <ksTransformVariantUtils.h>

#include <QCoreApplication>

ksTransformVariantOptionsUndoCommand::ksTransformVariantOptionsUndoCommand(osg::TransformVariantPtr variant,
                                                                           unsigned long long flags,
                                                                           QUndoCommand *parent,
                                                                           std::function<void()> notification)
    : ksContainerUndoCommand(
          QCoreApplication::translate("ksTransformVariantOptionsUndoCommand", "Transform Variant Options"),
          variant, ksDetail::ksNotNull(variant)->getApplyFlags(), flags, parent)
    , notification(std::move(notification))
{}

void ksTransformVariantOptionsUndoCommand::apply(const osg::TransformVariantPtr &variant, unsigned long long,
                                                 unsigned long long flags) const
{
    ksTransformVariantUtils::setApplyFlags(variant, flags);
    ksDetail::ksNotify(notification);
}
