// SPDX-License-Identifier: MIT
#include <editor/history/ksCheckedHistory.h>
#include <editor/session/ksCommandClasses.h>
#include <editor/session/ksConstraintTour.h>
#include <editor/session/ksFieldTour.h>
#include <editor/session/ksHistoryTour.h>
#include <editor/session/ksInvokeTour.h>
#include <editor/session/ksLightTour.h>
#include <editor/session/ksMaterialTour.h>
#include <editor/session/ksTagTour.h>
#include <editor/session/ksTextTour.h>
#include <editor/session/ksTour.h>
#include <editor/session/ksTourExtras.h>
#include <editor/session/ksTransformTour.h>
#include <editor/session/ksVariantTour.h>

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
