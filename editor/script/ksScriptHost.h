// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGFieldContainerPtr.h>

#include <QJSEngine>
#include <QJSValue>
#include <QString>

#include <functional>
#include <map>

class ksCheckedHistory;
class ksTranscript;

/// What the objects of a script share: the engine, the history that they edit through, and one script object
/// per container, so that a script may compare them.
class ksScriptHost
{
public:
    /// All three must outlive the host.
    ksScriptHost(QJSEngine &engine, ksCheckedHistory &history, ksTranscript &transcript);

    QJSEngine &engine() const { return scriptEngine; }
    ksCheckedHistory &history() const { return checkedHistory; }
    ksTranscript &transcript() const { return record; }

    /// The script object for \a container; null for NullFC.
    QJSValue object(const osg::FieldContainerPtr &container);

    /// What \a field holds, as a script sees it: numbers, bools and texts as such, 64-bit integers that a
    /// script's numbers cannot hold as text, vectors, colours and matrices (column by column) as arrays of
    /// numbers, containers as objects or null, lists of containers as arrays. Anything else as text made for
    /// reading.
    QJSValue value(osg::Field &field);

    /// Runs \a work; when it throws ksEditorError, the script gets an Error with that message at the place
    /// where it is.
    void guard(const std::function<void()> &work) const;

private:
    QJSValue containers(const osg::Field &field);

    QJSEngine &scriptEngine;
    ksCheckedHistory &checkedHistory;
    ksTranscript &record;
    std::map<osg::UInt32, QJSValue> objects;
};
