// SPDX-License-Identifier: MIT
#pragma once

#include <editor/document/ksSceneChanges.h>
#include <editor/document/ksSelection.h>
#include <editor/import/ksProgress.h>

#include <OpenSG/OSGNode.h>
#include <OpenSG/OSGRefPtr.h>

#include <QObject>
#include <QString>
#include <QStringList>

#include <memory>

class QUndoCommand;
class ksOpenScene;
class ksUndoStack;
class ksDocumentHistory;

/// The scene that is edited in the window, the file that it is from, and its history. There is one at a time,
/// and there always is one: a new document has a scene that is empty but for its root.
class ksDocument : public QObject
{
    Q_OBJECT

public:
    explicit ksDocument(QObject *parent = nullptr);
    ~ksDocument() override;

    /// Replaces the scene by that of the file \a path, or by an empty one. The first throws ksEditorError
    /// when the file cannot be read, and the scene stays as it is. \a progress is asked now and then, with
    /// what has been done from 0 to 1, whether to go on; when it says no, the scene stays as well and the
    /// result is false.
    bool open(const QString &path, const ksProgress &progress = {});
    void clear();

    /// Saves the scene in the file \a path, which is the document's from then on. Throws ksOutputError when
    /// that fails.
    void save(const QString &path);

    /// The file; empty for a scene that has never been saved.
    const QString &path() const { return file; }

    /// What the user calls the document.
    QString title() const;

    /// Whether there are edits that are not in the file.
    bool isModified() const;

    /// What was wrong with the file when it was opened, and what was left out.
    const QStringList &warnings() const { return importWarnings; }

    osg::NodePtr root() const;
    ksDocumentHistory &history() const { return *editHistory; }
    ksUndoStack &stack() const;
    ksSelection &selection() { return selected; }

    /// Adds \a command, which belongs to the history, as a step, or as a part of the gesture that is open.
    /// Null is ignored.
    void add(QUndoCommand *command);

Q_SIGNALS:
    /// The scene and its history are about to go. Who keeps a reference on either is to let go of it.
    void aboutToBeReplaced();

    /// There is another scene, of which nothing is known yet.
    void replaced();

    /// The scene has changed, as aspect 1 has by now.
    void changed(const ksSceneChanges &changes);

    /// A step has been taken, to the scene or in the history; \a isReturn says whether it is an undo or a
    /// redo. Of what is done within a macro is told at once, when it ends, but for the steps.
    void stepped(bool isReturn);

    /// The file, whether there are unsaved edits, or what can be undone and redone may have changed.
    void stateChanged();

private:
    void show(osg::NodeRefPtr scene, const QString &path);
    void finishStep(bool isReturn);

    ksSelection selected;
    std::unique_ptr<ksOpenScene> openScene;
    std::unique_ptr<ksDocumentHistory> editHistory;
    QString file;

    /// Whether there were unsaved edits after the last step, and whether the history has forgotten some.
    bool wasModified = false;
    bool hasForgottenEdits = false;

    QStringList importWarnings;
};
