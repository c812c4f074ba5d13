// SPDX-License-Identifier: MIT
#include <editor/history/ksRecord.h>
#include <editor/ksEditorError.h>

#include <QJsonDocument>

#include <cerrno>
#include <cstring>
#include <ostream>

namespace {

const char *codeOf(ksRecord::Tone tone)
{
    switch (tone) {
    case ksRecord::Tone::Faint:
        return "2";
    case ksRecord::Tone::Good:
        return "32";
    case ksRecord::Tone::Doubtful:
        return "33";
    case ksRecord::Tone::Bad:
        return "31";
    case ksRecord::Tone::Plain:
        break;
    }
    return "0";
}

QString escapeOf(QChar character)
{
    switch (character.unicode()) {
    case '\n':
        return QStringLiteral("\\n");
    case '\r':
        return QStringLiteral("\\r");
    case '\t':
        return QStringLiteral("\\t");
    default:
        return QStringLiteral("\\u%1").arg(static_cast<int>(character.unicode()), 4, 16, QLatin1Char('0'));
    }
}

/// Whether \a character would end a line, or do something to a terminal instead of being shown. Marks that
/// turn the direction of the text are among these.
bool isControl(QChar character)
{
    const ushort code = character.unicode();
    return character.category() == QChar::Other_Control || code == 0x061C || code == 0x200E ||
           code == 0x200F || (code >= 0x2028 && code <= 0x202E) || (code >= 0x2066 && code <= 0x2069);
}

/// \a text with its control characters escaped, but for those in \a kept.
QString escapedBut(const QString &text, const QString &kept)
{
    QString result;
    result.reserve(text.size());
    for (const QChar character : text) {
        if (isControl(character) && !kept.contains(character))
            result += escapeOf(character);
        else
            result += character;
    }
    return result;
}

} // namespace

ksRecord::ksRecord(std::ostream &stream, const ksRecordStyle &style)
    : out(stream)
    , look(style)
{}

void ksRecord::line(const QString &text, Tone tone, const QString &details)
{
    if (look.json)
        return;
    const auto shown = [this](const QString &part, Tone as) {
        const QString plain = escaped(part);
        return look.colours && as != Tone::Plain && !plain.isEmpty() ? coloured(plain, as) : plain;
    };
    write(shown(text, tone) + shown(details, Tone::Faint));
}

void ksRecord::object(const QJsonObject &object)
{
    if (look.json)
        write(QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Compact)));
}

void ksRecord::print(const QString &text)
{
    if (look.json)
        object({{QStringLiteral("event"), QStringLiteral("print")}, {QStringLiteral("text"), text}});
    else
        write(escapedLines(text));
}

QString ksRecord::note(const QString &label, const QString &text)
{
    constexpr int LabelWidth = 9;
    return QStringLiteral("  ") + label.leftJustified(LabelWidth) + text;
}

QString ksRecord::counted(int number, const QString &one, const QString &many)
{
    return QString::number(number) + QLatin1Char(' ') + (number == 1 ? one : many);
}

QString ksRecord::escaped(const QString &text)
{
    return escapedBut(text, QString());
}

QString ksRecord::escapedLines(const QString &text)
{
    return escapedBut(text, QStringLiteral("\n\t"));
}

QString ksRecord::coloured(const QString &text, Tone tone)
{
    return QStringLiteral("\x1b[%1m%2\x1b[0m").arg(QString::fromLatin1(codeOf(tone)), text);
}

void ksRecord::write(const QString &text)
{
    errno = 0;
    out << text.toStdString() << '\n' << std::flush;
    if (out)
        return;
    reason = QStringLiteral("the record cannot be written: ") +
             (errno != 0 ? QString::fromLocal8Bit(std::strerror(errno))
                         : QStringLiteral("the output does not take it"));
    throw ksOutputError(reason);
}
