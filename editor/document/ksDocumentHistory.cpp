// SPDX-License-Identifier: MIT
#include <editor/document/ksDocumentHistory.h>

ksDocumentHistory::ksDocumentHistory(const osg::NodePtr &scene, ksUndoStack *stack)
    : ksEditHistory(scene, stack)
{
    const auto noteStep = [this](bool isBackOrForth) {
        isReturn = isBackOrForth;
        if (isStepping())
            return;
        callObserver();
        Q_EMIT stepped(isReturn);
    };
    connect(stack, &ksUndoStack::redoPerformed, this,
            [noteStep](const QUndoCommand *, bool added) { noteStep(!added); });
    connect(stack, &ksUndoStack::undoPerformed, this, [noteStep] { noteStep(true); });
    connect(stack, &ksUndoStack::cleared, this, [noteStep] { noteStep(false); });
}

ksDocumentHistory::~ksDocumentHistory()
{
    stack()->disconnect(this);
    close();
}
