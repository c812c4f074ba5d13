// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

#include <functional>
#include <string>
#include <utility>

/// What commands call by the name of a method.
class ksListener : public QObject
{
    Q_OBJECT

public:
    explicit ksListener(std::function<void(const std::string &)> log)
        : log(std::move(log))
    {}

    Q_INVOKABLE void switched(bool) { log("switched"); }
    Q_INVOKABLE void finished() { log("finished"); }

private:
    std::function<void(const std::string &)> log;
};
