// SPDX-License-Identifier: MIT
#include "ksTour.h"

#include "ksCheckedHistory.h"
#include "ksFieldTour.h"
#include "ksHistoryTour.h"

ksTour::ksTour(ksCheckedHistory &checkedHistory)
    : history(checkedHistory)
{}

void ksTour::run()
{
    const ksTourTargets targets(history.root());
    ksFieldTour(history, targets).run();
    ksHistoryTour(history, targets).run();
    walkHistory();
}

void ksTour::walkHistory()
{
    for (const bool back : {true, false, true}) {
        ksUndoStack *stack = history.stack();
        while (back ? stack->canUndo() : stack->canRedo()) {
            if (back)
                history.undo();
            else
                history.redo();
        }
    }
}
