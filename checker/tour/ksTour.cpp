// SPDX-License-Identifier: MIT
#include <checker/history/ksCheckedHistory.h>
#include <checker/tour/ksCommandClasses.h>
#include <checker/tour/ksConstraintTour.h>
#include <checker/tour/ksFieldTour.h>
#include <checker/tour/ksHistoryTour.h>
#include <checker/tour/ksInvokeTour.h>
#include <checker/tour/ksLightTour.h>
#include <checker/tour/ksMaterialTour.h>
#include <checker/tour/ksTagTour.h>
#include <checker/tour/ksTextTour.h>
#include <checker/tour/ksTour.h>
#include <checker/tour/ksTourExtras.h>
#include <checker/tour/ksTransformTour.h>
#include <checker/tour/ksVariantTour.h>

ksTour::ksTour(ksCheckedHistory &checkedHistory)
    : history(checkedHistory)
{}

void ksTour::run()
{
    ksTourTargets targets(history.root());
    const ksTourExtras extras(targets);
    extras.addTo(history);
    ksFieldTour(history, targets, extras).run();
    ksTextTour(history, targets, extras).run();
    ksInvokeTour invokeTour(history, targets, extras);
    invokeTour.run();
    ksHistoryTour(history, targets, extras).run();
    ksTransformTour transformTour(history, targets, extras);
    ksVariantTour(history, targets, extras, transformTour).run();
    transformTour.run();
    ksLightTour(history, targets, extras).run();
    ksMaterialTour(history, targets, extras).run();
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
