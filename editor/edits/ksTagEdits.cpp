// SPDX-License-Identifier: MIT
#include <editor/edits/ksAttachUndoCommand.h>
#include <editor/edits/ksTagEdits.h>

#include <ksundo/tag/ksTagUndoCommands.h>

#include <algorithm>

namespace {

QString textOf(const char *what, const std::string &tag)
{
    return QLatin1String(what) + QStringLiteral(" tag '") + QString::fromStdString(tag) + QLatin1Char('\'');
}

} // namespace

const osg::MFString &ksTagEdits::listOf(const osg::TagAttachmentPtr &tags, osg::UInt32 field)
{
    return field == UserTags ? tags->getUserTags() : tags->getLayerTags();
}

bool ksTagEdits::hasTag(const osg::TagAttachmentPtr &tags, osg::UInt32 field, const std::string &tag)
{
    const osg::MFString &list = listOf(tags, field);
    return std::find(list.begin(), list.end(), tag) != list.end();
}

ksTagUndoCommand *ksTagEdits::make(const osg::NodePtr &node, osg::UInt32 field, const std::string &tag,
                                   bool adding)
{
    const auto attachment =
        osg::TagAttachmentPtr::dcast(node->findAttachment(osg::TagAttachment::getClassType()));
    osg::MFString tags = listOf(attachment, field);
    const osg::MFUInt64 oldValues = attachment->getTagValues();
    osg::MFUInt64 newValues = oldValues;
    if (adding) {
        tags.push_back(tag);
        newValues.push_back(tag.size());
    } else {
        tags.erase(tags.find(tag));
        // Whoever set the field may have left it out.
        if (const auto value = newValues.find(tag.size()); value != newValues.end())
            newValues.erase(value);
    }
    // Both lists are announced by this mask.
    const osg::BitVector mask = osg::TagAttachment::TagValuesFieldMask |
                                attachment->getType().getFieldDescription(field)->getFieldMask();
    const QString text = textOf(adding ? "Add" : "Remove", tag);
    if (adding)
        return new ksAddTagUndoCommand(text, node, mask, field, tag, &tags, oldValues, newValues);
    return new ksSubTagUndoCommand(text, node, mask, field, tag, &tags, oldValues, newValues);
}

QUndoCommand *ksTagEdits::makeFirst(const osg::NodePtr &node, osg::UInt32 field, const std::string &tag)
{
    const osg::TagAttachmentPtr tags = osg::TagAttachment::create();
    {
        CPEdit(tags, osg::TagAttachment::UserTagsFieldMask | osg::TagAttachment::LayerTagsFieldMask |
                         osg::TagAttachment::TagValuesFieldMask);
        auto &list = field == UserTags ? tags->getUserTags() : tags->getLayerTags();
        list.push_back(tag);
        tags->getTagValues().push_back(tag.size());
    }
    auto *const command = new ksAttachUndoCommand(node, tags);
    command->setText(textOf("Add", tag));
    return command;
}
