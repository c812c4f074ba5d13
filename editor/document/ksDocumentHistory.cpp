// SPDX-License-Identifier: MIT
#include <editor/document/ksDocumentHistory.h>

ksDocumentHistory::ksDocumentHistory(const osg::NodePtr &scene, ksUndoStack *stack)
    : ksEditHistory(scene, stack)
{
    const auto noteStep = [this] {
        if (isStepping())
            return;
        callObserver();
        Q_EMIT stepped();
    };
    connect(stack, &ksUndoStack::redoPerformed, this, noteStep);
    connect(stack, &ksUndoStack::undoPerformed, this, noteStep);
    connect(stack, &ksUndoStack::cleared, this, noteStep);
}

ksDocumentHistory::~ksDocumentHistory()
{
    stack()->disconnect(this);
    close();
}
