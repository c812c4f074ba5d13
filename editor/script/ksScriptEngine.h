// SPDX-License-Identifier: MIT
#pragma once

#include <editor/script/ksScriptHost.h>

#include <QJSEngine>
#include <QString>
#include <QStringList>

#include <functional>
#include <iosfwd>

/// Runs JavaScript files on the scene.
///
/// Scripts have the global objects that ksScriptRegistry knows, among them "scene" (see ksScriptScene) and
/// "history" (see ksScriptHistory), containers as ksScriptContainer, and the function print(values...).
class ksScriptEngine
{
public:
    /// What scripts print goes to \a out. Both must outlive the engine.
    ksScriptEngine(ksEditHistory &history, std::ostream &out);

    /// Gives scripts another global function called \a name, which takes nothing. When \a function throws,
    /// the script gets an Error.
    void addFunction(const QString &name, const std::function<void()> &function);

    /// Gives scripts the global array "args", which holds \a arguments.
    void setArguments(const QStringList &arguments);

    /// Makes run(), which may be going on in another thread, end as if the script had ended by an error.
    void interrupt();

    /// Runs the script in the file \a path to its end. Throws ksScriptError, with file, line and reason, when
    /// the file cannot be read, the script ends by an error, is interrupted or does not end a macro. What it
    /// has done by then stays done, and no macro is open.
    void run(const QString &path);

private:
    /// Whether the engine has been interrupted; it is so no more then.
    bool takeInterruption();

    QJSEngine engine;
    ksScriptHost host;

    /// Takes a function and runs it.
    QJSValue runner;
};
