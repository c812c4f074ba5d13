// SPDX-License-Identifier: MIT
#pragma once

#include "ksTourTargets.h"

#include <QString>

#include <vector>

class QUndoCommand;
class ksCheckedHistory;

/// A session that works on any scene: edits of every kind that the library has, on several containers each,
/// then all the way back, forth and back again.
class ksTour
{
public:
    /// \a checkedHistory must outlive the tour.
    explicit ksTour(ksCheckedHistory &checkedHistory);

    /// Runs the tour. The scene ends as it was, and every command is undone.
    void run();

private:
    void editNumbers();
    void editNumbersOf(const osg::FieldContainerPtr &container);
    void editFlags();
    void editFlagsOf(const osg::FieldContainerPtr &container);
    void editIntegerAsFlag();
    void useFactories();
    void editBatches();
    void dragAndMerge();
    void dragWithoutMerging();
    void runMacro();
    void markAndReset();
    void loseTarget();
    void walkHistory();

    /// Adds \a command and verifies that the stack has \a grown by that many commands.
    void add(QUndoCommand *command, int grown);

    ksCheckedHistory &history;
    ksTourTargets targets;
};
