// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

#include <functional>
#include <string>
#include <utility>
#include <vector>

/// An object with methods of all kinds, which notes their calls in order.
class ksMethodReceiver : public QObject
{
    Q_OBJECT

public:
    using Flag = bool;

    ksMethodReceiver()
    {
        connect(this, &ksMethodReceiver::switched, [this](bool value) { note("signal", value); });
    }

    Q_INVOKABLE void take(bool value) { note("take", value); }
    Q_INVOKABLE void takeInt(int value) { note("takeInt", value); }
    Q_INVOKABLE void takeFlag(Flag value) { note("takeFlag", value); }
    Q_INVOKABLE void takeNothing() { calls.push_back("takeNothing"); }
    Q_INVOKABLE void takeTwo(bool first, bool second) { note("takeTwo", first + second); }
    Q_INVOKABLE void takeOneOrNone(bool value = true) { note("takeOneOrNone", value); }
    Q_INVOKABLE bool answer(bool value)
    {
        note("answer", value);
        return value;
    }
    void ordinary(bool value) { note("ordinary", value); }

    /// The calls since the last time, each as its name and argument, and what could be found then.
    std::vector<std::string> takeCalls() { return std::exchange(calls, {}); }

    /// Is asked at every call with an argument, unless it is empty.
    std::function<std::string()> find;

Q_SIGNALS:
    void switched(bool value);

public Q_SLOTS:
    void slot(bool value) { note("slot", value); }

protected Q_SLOTS:
    void protectedSlot(bool value) { note("protectedSlot", value); }

private Q_SLOTS:
    void privateSlot(bool value) { note("privateSlot", value); }

private:
    void note(const char *name, int value)
    {
        calls.push_back(name + (' ' + std::to_string(value)) + (find ? ", " + find() : ""));
    }

    std::vector<std::string> calls;
};

/// Inherits all methods.
class ksDerivedReceiver : public ksMethodReceiver
{
    Q_OBJECT
};
