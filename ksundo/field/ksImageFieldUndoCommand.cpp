// SPDX-License-Identifier: MIT
#include <ksundo/core/ksTouch.h>
#include <ksundo/field/ksImageFieldUndoCommand.h>

#include <ksTextureManager.h>

#include <QCoreApplication>

namespace {

QString setTexture()
{
    return QCoreApplication::translate("ksImageFieldUndoCommand", "Set Texture");
}

} // namespace

ksImageFieldUndoCommand::ksImageFieldUndoCommand(osg::FieldContainerPtr container,
                                                 const std::string &fieldName, osg::ImagePtr image,
                                                 QUndoCommand *parent)
    : ksFieldBaseUndoCommand(setTexture(), container, fieldName, parent)
{
    hold(image);
}

ksImageFieldUndoCommand::ksImageFieldUndoCommand(osg::FieldContainerPtr container, int fieldId,
                                                 osg::ImagePtr image, QUndoCommand *parent)
    : ksFieldBaseUndoCommand(setTexture(), container, fieldId, parent)
{
    hold(image);
}

void ksImageFieldUndoCommand::undo()
{
    apply(oldImage.get());
}

void ksImageFieldUndoCommand::redo()
{
    apply(newImage.get());
}

bool ksImageFieldUndoCommand::canMergeWith(const QUndoCommand *) const
{
    return false;
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
    ksTouch(container, fieldMask);
    osg::addRefCP(image);
    osg::subRefCP(previous);
    if (notify)
        notify();
}

void ksImageFieldUndoCommand::setNotifyFunction(std::function<void()> function)
{
    notify.swap(function);
}

void ksImageFieldUndoCommand::hold(osg::ImagePtr image)
{
    if (const osg::SFImagePtr *field = getField().second)
        oldImage = ksHeldReference(field->getValue());
    const osg::ImagePtr managed = ksTextureManager::the()->getImage(image, true);
    if (managed != image)
        osg::subRefCP(image);
    newImage = ksHeldReference(managed);
}
