// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <iosfwd>

/// The readable record of a session: one block per step, a heading and indented lines below it.
class ksTranscript
{
public:
    /// Writes to \a stream, which must outlive the transcript.
    explicit ksTranscript(std::ostream &stream);

    /// Begins the block of the next step, which did \a what. Steps are counted from 1.
    void step(const QString &what);

    /// Adds a line to the block: \a label says what kind of line, in a column of its own.
    void note(const QString &label, const QString &text);

    /// Writes a line that stands on its own.
    void line(const QString &text);

    /// The number of steps so far.
    int stepCount() const { return steps; }

private:
    std::ostream &out;
    int steps = 0;
};
