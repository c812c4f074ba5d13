// SPDX-License-Identifier: MIT
#pragma once

#include <editor/history/ksEditHistory.h>

#include <QObject>

/// The history of the scene in the window: what shows the scene is told at the end of every step, whoever
/// takes it: an edit, a menu, a script, or a click into the history window.
class ksDocumentHistory : public QObject, public ksEditHistory
{
    Q_OBJECT

public:
    /// \a stack must outlive the history; see ksEditHistory for the rest.
    explicit ksDocumentHistory(const osg::NodePtr &scene, ksUndoStack *stack = ksUndoStack::get(0));

    /// Closes the history.
    ~ksDocumentHistory() override;

Q_SIGNALS:
    /// A step has been taken; \a isReturn says whether it is an undo or a redo.
    void stepped(bool isReturn);

private:
    void beginStep(const QString &) override { isReturn = false; }
    void finishStep() override { Q_EMIT stepped(isReturn); }

    /// Whether the step that is being taken is an undo or a redo.
    bool isReturn = false;
};
