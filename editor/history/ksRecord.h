// SPDX-License-Identifier: MIT
#pragma once

#include <QJsonObject>
#include <QString>

#include <iosfwd>

/// How a record is written.
struct ksRecordStyle
{
    enum Detail
    {
        Quiet,
        Short,
        Verbose
    };

    Detail detail = Short;

    /// One JSON object a line instead of text.
    bool json = false;

    /// Colours, as terminals understand them.
    bool colours = false;
};

/// What a session tells of itself, line by line. Whatever names and texts hold, a line of the record is one
/// line; each is out before the next begins.
class ksRecord
{
public:
    /// What a line is to look like where there are colours.
    enum class Tone
    {
        Plain,
        Faint,
        Good,
        Doubtful,
        Bad
    };

    /// Writes to \a stream, which must outlive the record.
    explicit ksRecord(std::ostream &stream, const ksRecordStyle &style = {});

    const ksRecordStyle &style() const { return look; }

    /// Writes \a text as a line, escaped and in the colour of \a tone, and \a details, which are faint,
    /// behind it. Does nothing in a record of JSON. Throws ksOutputError when the line cannot be written.
    void line(const QString &text, Tone tone = Tone::Plain, const QString &details = {});

    /// Writes \a object as a line in a record of JSON, and does nothing in others. Throws ksOutputError when
    /// it cannot be written.
    void object(const QJsonObject &object);

    /// Writes what a script prints, lines and tabs as they are, or as an object. Throws ksOutputError when
    /// that fails.
    void print(const QString &text);

    /// Why something could not be written; empty when all could.
    const QString &failure() const { return reason; }

    /// A line of those below a heading: \a label in a column of its own, and \a text.
    static QString note(const QString &label, const QString &text);

    /// \a number and what there are that many of: \a one or \a many.
    static QString counted(int number, const QString &one, const QString &many);

    /// \a text with its control characters, line ends and separators as escapes such as "\n" and "\u001b".
    static QString escaped(const QString &text);

    /// The same, but for line ends and tabs, which stay.
    static QString escapedLines(const QString &text);

    /// \a text in the colour of \a tone, for a terminal.
    static QString coloured(const QString &text, Tone tone);

private:
    void write(const QString &text);

    std::ostream &out;
    const ksRecordStyle look;
    QString reason;
};
