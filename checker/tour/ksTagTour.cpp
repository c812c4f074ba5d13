// SPDX-License-Identifier: MIT
#include <checker/history/ksCheckedHistory.h>
#include <checker/tour/ksTagTour.h>
#include <checker/tour/ksTourExtras.h>
#include <editor/edits/ksTagEdits.h>

#include <ksundo/core/ksUndoMacro.h>
#include <ksundo/tag/ksTagUndoCommands.h>

namespace {

using ksTagEdits::LayerTags;
using ksTagEdits::UserTags;

QString titleOf(const std::string &tag, bool adding)
{
    return (adding ? QStringLiteral("Add tag '") : QStringLiteral("Remove tag '")) +
           QString::fromStdString(tag) + QLatin1Char('\'');
}

} // namespace

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
            history.verify(ksTagEdits::hasTag(tags, list, tag) == tagged,
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
    history.verify(!ksTagEdits::hasTag(tags, UserTags, "old") && tags->getTagValues().size() == 2,
                   QStringLiteral("the tag and its value are gone"));
    // Two in a row stay two.
    add(make(0, LayerTags, "roof", true), 1);
    add(make(0, LayerTags, "attic", true), 1);
    history.undo();
    history.verify(ksTagEdits::hasTag(tags, LayerTags, "roof") &&
                       !ksTagEdits::hasTag(tags, LayerTags, "attic"),
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
    ksTagUndoCommand *command = ksTagEdits::make(targets.nodes[index], list, tag, adding);
    const auto type = list == UserTags ? ksTagUndoCommand::USER_TAG : ksTagUndoCommand::LAYER_TAG;
    history.verify(command->getTagString() == tag && command->getTagType() == type,
                   QStringLiteral("the command knows the tag"));
    return command;
}
