// SPDX-License-Identifier: MIT
#include <editor/history/ksRecord.h>
#include <editor/session/ksVerdict.h>

void ksVerdict::count(int number, const QString &one, const QString &many, const QString &key)
{
    words += ksRecord::counted(number, one, many);
    numbers.insert(key.isNull() ? many : key, number);
}

void ksVerdict::remark(const QString &text)
{
    words += text;
}

void ksVerdict::write(ksRecord &record, bool isGood, const QString &error) const
{
    const QString result = isGood ? QStringLiteral("OK") : QStringLiteral("FAILED");
    record.line(result + QStringLiteral(": ") + words.join(QStringLiteral(", ")),
                isGood ? ksRecord::Tone::Good : ksRecord::Tone::Bad);
    QJsonObject object = numbers;
    object.insert(QStringLiteral("event"), QStringLiteral("verdict"));
    object.insert(QStringLiteral("verdict"), result);
    if (!error.isEmpty())
        object.insert(QStringLiteral("error"), error);
    record.object(object);
}
