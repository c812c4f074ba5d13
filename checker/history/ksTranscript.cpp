// SPDX-License-Identifier: MIT
#include <checker/history/ksTranscript.h>
#include <editor/history/ksRecord.h>

#include <utility>

namespace {

constexpr int LabelWidth = 9;

QString countText(int number, const QString &one, const QString &many)
{
    return QString::number(number) + QLatin1Char(' ') + (number == 1 ? one : many);
}

} // namespace

ksTranscript::ksTranscript(ksRecord &sessionRecord)
    : record(sessionRecord)
{}

void ksTranscript::beginPart(const QString &title)
{
    finish();
    part = title;
    stepsBefore = steps;
    faultsBefore = faults;
}

void ksTranscript::step(const QString &what)
{
    finishStep();
    ++steps;
    isWanted = record.style().detail == ksRecordStyle::Verbose;
    block = {{QStringLiteral("event"), QStringLiteral("step")},
             {QStringLiteral("step"), steps},
             {QStringLiteral("text"), what}};
    pending += QStringLiteral("step %1: ").arg(steps) + what;
    if (isWanted)
        record.line(pending.takeFirst());
}

void ksTranscript::note(const QString &label, const QString &text)
{
    notes += QJsonObject{{label, text}};
    pending += QStringLiteral("  ") + label.leftJustified(LabelWidth) + text;
    while (isWanted && !pending.isEmpty())
        record.line(pending.takeFirst());
}

void ksTranscript::fault(const QString &label, const QString &text, int count)
{
    faults += count;
    isWanted = true;
    const QString line = QStringLiteral("  ") + label.leftJustified(LabelWidth) + text;
    while (!pending.isEmpty())
        record.line(pending.takeFirst());
    notes += QJsonObject{{label, text}};
    record.line(line, ksRecord::Tone::Bad);
}

void ksTranscript::finishStep()
{
    pending.clear();
    // Every step is an object.
    if (!block.isEmpty() && record.style().detail != ksRecordStyle::Quiet) {
        block.insert(QStringLiteral("notes"), std::exchange(notes, {}));
        record.object(std::exchange(block, {}));
    }
    block = {};
    notes = {};
}

void ksTranscript::finish()
{
    finishStep();
    finishPart();
}

void ksTranscript::finishPart()
{
    if (part.isEmpty())
        return;
    const QString title = std::exchange(part, {});
    if (record.style().detail == ksRecordStyle::Quiet)
        return;
    const int found = faults - faultsBefore;
    record.line(title + QStringLiteral(": ") +
                    countText(steps - stepsBefore, QStringLiteral("step"), QStringLiteral("steps")) +
                    QStringLiteral(", ") +
                    (found == 0
                         ? QStringLiteral("no difference")
                         : countText(found, QStringLiteral("DIFFERENCE"), QStringLiteral("DIFFERENCES"))),
                found == 0 ? ksRecord::Tone::Plain : ksRecord::Tone::Bad);
    record.object({{QStringLiteral("event"), QStringLiteral("part")},
                   {QStringLiteral("text"), title},
                   {QStringLiteral("steps"), steps - stepsBefore},
                   {QStringLiteral("differences"), found}});
}
