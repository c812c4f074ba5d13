// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

#include <functional>

class ksScriptHost;

/// A function of C++ as a method that scripts can call.
class ksScriptFunction : public QObject
{
    Q_OBJECT

public:
    /// \a scriptHost must outlive the object, which belongs to \a parent.
    ksScriptFunction(const ksScriptHost &scriptHost, std::function<void()> called, QObject *parent);

    Q_INVOKABLE void call() const;

private:
    const ksScriptHost &host;
    const std::function<void()> function;
};
