// SPDX-License-Identifier: MIT
#pragma once

#include <checker/tour/ksCallLog.h>
#include <checker/tour/ksTourTargets.h>
#include <editor/edits/ksMerging.h>

#include <QString>

#include <functional>

class QUndoCommand;
class ksCheckedHistory;

/// What the parts of a tour have in common: the history that they edit through, and the containers that they
/// edit.
class ksTourPart
{
public:
    /// Both must outlive the part.
    ksTourPart(ksCheckedHistory &checkedHistory, const ksTourTargets &chosenTargets);

protected:
    /// The length of most drags.
    static constexpr int DragEvents = 60;

    /// The text of an edit of \a container's field \a field.
    static QString text(const osg::FieldContainerPtr &container, const char *field);

    /// Adds \a command and verifies that the stack has \a grown by that many commands.
    void add(QUndoCommand *command, int grown);

    /// Adds the commands of a drag, see ksEditHistory::drag(), and verifies that they became one command.
    void drag(int events, const std::function<QUndoCommand *(int event)> &make);

    /// Verifies that what \a log has got since the last call of this is \a expected.
    void verifyCalls(ksCallLog &log, const ksCallLog::Lines &expected);

    ksCheckedHistory &history;
    const ksTourTargets &targets;

private:
    void verifyGrowth(int before, int grown);
};
