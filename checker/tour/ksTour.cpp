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
    history.beginPart(QStringLiteral("Add what the scene lacks"));
    extras.addTo(history);
    history.beginPart(QStringLiteral("Set fields of every type"));
    ksFieldTour(history, targets, extras).run();
    history.beginPart(QStringLiteral("Set texts and lists of texts"));
    ksTextTour(history, targets, extras).run();
    history.beginPart(QStringLiteral("Call methods"));
    ksInvokeTour invokeTour(history, targets, extras);
    invokeTour.run();
    history.beginPart(QStringLiteral("Batches, drags, macros and marks"));
    ksHistoryTour(history, targets, extras).run();
    history.beginPart(QStringLiteral("Edit variants of transforms"));
    ksTransformTour transformTour(history, targets, extras);
    ksVariantTour(history, targets, extras, transformTour).run();
    history.beginPart(QStringLiteral("Edit transforms"));
    transformTour.run();
    history.beginPart(QStringLiteral("Edit lights and what they shine on"));
    ksLightTour(history, targets, extras).run();
    history.beginPart(QStringLiteral("Edit materials and images"));
    ksMaterialTour(history, targets, extras).run();
    history.beginPart(QStringLiteral("Edit tags"));
    ksTagTour(history, targets, extras).run();
    history.beginPart(QStringLiteral("Edit constraints"));
    ksConstraintTour(history, targets, extras).run();
    history.beginPart(QStringLiteral("All the way back, forth and back again"));
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
