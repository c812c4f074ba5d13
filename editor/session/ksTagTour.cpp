// SPDX-License-Identifier: MIT
#include "ksTagTour.h"

#include "ksCheckedHistory.h"
#include "ksTourExtras.h"

#include <ksundo/core/ksUndoMacro.h>
#include <ksundo/tag/ksTagUndoCommands.h>

#include <algorithm>

namespace {

constexpr osg::UInt32 UserTags = osg::TagAttachment::UserTagsFieldId;
constexpr osg::UInt32 LayerTags = osg::TagAttachment::LayerTagsFieldId;

osg::MFString &listOf(const osg::TagAttachmentPtr &tags, osg::UInt32 list)
{
    return list == UserTags ? *tags->getMFUserTags() : *tags->getMFLayerTags();
}

bool hasTag(const osg::MFString &list, const std::string &tag)
{
    return std::find(list.begin(), list.end(), tag) != list.end();
}

QString titleOf(const std::string &tag, bool adding)
{
    return (adding ? QStringLiteral("Add tag '") : QStringLiteral("Remove tag '")) +
           QString::fromStdString(tag) + QLatin1Char('\'');
}

} // namespace

ksTagTour::ksTagTour(ksCheckedHistory &checkedHistory, const ksTourTargets &chosenTargets,
                     const ksTourExtras &tourExtras)
    : ksTourPart(checkedHistory, chosenTargets)
    , extras(tourExtras)
{}

void ksTagTour::run()
{
    tagAll(UserTags, "wood", true);
    tagAll(UserTags, "old", true);
    tagAll(LayerTags, "ground floor", true);
    tagOne();
    tagAll(UserTags, "wood", false);
    tagAll(LayerTags, "ground floor", false);
    tagNothing();
}

void ksTagTour::tagAll(osg::UInt32 list, const std::string &tag, bool adding)
{
    const int count = history.stack()->count();
    const auto verifyTagged = [&](bool tagged) {
        for (const osg::TagAttachmentPtr &tags : extras.tags())
            history.verify(hasTag(listOf(tags, list), tag) == tagged,
                           tagged ? QStringLiteral("the node has the tag")
                                  : QStringLiteral("the node does not have the tag"));
    };
    history.step(titleOf(tag, adding), [&] {
        const ksUndoMacro macro(titleOf(tag, adding), history.stack());
        for (std::size_t i = 0; i < targets.nodes.size(); ++i)
            history.stack()->add(make(i, list, tag, adding));
    });
    history.verify(history.stack()->count() == count + 1, QStringLiteral("it is one step"));
    verifyTagged(adding);
    history.undo();
    verifyTagged(!adding);
    history.redo();
    verifyTagged(adding);
}

void ksTagTour::tagOne()
{
    const osg::TagAttachmentPtr tags = extras.tags().front();
    add(make(0, UserTags, "old", false), 1);
    history.verify(!hasTag(tags->getUserTags(), "old") && tags->getTagValues().size() == 2,
                   QStringLiteral("the tag and its value are gone"));
    // Two in a row stay two.
    add(make(0, LayerTags, "roof", true), 1);
    add(make(0, LayerTags, "attic", true), 1);
    history.undo();
    history.verify(hasTag(tags->getLayerTags(), "roof") && !hasTag(tags->getLayerTags(), "attic"),
                   QStringLiteral("one of the two is left"));
    history.redo();
}

void ksTagTour::tagNothing()
{
    const auto addNothing = [this](ksTagUndoCommand *command, ksTagUndoCommand::TAG_TYPE type) {
        history.verify(command->getTagString() == "lost" && command->getTagType() == type,
                       QStringLiteral("the command knows the tag"));
        add(command, 1);
        history.undo();
        history.redo();
    };
    addNothing(new ksAddEmptyTagUndoCommand(titleOf("lost", true), "lost", ksTagUndoCommand::USER_TAG),
               ksTagUndoCommand::USER_TAG);
    addNothing(new ksSubEmptyTagUndoCommand(titleOf("lost", false), "lost", ksTagUndoCommand::LAYER_TAG),
               ksTagUndoCommand::LAYER_TAG);
}

QUndoCommand *ksTagTour::make(std::size_t index, osg::UInt32 list, const std::string &tag, bool adding)
{
    const osg::TagAttachmentPtr attachment = extras.tags()[index];
    osg::MFString tags = listOf(attachment, list);
    const osg::MFUInt64 oldValues = attachment->getTagValues();
    osg::MFUInt64 newValues = oldValues;
    if (adding) {
        tags.push_back(tag);
        newValues.push_back(tag.size());
    } else {
        tags.erase(tags.find(tag));
        newValues.erase(newValues.find(tag.size()));
    }
    // Both lists are written under this mask.
    const osg::BitVector mask =
        osg::TagAttachment::TagValuesFieldMask |
        (list == UserTags ? osg::TagAttachment::UserTagsFieldMask : osg::TagAttachment::LayerTagsFieldMask);
    const osg::NodePtr node = targets.nodes[index];
    ksTagUndoCommand *command = nullptr;
    if (adding)
        command =
            new ksAddTagUndoCommand(titleOf(tag, adding), node, mask, list, tag, &tags, oldValues, newValues);
    else
        command =
            new ksSubTagUndoCommand(titleOf(tag, adding), node, mask, list, tag, &tags, oldValues, newValues);
    const auto type = list == UserTags ? ksTagUndoCommand::USER_TAG : ksTagUndoCommand::LAYER_TAG;
    history.verify(command->getTagString() == tag && command->getTagType() == type,
                   QStringLiteral("the command knows the tag"));
    return command;
}
