// SPDX-License-Identifier: MIT
#include <ksundo/core/detail/ksTakeBack.h>
#include <ksundo/core/ksEndEdit.h>
#include <ksundo/field/ksImageFieldUndoCommand.h>

#include <ksPlatform.h>
#include <ksTextureManager.h>

#include <QCoreApplication>

ksImageFieldUndoCommand::ksImageFieldUndoCommand(osg::FieldContainerPtr container, ksFieldKey field,
                                                 osg::ImagePtr image, QUndoCommand *parent)
    : ksNonMergingUndoCommand(QCoreApplication::translate("ksImageFieldUndoCommand", "Set Texture"),
                              container, field, parent)
{
    if (const osg::SFImagePtr *target = getField().second)
        oldImage = ksHeldReference(target->getValue());
    const osg::ImagePtr managed = ksTextureManager::the()->getImage(image, true);
    if (managed != image)
        osg::subRefCP(image);
    newImage = ksHeldReference(managed);
}

std::pair<osg::FieldContainerPtr, osg::SFImagePtr *> ksImageFieldUndoCommand::getField() const
{
    return findTarget<osg::SFImagePtr>();
}

void ksImageFieldUndoCommand::apply(const osg::ImagePtr &image)
{
    const Target target = getField();
    if (target.second == nullptr)
        return;
    const osg::UInt32 previousId = ksPlatform::idOf(target.second->getValue());
    show(target, image);
    if (!notify)
        return;
    ksDetail::ksTell([this] { notify(); },
                     [&] { show(getField(), ksFindContainer<osg::ImagePtr>(previousId)); });
}

void ksImageFieldUndoCommand::show(const Target &target, const osg::ImagePtr &image) const
{
    const auto &[container, field] = target;
    if (field == nullptr)
        return;
    const osg::ImagePtr previous = field->getValue();
    field->setValue(image);
    ksDetail::ksStep([this, &target] { ksEndEdit(target.first, fieldMask); },
                     [&] {
                         const Target living = getField();
                         if (living.second == nullptr)
                             return;
                         living.second->setValue(previous);
                         ksEndEdit(living.first, fieldMask);
                     });
    osg::addRefCP(image);
    osg::subRefCP(previous);
}
