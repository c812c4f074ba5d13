// SPDX-License-Identifier: MIT
#include <editor/history/ksRecordedHistory.h>

#include <OpenSG/OSGChangeList.h>
#include <OpenSG/OSGThread.h>

#include <ostream>

ksRecordedHistory::ksRecordedHistory(const osg::NodePtr &scene, std::ostream &stream, ksUndoStack *stack)
    : ksEditHistory(scene, stack)
    , record(stream)
{}

void ksRecordedHistory::beginStep(const QString &what)
{
    if (isInMacro())
        record << "  ";
    else
        record << "step " << ++steps << ": ";
    record << what.toStdString() << '\n';
}

void ksRecordedHistory::finishStep()
{
    // Nobody draws the scene, so that nobody takes over what has changed in it.
    osg::Thread::getCurrentChangeList()->clearAll();
}
