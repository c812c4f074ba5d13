// SPDX-License-Identifier: MIT
#pragma once

#include <QJSValue>
#include <QObject>
#include <QPointer>

class ksScriptHost;

/// A function of a script as the Qt method "call()" that commands call. It lives as long as the commands may
/// do so; once the script's engine has gone, nothing is called.
class ksScriptCall : public QObject
{
    Q_OBJECT

public:
    /// A new one, which the history's stack owns and deletes when it forgets its commands. Throws
    /// ksEditorError when \a function is none.
    static ksScriptCall *make(ksScriptHost &host, const QJSValue &function);

    /// Throws as make() does.
    static void refuseUnlessFunction(const QJSValue &value);

    Q_INVOKABLE void call();

private:
    ksScriptCall(ksScriptHost &scriptHost, const QJSValue &called);

    ksScriptHost &host;
    const QPointer<QObject> engine;
    const QJSValue function;
};
