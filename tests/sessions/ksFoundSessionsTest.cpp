// SPDX-License-Identifier: MIT
#include "ksSession.h"

#include <gmock/gmock.h>

// Sessions as random ones are printed when they fail, to be kept here.

TEST(ksFoundSessions, RunsWhatIsPasted)
{
    ksSession session;
    session.push(0, {"ksTranslationUndoCommand", 3, 17});
    session.push(
        1, {"ksMultiCommand", 0, 1, 0, {{"ksFieldUndoCommand<int>", 0, 2}, {"ksShearUndoCommand", 1, 9}}});
    session.undo(0);
    session.undo(1);
    session.end();
}
