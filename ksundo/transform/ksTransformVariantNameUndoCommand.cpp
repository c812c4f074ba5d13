// SPDX-License-Identifier: MIT
#include <ksundo/core/detail/ksNotNull.h>
#include <ksundo/core/detail/ksTakeBack.h>
#include <ksundo/transform/ksTransformVariantNameUndoCommand.h>

#include <ksTransformVariantUtils.h>

#include <QCoreApplication>

ksTransformVariantNameUndoCommand::ksTransformVariantNameUndoCommand(osg::TransformVariantPtr variant,
                                                                     std::string name, QUndoCommand *parent,
                                                                     Notification notification)
    : ksContainerUndoCommand(
          QCoreApplication::translate("ksTransformVariantNameUndoCommand", "Transform Variant Name"), variant,
          ksDetail::ksNotNull(variant)->getName(), std::move(name), parent)
    , notification(std::move(notification))
{}

void ksTransformVariantNameUndoCommand::apply(const osg::TransformVariantPtr &variant,
                                              const std::string &from, const std::string &to) const
{
    ksTransformVariantUtils::setName(variant, to);
    ksDetail::ksNotify(notification, from, to);
}
