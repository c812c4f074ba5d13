// SPDX-License-Identifier: MIT
#include <ksundo/core/ksTouch.h>
#include <ksundo/field/ksFieldCast.h>
#include <ksundo/tag/ksTagUndoCommands.h>

#include <OpenSG/OSGFieldContainerType.h>
#include <OpenSG/OSGFieldDescription.h>

#include <cstdio>
#include <utility>

ksTagUndoCommand::ksTagUndoCommand(const QString &text)
    : ksUndoCommand(text)
{}

std::string ksTagUndoCommand::getTagString() const
{
    return tagString;
}

ksTagUndoCommand::TAG_TYPE ksTagUndoCommand::getTagType() const
{
    return tagType;
}

ksAttachedTagUndoCommand::ksAttachedTagUndoCommand(const QString &text, osg::AttachmentContainerPtr container,
                                                   osg::BitVector fieldMask, osg::UInt32 fieldId,
                                                   std::string tagString,
                                                   osg::MField<std::string> *newStrings,
                                                   osg::MField<osg::UInt64> oldValues,
                                                   osg::MField<osg::UInt64> newValues)
    : ksTagUndoCommand(text)
    , oldValues(std::move(oldValues))
    , newValues(std::move(newValues))
    , fieldId(fieldId)
    , fieldMask(fieldMask)
    , container(container)
{
    osg::Field *field = fieldOf(findAttachment());
    if (field == nullptr)
        return;
    if (const auto *strings = ksFieldCast<osg::MField<std::string>>(field)) {
        oldStrings = *strings;
        this->newStrings = *newStrings;
    }
    this->tagString = std::move(tagString);
    tagType = fieldId == 4 ? USER_TAG : LAYER_TAG;
    if (fieldId != 4 && fieldId != 5)
        std::fputs("Tag type is not Undo Redo supported!", stdout);
}

void ksAttachedTagUndoCommand::undo()
{
    apply(oldStrings, oldValues);
}

void ksAttachedTagUndoCommand::redo()
{
    apply(newStrings, newValues);
}

osg::TagAttachmentPtr ksAttachedTagUndoCommand::findAttachment() const
{
    const osg::AttachmentContainerPtr tagged = container.get();
    if (tagged == osg::NullFC)
        return osg::NullFC;
    return osg::TagAttachmentPtr::dcast(tagged->findAttachment(osg::TagAttachment::getClassGroupId()));
}

osg::Field *ksAttachedTagUndoCommand::fieldOf(const osg::TagAttachmentPtr &attachment) const
{
    if (attachment == osg::NullFC)
        return nullptr;
    const osg::FieldDescription *description = attachment->getType().getFieldDescription(fieldId);
    return description == nullptr ? nullptr : description->getField(attachment);
}

void ksAttachedTagUndoCommand::apply(const osg::MField<std::string> &strings,
                                     const osg::MField<osg::UInt64> &values) const
{
    const osg::TagAttachmentPtr attachment = findAttachment();
    auto *tags = ksFieldCast<osg::MField<std::string>>(fieldOf(attachment));
    if (tags == nullptr)
        return;
    *tags = strings;
    ksTouch(attachment, fieldMask);
    *attachment->getMFTagValues() = values;
    ksTouch(attachment, fieldMask);
}

ksEmptyTagUndoCommand::ksEmptyTagUndoCommand(const QString &text, std::string tagString, TAG_TYPE type)
    : ksTagUndoCommand(text)
{
    this->tagString = std::move(tagString);
    tagType = type;
}

void ksEmptyTagUndoCommand::undo()
{}

void ksEmptyTagUndoCommand::redo()
{}
