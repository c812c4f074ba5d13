// SPDX-License-Identifier: MIT
#pragma once

#include <QJsonObject>
#include <QString>
#include <QStringList>

class ksRecord;

/// The last line of a record: whether all went well, and what was counted.
class ksVerdict
{
public:
    /// Adds how many of some things there were. One is called \a one, several are called \a many, and in
    /// JSON they are \a key, or \a many when that is null.
    void count(int number, const QString &one, const QString &many, const QString &key = {});

    /// Adds other words, which JSON does not have.
    void remark(const QString &text);

    /// Writes the line into \a record: "OK" or "FAILED", and the counts. \a error, which may be empty, stands
    /// in JSON only.
    void write(ksRecord &record, bool isGood, const QString &error = {}) const;

private:
    QStringList words;
    QJsonObject numbers;
};
