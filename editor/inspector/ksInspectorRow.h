// SPDX-License-Identifier: MIT
#pragma once

#include <editor/document/ksSceneChanges.h>

#include <OpenSG/OSGFieldContainerPtr.h>

#include <QObject>
#include <QString>
#include <QVariant>

#include <functional>
#include <utility>
#include <vector>

class QUndoCommand;
class ksInspectorEdits;
class ksValueEditor;

/// Containers, by id, and the fields of theirs that something depends on.
using ksWatches = std::vector<std::pair<osg::UInt32, osg::BitVector>>;

/// Whether \a changes concern one of \a watches.
bool ksConcern(const ksSceneChanges &changes, const ksWatches &watches);

/// \a value as a whole: a part of \a known, unless \a part is negative.
QVariant ksWholeOf(const QVariant &known, const QVariant &value, int part);

/// What a row of the inspector shows and edits.
struct ksInspectorField
{
    QString name;

    /// The ids of the containers that have the value. That of the last one is shown, all are edited.
    std::vector<osg::UInt32> targets;

    /// The value of a target; invalid when it has none at the moment.
    std::function<QVariant(const osg::FieldContainerPtr &target)> read;

    /// A new command that gives a target a value, and belongs to the parent if there is one. Throws
    /// ksEditorError when the value makes no sense.
    std::function<QUndoCommand *(const osg::FieldContainerPtr &target, const QVariant &value,
                                 QUndoCommand *parent)>
        make;

    /// What the value of a target depends on.
    std::function<ksWatches(const osg::FieldContainerPtr &target)> watches;

    /// Instead of make(), for what is not one command for each target. As ksValueEditor::edited() tells it.
    std::function<void(const QVariant &value, int part)> perform;
};

/// Ties a value of the selection to the widget that edits it.
class ksInspectorRow : public QObject
{
    Q_OBJECT

public:
    /// \a ownEdits and \a valueEditor must outlive the row.
    ksInspectorRow(ksInspectorEdits &ownEdits, ksInspectorField shownField, ksValueEditor *valueEditor,
                   QObject *parent);

    bool isConcernedBy(const ksSceneChanges &changes) const { return ksConcern(changes, watched); }

    /// The text of a step that sets what is called \a field of \a targets.
    static QString textOf(const QString &field, const std::vector<osg::FieldContainerPtr> &targets);

    /// Reads the value again and shows it.
    void refresh();

    /// Has the row go, which may be what its own edit has led to.
    void retire();

private:
    void edit(const QVariant &value, int part);
    void change(const QVariant &value, int part);

    ksInspectorEdits &edits;
    const ksInspectorField field;
    ksValueEditor *editor;
    ksWatches watched;
};
