// SPDX-License-Identifier: MIT
#pragma once

#include <QJSValue>
#include <QObject>
#include <QString>

class ksScriptHost;

// Scripts read properties when they need them and bind nothing to them, so that nobody waits for a
// notification. clazy:excludeall=qproperty-without-notify

/// The undo history in a script: the global object "history". Every step is checked.
///
/// Besides what is declared here, a script has history.macro(text, function): what the function does becomes
/// one step, also when it ends by an error.
class ksScriptHistory : public QObject
{
    Q_OBJECT

    /// The number of steps that are done, and of all steps, done and undone.
    Q_PROPERTY(int index READ index)
    Q_PROPERTY(int count READ count)

public:
    /// \a scriptHost must outlive the object.
    explicit ksScriptHistory(ksScriptHost &scriptHost);

    int index() const;
    int count() const;

    /// An error in the script within a macro, and when there is nothing to undo or redo.
    Q_INVOKABLE void undo();
    Q_INVOKABLE void redo();

    /// Remembers the index.
    Q_INVOKABLE void mark();

    /// Undoes or redoes until the index is the remembered one, 0 if there is none. An error within a macro.
    Q_INVOKABLE void reset();

    /// Forgets all steps. An error within a macro.
    Q_INVOKABLE void clear();

    /// Does several edits as one step called \a text. \a edits is an array of arrays: container, field,
    /// value. The step merges with a batch of the same fields right before it when \a merging is true.
    Q_INVOKABLE void batch(const QString &text, const QJSValue &edits, bool merging = false);

    /// The two ends of history.macro().
    Q_INVOKABLE void beginMacro(const QString &text);
    Q_INVOKABLE void endMacro();

    /// Checks the scene and writes the result to the transcript. An error in the script when there is a
    /// difference.
    Q_INVOKABLE void check();

    /// Writes \a text to the transcript.
    Q_INVOKABLE void print(const QString &text);

private:
    void refuseInMacro() const;

    ksScriptHost &host;
};
