// SPDX-License-Identifier: MIT
#pragma once

#include <QJsonArray>
#include <QString>
#include <QStringList>

class ksRecord;

/// The readable record of a session that is checked: one block per step, a heading and indented lines below
/// it, of which all are written when the record is verbose, and otherwise those of steps with a fault. Steps
/// may be gathered into parts, of which each gives a line.
class ksTranscript
{
public:
    /// Writes to \a sessionRecord, which must outlive the transcript.
    explicit ksTranscript(ksRecord &sessionRecord);

    /// Begins a part, called \a title, with the next step.
    void beginPart(const QString &title);

    /// Begins the block of the next step, which did \a what. Steps are counted from 1.
    void step(const QString &what);

    /// Adds a line to the block: \a label says what kind of line, in a column of its own.
    void note(const QString &label, const QString &text);

    /// The same, about something that is wrong, \a count times.
    void fault(const QString &label, const QString &text, int count = 1);

    /// Ends the latest block, and the part. The next step begins another.
    void finish();

    /// Ends the latest block only, as far as it is not written yet.
    void finishStep();

    /// The number of steps, and of faults, so far.
    int stepCount() const { return steps; }
    int faultCount() const { return faults; }

private:
    void finishPart();
    void writePending();

    ksRecord &record;
    int steps = 0;
    int faults = 0;

    /// The latest block: its lines that are not written, its heading and its notes for JSON, and whether it
    /// is to be written.
    QStringList pending;
    QString heading;
    QJsonArray notes;
    bool isOpen = false;
    bool isWanted;

    /// The part, and what there was before it.
    QString part;
    int stepsBefore = 0;
    int faultsBefore = 0;
};
