// SPDX-License-Identifier: MIT
#pragma once

#include <editor/script/ksScriptHost.h>

#include <QJSEngine>
#include <QString>
#include <QStringList>

#include <cstddef>
#include <functional>
#include <iosfwd>
#include <utility>

/// Runs JavaScript files on the scene.
///
/// Scripts have the global objects that ksScriptRegistry knows, "scene", "history" and "console" (see
/// ksScriptScene, ksScriptHistory and ksScriptConsole), containers as the classes that it knows for theirs,
/// and the functions print(values...) and help([what]).
class ksScriptEngine
{
public:
    /// What scripts print goes to \a out. Both must outlive the engine.
    ksScriptEngine(ksEditHistory &history, std::ostream &out);
    virtual ~ksScriptEngine() = default;
    ksScriptEngine(const ksScriptEngine &) = delete;
    ksScriptEngine &operator=(const ksScriptEngine &) = delete;

    /// Gives scripts another global function called \a name, which takes nothing. When \a function throws,
    /// the script gets an Error.
    void addFunction(const QString &name, const std::function<void()> &function);

    /// Who is told of the warnings of scripts; without one they go to where their output goes.
    void setWarningHandler(std::function<void(const QString &)> handler)
    {
        host.setWarningHandler(std::move(handler));
    }

    /// What it costs to find nodes, see ksSceneIndex::visitedCount().
    std::size_t visitedCount() { return host.index().visitedCount(); }

    /// How many objects for containers are kept, see ksScriptHost.
    std::size_t objectCount() const { return host.objectCount(); }

    /// Gives scripts the global array "args", which holds \a arguments.
    void setArguments(const QStringList &arguments);

    /// Makes run(), which is going on in another thread, end as if the script had ended by an error.
    void interrupt() { host.interrupt(); }

    /// The same, for what the script calls, in its own thread.
    void interruptAtOnce() { engine.setInterrupted(true); }

    /// Whether the engine has been interrupted since something ran; it is so no more then.
    bool takeInterruption();

    /// Runs the script in the file \a path to its end. Throws ksScriptError, with file, line and reason, and
    /// the call stack on lines of its own if there is one, when the file cannot be read, the script ends by
    /// an error, is interrupted or does not end a macro; ksOutputError when the error is that something could
    /// not be written. The steps that it has done by then stay; a macro that is open then is taken back.
    void run(const QString &path);

    /// Evaluates \a text, the line of a console that is called \a name: what it declares stays. Returns what
    /// it gives, as text; empty when that is undefined. Errors are those of run().
    QString evaluate(const QString &text, const QString &name);

    /// The names of what scripts find without an object: those of the editor, and what lines have declared.
    QStringList globalNames() const;

private:
    /// What is left to do when a script of the file \a path has given \a result.
    void finish(const QJSValue &result, const QString &path);

    /// Throws when \a result is an Error of the script \a path, or what ksScriptPrelude's tell() says of one,
    /// and not undefined.
    void refuseError(const QJSValue &result, const QString &path) const;

    QJSEngine engine;
    ksScriptHost host;
};
