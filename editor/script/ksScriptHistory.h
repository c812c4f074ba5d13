// SPDX-License-Identifier: MIT
#pragma once

#include <QJSValue>
#include <QObject>
#include <QString>

class ksScriptHost;

/// The undo history in a script: the global object "history". What is not possible at the moment, see
/// ksEditHistory, is an error in the script.
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

    /// One step each.
    Q_INVOKABLE void undo();
    Q_INVOKABLE void redo();

    /// Remembers the index.
    Q_INVOKABLE void mark();

    /// Undoes or redoes until the index is the remembered one, 0 if there is none.
    Q_INVOKABLE void reset();

    /// Forgets all steps.
    Q_INVOKABLE void clear();

    /// Does several edits as one step called \a text. \a edits is an array of arrays: container, field,
    /// value. The step merges with a batch of the same fields right before it when \a merging is true.
    Q_INVOKABLE void batch(const QString &text, const QJSValue &edits, bool merging = false);

    /// The two ends of history.macro(). A macro that is still open when the script ends is an error of the
    /// script, too.
    Q_INVOKABLE void beginMacro(const QString &text);
    Q_INVOKABLE void endMacro();

    /// Writes \a text, and a line end, to where the script's output goes.
    Q_INVOKABLE void print(const QString &text);

private:
    ksScriptHost &host;
};
