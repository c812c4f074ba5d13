// SPDX-License-Identifier: MIT
#include <editor/history/ksRecord.h>
#include <editor/history/ksRecordedHistory.h>

#include <QJsonArray>

#include <algorithm>
#include <cstdlib>
#include <utility>

ksRecordedHistory::ksRecordedHistory(const osg::NodePtr &scene, ksRecord &sessionRecord, ksUndoStack *stack)
    : ksEditHistory(scene, stack)
    , record(sessionRecord)
{
    ksFieldChange::take();
    connect(stack, &ksUndoStack::redoPerformed, this, [this](const QUndoCommand *command, bool added) {
        isAddition = isAddition || (command != nullptr && added);
    });
    connect(stack, &ksUndoStack::cleared, this, [this] { isCleared = true; });
}

ksRecordedHistory::~ksRecordedHistory()
{
    stack()->disconnect(this);
    close();
    ksFieldChange::take();
}

void ksRecordedHistory::beginStep(const QString &what)
{
    if (isInMacro()) {
        isMacro = true;
        if (record.style().detail == ksRecordStyle::Verbose)
            parts += what;
        return;
    }
    doing = what;
    parts.clear();
    isMacro = false;
    earlierIndex = stack()->index();
    earlierCount = stack()->count();
    isAddition = false;
    isCleared = false;
}

void ksRecordedHistory::finishStep()
{
    collectChanges();
    if (isInMacro())
        return;
    if (isAddition)
        steps += std::max(0, stack()->index() - earlierIndex);
    const std::vector<ksFieldChange> changes = takeChanges();
    const ksRecordStyle::Detail detail = record.style().detail;
    // What neither changes anything nor goes anywhere is a detail: a mark, or an addition that left nothing.
    // A macro does not merge: when it is no step, it was taken back.
    isAddition = isAddition && (stack()->index() != earlierIndex || (!changes.empty() && !isMacro));
    const bool isStep = isCleared || stack()->index() != earlierIndex || !changes.empty();
    if (detail == ksRecordStyle::Verbose || (detail == ksRecordStyle::Short && isStep))
        write(changes);
}

void ksRecordedHistory::collectChanges()
{
    const auto isFirst = [this](osg::UInt32 container, osg::UInt32 field) {
        return isInMacro() && places.count({container, field}) == 0;
    };
    for (ksFieldChange &change : ksFieldChange::take(isFirst)) {
        const auto [place, isNew] =
            places.emplace(std::make_pair(change.container, change.fieldId), collected.size());
        if (isNew) {
            collected.push_back(std::move(change));
            continue;
        }
        ksFieldChange &known = collected[place->second];
        known.after = change.after;
        if (!change.entries.isEmpty())
            known.entries += QStringLiteral(", ") + change.entries;
    }
}

std::vector<ksFieldChange> ksRecordedHistory::takeChanges()
{
    places.clear();
    std::vector<ksFieldChange> changes = std::exchange(collected, {});
    changes.erase(std::remove_if(changes.begin(), changes.end(),
                                 [](const ksFieldChange &change) { return change.isTakenBack(); }),
                  changes.end());
    return changes;
}

void ksRecordedHistory::write(const std::vector<ksFieldChange> &changes) const
{
    if (record.style().json) {
        QJsonArray list;
        for (const ksFieldChange &change : changes)
            list += change.toJson();
        const int moved = stack()->index() - earlierIndex;
        const bool isMerge = isAddition && moved == 0;
        record.object({{QStringLiteral("event"), eventName()},
                       {QStringLiteral("step"),
                        std::min(earlierIndex, stack()->index()) + (moved == 0 && !isCleared ? 0 : 1)},
                       {QStringLiteral("count"), isCleared ? earlierCount
                                                 : isMerge ? 1
                                                           : std::abs(moved)},
                       {QStringLiteral("text"), text()},
                       {QStringLiteral("changes"), list}});
        return;
    }
    if (record.style().detail == ksRecordStyle::Verbose) {
        record.line(title());
        record.line(ksRecord::note(QStringLiteral("done"), doing));
        for (const QString &part : parts)
            record.line(ksRecord::note(QStringLiteral("within"), part));
        for (const ksFieldChange &change : changes)
            record.line(ksRecord::note(QStringLiteral("changed"), change.inFull()));
        return;
    }
    record.line(title(), ksRecord::Tone::Plain,
                changes.empty() ? QString() : QStringLiteral(": ") + ksFieldChange::summary(changes));
}

QString ksRecordedHistory::title() const
{
    const int index = stack()->index();
    if (isCleared)
        return QStringLiteral("all steps are forgotten");
    if (index == earlierIndex)
        return isAddition ? QStringLiteral("step %1 goes on: ").arg(index) + text()
               : isMacro  ? doing + QStringLiteral(" taken back")
                          : doing;
    const int first = std::min(index, earlierIndex) + 1;
    const int last = std::max(index, earlierIndex);
    const QString what = isAddition             ? QString()
                         : index < earlierIndex ? QStringLiteral(" undone")
                                                : QStringLiteral(" redone");
    if (first < last)
        return QStringLiteral("steps %1 to %2").arg(first).arg(last) + what;
    return QStringLiteral("step %1").arg(first) + what + QStringLiteral(": ") + text();
}

QString ksRecordedHistory::text() const
{
    const int index = stack()->index();
    if (isCleared || (index == earlierIndex && !isAddition))
        return doing;
    return index < earlierIndex ? stack()->redoText() : stack()->undoText();
}

QString ksRecordedHistory::eventName() const
{
    const int index = stack()->index();
    if (isCleared)
        return QStringLiteral("clear");
    if (isAddition)
        return index == earlierIndex ? QStringLiteral("merge") : QStringLiteral("add");
    if (index == earlierIndex)
        return QStringLiteral("other");
    return index < earlierIndex ? QStringLiteral("undo") : QStringLiteral("redo");
}
