// SPDX-License-Identifier: MIT
#pragma once

#include <QJSValue>
#include <QObject>
#include <QString>

class ksScriptHost;

/// The undo history in a script: the global object "history". What is not possible at the moment, see
/// ksEditHistory, is an error in the script.
class ksScriptHistory : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("index", "the number of steps that are done")
    Q_CLASSINFO("count", "the number of all steps, done and undone")
    Q_CLASSINFO("undo()", "one step back")
    Q_CLASSINFO("redo()", "one step forth")
    Q_CLASSINFO("mark()", "remembers the index")
    Q_CLASSINFO("reset()", "undoes or redoes until the index is the remembered one, 0 if there is none")
    Q_CLASSINFO("clear()", "forgets all steps")
    Q_CLASSINFO("macro(text, body)", "what the function `body` does becomes one step called `text`; when it "
                                     "ends by an error, what it did is taken back. Returns what it returns")
    Q_CLASSINFO("beginMacro(text)", "begins a macro; one that is open at the end of the script, or of the "
                                    "function of one around it, is an error")
    Q_CLASSINFO("endMacro()", "ends the macro that `beginMacro` has begun last")
    Q_CLASSINFO(
        "batch(text, edits, [merging], [action])",
        "several edits as one step: an array, or a function that makes them; with `merging` true it merges "
        "with a batch of the same values right before it; the function `action` is called after each do, "
        "undo and redo")

    Q_PROPERTY(int index READ index)
    Q_PROPERTY(int count READ count)

public:
    /// \a scriptHost must outlive the object.
    explicit ksScriptHistory(ksScriptHost &scriptHost);

    int index() const;
    int count() const;

    Q_INVOKABLE void undo();
    Q_INVOKABLE void redo();
    Q_INVOKABLE void mark();
    Q_INVOKABLE void reset();
    Q_INVOKABLE void clear();
    Q_INVOKABLE void batch(const QString &text, const QJSValue &edits, bool merging = false,
                           const QJSValue &action = QJSValue());
    Q_INVOKABLE void beginMacro(const QString &text);
    Q_INVOKABLE void endMacro();

    /// The two ends of macro(), and of batch() with a function, see ksScriptHost.
    Q_INVOKABLE void openMacro(const QString &text);
    Q_INVOKABLE void closeMacro(bool succeeded);
    Q_INVOKABLE void openBatch(const QString &text, bool merging, const QJSValue &action);
    Q_INVOKABLE void closeBatch(bool succeeded);

private:
    /// Runs \a work, which is not possible within a batch and within another step.
    template <class Work>
    void step(const Work &work);

    ksScriptHost &host;
};
