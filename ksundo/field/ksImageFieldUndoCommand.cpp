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
    const auto target = getField();
    if (target.second == nullptr)
        return;
    const osg::ImagePtr previous = target.second->getValue();
    const osg::UInt32 previousId = ksPlatform::idOf(previous);
    const auto write = [this](const auto &found, const osg::ImagePtr &value) {
        if (found.second == nullptr)
            return;
        found.second->setValue(value);
        ksEndEdit(found.first, fieldMask);
    };
    ksDetail::ksStep([&] { write(target, image); }, [&] { write(getField(), previous); });
    osg::addRefCP(image);
    osg::subRefCP(previous);
    if (notify)
        ksDetail::ksStep(notify, [&] { apply(ksFindContainer<osg::ImagePtr>(previousId)); });
}
