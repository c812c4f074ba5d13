// SPDX-License-Identifier: MIT
#pragma once

#include <editor/history/ksEditHistory.h>

#include <OpenSG/OSGFieldContainerPtr.h>

#include <QJSEngine>
#include <QJSValue>
#include <QString>

#include <functional>
#include <iosfwd>
#include <map>
#include <vector>

/// What the objects of a script share: the engine, the history that they edit through, and one script object
/// per container, so that a script may compare them.
class ksScriptHost
{
public:
    /// What scripts print goes to \a out. All three must outlive the host.
    ksScriptHost(QJSEngine &engine, ksEditHistory &history, std::ostream &out);

    /// The file that what the editor itself evaluates seems to come from.
    static QString ownFileName() { return QStringLiteral("ks-editor:prelude"); }

    QJSEngine &engine() const { return scriptEngine; }
    ksEditHistory &history() const { return editHistory; }
    std::ostream &out() const { return output; }

    /// The script object for \a container, see ksScriptRegistry; null for NullFC.
    QJSValue object(const osg::FieldContainerPtr &container);

    /// What \a field holds, as a script sees it: numbers, bools and texts as such, 64-bit integers that a
    /// script's numbers cannot hold as text, vectors, colours and matrices (column by column) as arrays of
    /// numbers, containers as objects or null, lists of containers as arrays. Anything else as the text that
    /// the scene graph has for it.
    QJSValue value(osg::Field &field);

    /// Runs \a work; when it throws, the script gets an Error with the exception's message at the place where
    /// it is.
    void guard(const std::function<void()> &work) const;

    /// Opens a macro in the history and ends the latest that the script has opened. Throws ksEditorError when
    /// there is none.
    void beginMacro(const QString &text);
    void endMacro();

    /// Ends the macros that the script has left open. Returns an Error that says where it opened the first of
    /// them; undefined when there were none.
    QJSValue endMacrosLeft();

private:
    QJSValue containers(const osg::Field &field);

    QJSEngine &scriptEngine;
    ksEditHistory &editHistory;
    std::ostream &output;
    std::map<osg::UInt32, QJSValue> objects;

    /// Takes an object, a name and another object, which becomes a read-only member of the first.
    QJSValue defineMember;

    /// For each macro that the script has open an Error from where it did so, in case it does not end it.
    std::vector<QJSValue> openMacros;
};
