// SPDX-License-Identifier: MIT
#include <ksundo/core/ksFindContainer.h>
#include <ksundo/transform/ksTransformVariantNameUndoCommand.h>

#include <ksTransformVariantUtils.h>

#include <QCoreApplication>

#include <utility>

ksTransformVariantNameUndoCommand::ksTransformVariantNameUndoCommand(osg::TransformVariantPtr variant,
                                                                     std::string name, QUndoCommand *parent,
                                                                     Notification notification)
    : ksUndoCommand(
          QCoreApplication::translate("ksTransformVariantNameUndoCommand", "Transform Variant Name"), parent)
    , variantId(variant.getFieldContainerId())
    , oldName(variant->getName())
    , newName(std::move(name))
    , notification(std::move(notification))
{}

void ksTransformVariantNameUndoCommand::undo()
{
    rename(newName, oldName);
}

void ksTransformVariantNameUndoCommand::redo()
{
    rename(oldName, newName);
}

bool ksTransformVariantNameUndoCommand::canMergeWith(const QUndoCommand *) const
{
    return false;
}

void ksTransformVariantNameUndoCommand::rename(const std::string &from, const std::string &to) const
{
    const auto variant = ksFindContainer<osg::TransformVariantPtr>(variantId);
    if (variant == osg::NullFC)
        return;
    ksTransformVariantUtils::setName(variant, to);
    notification(from, to);
}
