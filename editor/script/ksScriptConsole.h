// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QString>

class ksScriptHost;

/// What scripts say: the global object "console". Its methods take any number of values, see ksScriptPrelude.
class ksScriptConsole : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("log(values...)", "writes the values, separated by blanks, and a line end, as `print` does")
    Q_CLASSINFO("info(values...)", "the same")
    Q_CLASSINFO("warn(values...)", "writes them as a warning")
    Q_CLASSINFO("error(values...)", "the same; the script goes on")

public:
    /// \a scriptHost must outlive the object.
    explicit ksScriptConsole(ksScriptHost &scriptHost)
        : host(scriptHost)
    {}

    /// Writes a line to where the script's output goes, or its warnings.
    Q_INVOKABLE void write(const QString &text);
    Q_INVOKABLE void complain(const QString &text);

private:
    ksScriptHost &host;
};
