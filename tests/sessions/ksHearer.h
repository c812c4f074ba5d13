// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

#include <functional>
#include <string>
#include <utility>

/// What commands call by the name of a method, with what they tell it.
class ksHearer : public QObject
{
    Q_OBJECT

public:
    explicit ksHearer(std::function<void(const std::string &)> log)
        : log(std::move(log))
    {}

    Q_INVOKABLE void switched(bool on) { log(on ? "switched 1" : "switched 0"); }
    Q_INVOKABLE void finished() { log("finished"); }

private:
    std::function<void(const std::string &)> log;
};
