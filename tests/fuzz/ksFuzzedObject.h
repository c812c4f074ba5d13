// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QString>

#include <string>
#include <utility>
#include <vector>

/// Has methods of many signatures, and notes their calls.
class ksFuzzedObject : public QObject
{
    Q_OBJECT

public:
    Q_INVOKABLE void plain() { note("plain()"); }
    Q_INVOKABLE void flag(bool value) { note("flag(bool)", value); }
    Q_INVOKABLE void number(int value) { note("number(int)", value); }
    Q_INVOKABLE void number(short value) { note("number(short)", value); }
    Q_INVOKABLE void number() { note("number()"); }
    Q_INVOKABLE void wide(qulonglong value) { note("wide(qulonglong)", static_cast<qlonglong>(value)); }
    Q_INVOKABLE void small(uchar value) const { note("small(uchar)", value); }
    Q_INVOKABLE void optional(unsigned int value = 7) { note("optional(uint)", value); }
    Q_INVOKABLE bool answer(const bool &value)
    {
        note("answer(bool)", value);
        return value;
    }
    Q_INVOKABLE void text(const QString &value) { note("text(QString)", value.size()); }
    Q_INVOKABLE void other(QObject *value) { note("other(QObject*)", value != nullptr ? 1 : 0); }
    Q_INVOKABLE void both(bool first, int second) { note("both(bool,int)", first ? second : 0); }

    /// The calls since the last time, each with what it got.
    std::vector<std::string> take() { return std::exchange(calls, {}); }

Q_SIGNALS:
    void sent(bool value);

private:
    void note(const std::string &signature) const { calls.push_back(signature); }
    void note(const std::string &signature, qlonglong value) const
    {
        calls.push_back(signature + ' ' + std::to_string(value));
    }

    mutable std::vector<std::string> calls;
};
