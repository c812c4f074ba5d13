// SPDX-License-Identifier: MIT
#include <editor/edits/ksTagEdits.h>

#include <ksundo/tag/ksTagUndoCommands.h>

#include <algorithm>

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
        newValues.erase(newValues.find(tag.size()));
    }
    // Both lists are announced by this mask.
    const osg::BitVector mask = osg::TagAttachment::TagValuesFieldMask |
                                attachment->getType().getFieldDescription(field)->getFieldMask();
    const QString text = (adding ? QStringLiteral("Add tag '") : QStringLiteral("Remove tag '")) +
                         QString::fromStdString(tag) + QLatin1Char('\'');
    if (adding)
        return new ksAddTagUndoCommand(text, node, mask, field, tag, &tags, oldValues, newValues);
    return new ksSubTagUndoCommand(text, node, mask, field, tag, &tags, oldValues, newValues);
}
