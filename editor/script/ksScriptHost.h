// SPDX-License-Identifier: MIT
#pragma once

#include <editor/edits/ksMerging.h>
#include <editor/history/ksEditHistory.h>
#include <editor/scene/ksSceneIndex.h>
#include <editor/script/ksScriptBatch.h>

#include <OpenSG/OSGFieldContainerPtr.h>

#include <QJSEngine>
#include <QJSValue>
#include <QString>
#include <QStringList>

#include <atomic>
#include <functional>
#include <iosfwd>
#include <map>
#include <memory>
#include <utility>
#include <vector>

/// What the objects of a script share: the engine, the history that they edit through, and one script object
/// per container, so that a script may compare them.
class ksScriptHost
{
public:
    /// What scripts print goes to \a out. All three must outlive the host.
    ksScriptHost(QJSEngine &engine, ksEditHistory &history, std::ostream &out);
    ~ksScriptHost();
    ksScriptHost(const ksScriptHost &) = delete;
    ksScriptHost &operator=(const ksScriptHost &) = delete;

    /// The file that what the editor itself evaluates seems to come from.
    static QString ownFileName() { return QStringLiteral("ks-editor:prelude"); }

    QJSEngine &engine() const { return scriptEngine; }
    ksEditHistory &history() const { return editHistory; }
    std::ostream &out() const { return output; }
    ksSceneIndex &index() { return sceneIndex; }

    /// Who is told of warnings; without one they go to out().
    void setWarningHandler(std::function<void(const QString &)> handler);
    void warn(const QString &text) const;

    /// The file of the script that runs; paths in it, of images and of what it saves, start at its folder.
    void setScriptFile(const QString &path) { scriptFile = path; }
    QString pathFrom(const QString &name) const;

    /// The functions of ksScriptPrelude.
    QJSValue prelude(const char *name) const;

    /// The script object for \a container, see ksScriptRegistry; null for NullFC.
    QJSValue object(const osg::FieldContainerPtr &container);

    /// How many objects for containers are kept.
    std::size_t objectCount() const { return objects.size(); }

    /// The script object for \a native, which belongs to the engine unless it has a parent, with \a parts.
    QJSValue object(QObject *native, const QJSValue &parts);

    /// What scripts know of the class \a type, whose objects have parts of these names.
    QJSValue type(const QMetaObject &type, const QStringList &parts);

    /// What \a field holds, as a script sees it: numbers, bools and texts as such, 64-bit integers that a
    /// script's numbers cannot hold as text, vectors, colours and matrices (column by column) as arrays of
    /// numbers, lists of texts as arrays, containers as objects or null, lists of containers as arrays.
    /// Anything else as the text that the scene graph has for it.
    QJSValue value(osg::Field &field);

    /// Runs \a work; when it throws, the script gets an Error with the exception's message at the place where
    /// it is.
    void guard(const std::function<void()> &work) const;

    /// Has the script end as if by an error; for another thread to call. The engine crashes when it is
    /// interrupted while it looks up a method of an object of ours, or sets a property of one, so that the
    /// script ends where it calls a method next, or gets an error where it sets a property. When it does
    /// neither for a while, or catches the error and goes on, it ends where it is.
    void interrupt();

    /// No longer has it end so. Whether it was still to end.
    bool resume() { return isToEnd.exchange(false); }

    /// Whether \a error, which the script ended by, is that something could not be written.
    bool isOutputFailure(const QJSValue &error) const;

    /// Adds \a command, which has no other parent than parent(), to the history, or to the open batch; null,
    /// an edit that changes nothing, is no step. Throws ksEditorError while a step calls a function of the
    /// script.
    void add(QUndoCommand *command);

    /// Of the commands to be added, where they take one: null unless a batch is open.
    QUndoCommand *parent() const { return batch != nullptr ? batch->parent() : nullptr; }

    /// How they merge.
    ksMerging merging() const { return batchMerging; }

    /// Throw ksEditorError while a step calls a function of the script, and within a batch.
    void refuseWithinCall() const;
    void refuseWithinBatch() const;

    /// Calls \a function, which belongs to a step that is being run. Its error is that of the step.
    void call(const QJSValue &function);

    /// The two ends of a batch: what is added in between is one step called \a text, which merges as \a
    /// merging says, with \a action, a function unless it is undefined. One that did not succeed is taken
    /// back. Throw ksEditorError when that is not possible at the moment.
    void openBatch(const QString &text, ksMerging merging, const QJSValue &action);
    void closeBatch(bool succeeded);

    /// Opens a macro in the history and ends the latest that the script has opened so. Throws ksEditorError
    /// when there is none, or when that is the one of a function.
    void beginMacro(const QString &text);
    void endMacro();

    /// The two ends of a macro that is a function's. One that did not succeed is taken back, or makes the one
    /// around it fail. Throws ksEditorError when the function has left a macro open, or caught the error of
    /// one that failed.
    void openMacro(const QString &text);
    void closeMacro(bool succeeded);

    /// Takes back the macros and the batch that the script has left open; nothing of the script is called,
    /// which may have been ended for taking too long. Returns an Error that says where it opened the first of
    /// them; undefined when there was none.
    QJSValue endWhatIsLeft();

private:
    struct Macro
    {
        QString text;

        /// An Error from where it was opened.
        QJSValue opened;

        bool isOfFunction;

        /// The error of a macro in it; empty when there was none.
        QString failure;
    };

    QJSValue containers(const osg::Field &field);
    void letGoOfObjects();
    void open(const QString &text, bool isOfFunction);
    void close(bool keep);

    QJSEngine &scriptEngine;
    ksEditHistory &editHistory;
    std::ostream &output;
    std::function<void(const QString &)> warningHandler;
    QString scriptFile;
    QJSValue preludeFunctions;
    ksSceneIndex sceneIndex;
    std::map<osg::UInt32, QJSValue> objects;

    /// How many of them there are when those of containers that have gone are let go of.
    std::size_t mostObjects = 1000;
    std::map<std::pair<const QMetaObject *, QStringList>, QJSValue> types;
    std::vector<Macro> macros;
    std::unique_ptr<ksScriptBatch> batch;
    ksMerging batchMerging = ksMerging::Never;

    /// How many functions of the script are called by steps, which must not make steps.
    int calls = 0;

    bool isEnding = false;

    /// The first error of the functions of the script that a step called; undefined for none.
    mutable QJSValue failureOfCall;

    std::atomic<bool> isToEnd = false;

    /// What the latest ksOutputError said.
    mutable QString outputFailure;
};
