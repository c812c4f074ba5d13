// SPDX-License-Identifier: MIT
#include "ksSession.h"

#include <gmock/gmock.h>

// Sessions as random ones are printed when they fail.

TEST(ksFoundSessions, MergeCommandsWithoutTargetWhateverTheirField)
{
    ksSession session;
    session.push(0, {"ksFieldUndoCommand<float>", 7, 0});
    session.push(0, {"ksFieldUndoCommand<float>", 7, 4});
    session.end();
}

TEST(ksFoundSessions, LeaveAClearedStackCleanThatWasEmptyAlready)
{
    ksSession session;
    session.push(0, {"ksShearUndoCommand", 0, 9});
    session.setClean(0);
    session.undo(0);
    session.forgetUndone(0);
    session.clear(0);
    session.end();
}

TEST(ksFoundSessions, MergeCompositesChildByChild)
{
    ksSession session;
    session.sync("ksShearUndoCommand", 1);
    for (const int value : {9, 27})
        session.push(0, {"ksMultiCommand",
                         0,
                         value,
                         0,
                         {{"ksFieldUndoCommand<int>", 0, value}, {"ksShearUndoCommand", 1, value}}});
    session.drop(2);
    session.undo(0);
    session.redo(0);
    session.end();
}
