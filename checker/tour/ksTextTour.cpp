// SPDX-License-Identifier: MIT
#include <checker/history/ksCheckedHistory.h>
#include <checker/tour/ksTextTour.h>
#include <checker/tour/ksTourExtras.h>

#include <ksundo/field/ksStringFieldUndoCommand.h>
#include <ksundo/field/ksStringsFieldUndoCommand.h>

#include <string>

namespace {

const std::string Typed = "abc";

constexpr int Keys = 3;

osg::MFString firstLetters(int count)
{
    osg::MFString letters;
    for (int i = 0; i < count; ++i)
        letters.push_back(Typed.substr(static_cast<std::size_t>(i), 1));
    return letters;
}

} // namespace

void ksTextTour::run()
{
    type();
    list();
}

void ksTextTour::type()
{
    const osg::ksNodeSettingsPtr settings = targets.settings.front();
    const QString title = text(settings, "comment");
    const std::string before = settings->getComment();
    drag(Keys, [&](int event) {
        return ksMergingAs(
            ksMergingOfEvent(event),
            new ksStringFieldUndoCommand(title, settings, "comment",
                                         Typed.substr(0, static_cast<std::size_t>(event) + 1)));
    });
    history.undo();
    history.verify(settings->getComment() == before, QStringLiteral("one undo takes all keys back"));
    history.redo();
    history.verify(settings->getComment() == Typed, QStringLiteral("the whole word is back"));

    // Another text, which does not go on from the one before.
    const osg::ksNodeSettingsPtr others = extras.settings();
    const auto field = static_cast<int>(osg::ksNodeSettings::CommentFieldId);
    add(ksMergingAs(ksMerging::WithPrevious,
                    new ksStringFieldUndoCommand(text(others, "comment"), others, field, "xyz")),
        1);
    history.verify(others->getComment() == "xyz" && settings->getComment() == Typed,
                   QStringLiteral("both texts are set"));
}

void ksTextTour::list()
{
    const osg::TagAttachmentPtr tags = extras.tags().front();
    const QString title = text(tags, "systemTags");
    drag(Keys, [&](int event) {
        return ksMergingAs(ksMergingOfEvent(event),
                           new ksStringsFieldUndoCommand(title, tags, "systemTags", firstLetters(event + 1)));
    });
    history.undo();
    history.verify(tags->getSystemTags().empty(), QStringLiteral("one undo takes the whole list back"));
    history.redo();
    history.verify(tags->getSystemTags() == firstLetters(Keys), QStringLiteral("the whole list is back"));
    add(ksMergingAs(ksMerging::Never,
                    new ksStringsFieldUndoCommand(title, tags, "systemTags", firstLetters(1))),
        1);
    history.verify(tags->getSystemTags() == firstLetters(1), QStringLiteral("the list is shorter"));
}
