// SPDX-License-Identifier: MIT
#include <ksundo/core/detail/ksFieldCast.h>
#include <ksundo/core/detail/ksTakeBack.h>
#include <ksundo/core/ksEndEdit.h>
#include <ksundo/tag/ksTagUndoCommands.h>

#include <cstdio>
#include <utility>

ksAttachedTagUndoCommand::ksAttachedTagUndoCommand(const QString &text, osg::AttachmentContainerPtr container,
                                                   osg::BitVector fieldMask, osg::UInt32 fieldId,
                                                   std::string tagString,
                                                   osg::MField<std::string> *newStrings,
                                                   osg::MField<osg::UInt64> oldValues,
                                                   osg::MField<osg::UInt64> newValues)
    : ksTagUndoCommand(text)
    , values(oldValues, newValues)
    , fieldId(fieldId)
    , fieldMask(fieldMask)
    , container(container)
{
    osg::Field *field = ksDetail::ksFindField(findAttachment(), fieldId);
    if (field == nullptr)
        return;
    if (const auto *oldStrings = ksDetail::ksFieldCast<osg::MField<std::string>>(field)) {
        Q_ASSERT(newStrings != nullptr);
        tags = {*oldStrings, *newStrings};
    }
    this->tagString = std::move(tagString);
    tagType = fieldId == 4 ? USER_TAG : LAYER_TAG;
    if (fieldId != 4 && fieldId != 5)
        std::fputs("Tag type is not Undo Redo supported!", stdout);
}

osg::TagAttachmentPtr ksAttachedTagUndoCommand::findAttachment() const
{
    const osg::AttachmentContainerPtr tagged = container.get();
    if (tagged == osg::NullFC)
        return osg::NullFC;
    return osg::TagAttachmentPtr::dcast(tagged->findAttachment(osg::TagAttachment::getClassGroupId()));
}

void ksAttachedTagUndoCommand::apply(bool isAfter) const
{
    ksDetail::ksStep([&] { write(isAfter); }, [&] { write(!isAfter); });
}

void ksAttachedTagUndoCommand::write(bool isAfter) const
{
    const osg::TagAttachmentPtr attachment = findAttachment();
    auto *strings =
        ksDetail::ksFieldCast<osg::MField<std::string>>(ksDetail::ksFindField(attachment, fieldId));
    if (strings == nullptr)
        return;
    tags.copyTo(*strings, isAfter);
    ksEndEdit(attachment, fieldMask);
    values.copyTo(*attachment->getMFTagValues(), isAfter);
    ksEndEdit(attachment, fieldMask);
}

ksEmptyTagUndoCommand::ksEmptyTagUndoCommand(const QString &text, std::string tagString, TAG_TYPE type)
    : ksTagUndoCommand(text)
{
    this->tagString = std::move(tagString);
    tagType = type;
}
