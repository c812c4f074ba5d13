// SPDX-License-Identifier: MIT
#include "ksTour.h"

#include "ksCheckedHistory.h"
#include "ksCommandClasses.h"
#include "ksConstraintTour.h"
#include "ksFieldTour.h"
#include "ksHistoryTour.h"
#include "ksInvokeTour.h"
#include "ksLightTour.h"
#include "ksMaterialTour.h"
#include "ksTagTour.h"
#include "ksTextTour.h"
#include "ksTourExtras.h"
#include "ksTransformTour.h"
#include "ksVariantTour.h"

ksTour::ksTour(ksCheckedHistory &checkedHistory)
    : history(checkedHistory)
{}

void ksTour::run()
{
    ksTourTargets targets(history.root());
    const ksTourExtras extras(targets);
    extras.addTo(history);
    ksFieldTour(history, targets).run();
    ksTextTour(history, targets, extras).run();
    ksInvokeTour invokeTour(history, targets, extras);
    invokeTour.run();
    ksHistoryTour(history, targets).run();
    ksTransformTour transformTour(history, targets);
    ksVariantTour(history, targets, transformTour).run();
    transformTour.run();
    ksLightTour(history, targets, extras).run();
    ksMaterialTour(history, targets).run();
    ksTagTour(history, targets, extras).run();
    ksConstraintTour(history, targets, extras).run();
    walkHistory();
    ksCommandClasses::verifyIn(history);
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
