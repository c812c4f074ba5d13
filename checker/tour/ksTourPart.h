// SPDX-License-Identifier: MIT
#pragma once

#include <checker/tour/ksCallLog.h>
#include <checker/tour/ksTourTargets.h>
#include <editor/edits/ksMerging.h>

#include <QString>

#include <functional>

class QUndoCommand;
class ksCheckedHistory;
class ksTourExtras;

/// What the parts of a tour have in common: the history that they edit through, and the containers that they
/// edit.
class ksTourPart
{
public:
    /// All three must outlive the part; the extras must be in the scene.
    ksTourPart(ksCheckedHistory &checkedHistory, const ksTourTargets &chosenTargets,
               const ksTourExtras &tourExtras);

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
    const ksTourExtras &extras;

private:
    void verifyGrowth(int before, int grown);
};
