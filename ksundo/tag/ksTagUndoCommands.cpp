// SPDX-License-Identifier: MIT
#include <ksundo/core/detail/ksFieldCast.h>
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
    : ksBeforeAfterUndoCommand(ksDetail::ksTags(), ksDetail::ksTags(), text)
    , fieldId(fieldId)
    , fieldMask(fieldMask)
    , container(container)
{
    before.values = std::move(oldValues);
    after.values = std::move(newValues);
    osg::Field *field = ksDetail::ksFindField(findAttachment(), fieldId);
    if (field == nullptr)
        return;
    if (const auto *strings = ksDetail::ksFieldCast<osg::MField<std::string>>(field)) {
        Q_ASSERT(newStrings != nullptr);
        before.strings = *strings;
        after.strings = *newStrings;
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

void ksAttachedTagUndoCommand::apply(const ksDetail::ksTags &, const ksDetail::ksTags &tags) const
{
    const osg::TagAttachmentPtr attachment = findAttachment();
    auto *strings =
        ksDetail::ksFieldCast<osg::MField<std::string>>(ksDetail::ksFindField(attachment, fieldId));
    if (strings == nullptr)
        return;
    *strings = tags.strings;
    ksEndEdit(attachment, fieldMask);
    *attachment->getMFTagValues() = tags.values;
    ksEndEdit(attachment, fieldMask);
}

ksEmptyTagUndoCommand::ksEmptyTagUndoCommand(const QString &text, std::string tagString, TAG_TYPE type)
    : ksTagUndoCommand(text)
{
    this->tagString = std::move(tagString);
    tagType = type;
}
