// SPDX-License-Identifier: MIT
#include "ksTour.h"

#include "ksCheckedHistory.h"
#include "ksFieldTour.h"
#include "ksHistoryTour.h"
#include "ksTransformTour.h"
#include "ksVariantTour.h"

ksTour::ksTour(ksCheckedHistory &checkedHistory)
    : history(checkedHistory)
{}

void ksTour::run()
{
    const ksTourTargets targets(history.root());
    ksFieldTour(history, targets).run();
    ksHistoryTour(history, targets).run();
    ksTransformTour transformTour(history, targets);
    ksVariantTour(history, targets, transformTour).run();
    transformTour.run();
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
