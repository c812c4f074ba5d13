// SPDX-License-Identifier: MIT
#include <ksundo/core/ksEndEdit.h>
#include <ksundo/field/ksImageFieldUndoCommand.h>

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
    const auto [container, field] = getField();
    if (field == nullptr)
        return;
    osg::ImagePtr previous = field->getValue();
    field->setValue(image);
    ksEndEdit(container, fieldMask);
    osg::addRefCP(image);
    osg::subRefCP(previous);
    if (notify)
        notify();
}
