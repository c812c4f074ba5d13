// SPDX-License-Identifier: MIT
#pragma once

#include <editor/script/ksScriptHost.h>

#include <QJSEngine>
#include <QString>

class ksCheckedHistory;
class ksTranscript;

/// Runs JavaScript files on the scene.
///
/// Scripts have the global objects "scene" (see ksScriptScene) and "history" (see ksScriptHistory),
/// containers as ksScriptContainer, and the functions print(values...) and check().
class ksScriptEngine
{
public:
    /// Both must outlive the engine.
    ksScriptEngine(ksCheckedHistory &history, ksTranscript &transcript);

    /// Runs the script in the file \a path to its end. Throws ksEditorError, with file, line and reason, when
    /// the file cannot be read or the script ends by an error. What it has done by then stays done.
    void run(const QString &path);

private:
    QJSEngine engine;
    ksScriptHost host;

    /// Takes a function and runs it.
    QJSValue runner;
};
