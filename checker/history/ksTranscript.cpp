// SPDX-License-Identifier: MIT
#include <checker/history/ksTranscript.h>
#include <editor/history/ksRecord.h>

#include <utility>

ksTranscript::ksTranscript(ksRecord &sessionRecord)
    : record(sessionRecord)
    , isWanted(record.style().detail == ksRecordStyle::Verbose)
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
    heading = what;
    isOpen = true;
    pending += QStringLiteral("step %1: ").arg(steps) + what;
    if (isWanted)
        writePending();
}

void ksTranscript::note(const QString &label, const QString &text)
{
    notes += QJsonObject{{label, text}};
    pending += ksRecord::note(label, text);
    if (isWanted)
        writePending();
}

void ksTranscript::fault(const QString &label, const QString &text, int count)
{
    faults += count;
    isWanted = true;
    notes += QJsonObject{{label, text}};
    writePending();
    record.line(ksRecord::note(label, text), ksRecord::Tone::Bad);
}

void ksTranscript::writePending()
{
    while (!pending.isEmpty())
        record.line(pending.takeFirst());
}

void ksTranscript::finishStep()
{
    pending.clear();
    const bool isLeft = std::exchange(isOpen, false) || !notes.isEmpty();
    const QJsonArray found = std::exchange(notes, {});
    // Every step is an object, in a quiet record those with a fault.
    if (isLeft && (isWanted || record.style().detail != ksRecordStyle::Quiet))
        record.object({{QStringLiteral("event"), QStringLiteral("step")},
                       {QStringLiteral("step"), steps},
                       {QStringLiteral("text"), heading},
                       {QStringLiteral("notes"), found}});
    isWanted = record.style().detail == ksRecordStyle::Verbose;
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
                    ksRecord::counted(steps - stepsBefore, QStringLiteral("step"), QStringLiteral("steps")) +
                    QStringLiteral(", ") +
                    (found == 0 ? QStringLiteral("no difference")
                                : ksRecord::counted(found, QStringLiteral("DIFFERENCE"),
                                                    QStringLiteral("DIFFERENCES"))),
                found == 0 ? ksRecord::Tone::Plain : ksRecord::Tone::Bad);
    record.object({{QStringLiteral("event"), QStringLiteral("part")},
                   {QStringLiteral("text"), title},
                   {QStringLiteral("steps"), steps - stepsBefore},
                   {QStringLiteral("differences"), found}});
}
