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

#include <QScopeGuard>

#include <utility>

ksTour::ksTour(ksCheckedHistory &checkedHistory, std::function<void()> goOn)
    : history(checkedHistory)
    , mayGoOn(std::move(goOn))
{}

void ksTour::run()
{
    history.setGoOn(mayGoOn);
    const auto askNoMore = qScopeGuard([this] { history.setGoOn({}); });
    const auto undoAll = [this] {
        while (history.stack()->canUndo())
            history.stack()->undo();
    };
    const auto undoExtras = qScopeGuard(undoAll);
    ksTourTargets targets(history.root());
    const ksTourExtras extras(targets);
    begin("Add what the scene lacks");
    extras.addTo(history);
    // Commands call these when they are undone, as they are in any case.
    ksInvokeTour invokeTour(history, targets, extras);
    ksTransformTour transformTour(history, targets, extras);
    const auto undoTour = qScopeGuard(undoAll);

    begin("Set fields of every type");
    ksFieldTour(history, targets, extras).run();
    begin("Set texts and lists of texts");
    ksTextTour(history, targets, extras).run();
    begin("Call methods");
    invokeTour.run();
    begin("Batches, drags, macros and marks");
    ksHistoryTour(history, targets, extras).run();
    begin("Edit variants of transforms");
    ksVariantTour(history, targets, extras, transformTour).run();
    begin("Edit transforms");
    transformTour.run();
    begin("Edit lights and what they shine on");
    ksLightTour(history, targets, extras).run();
    begin("Edit materials and images");
    ksMaterialTour(history, targets, extras).run();
    begin("Edit tags");
    ksTagTour(history, targets, extras).run();
    begin("Edit constraints");
    ksConstraintTour(history, targets, extras).run();
    begin("All the way back, forth and back again");
    walkHistory();
    ksCommandClasses::verifyIn(history);
}

void ksTour::begin(const char *part)
{
    history.beginPart(QLatin1String(part));
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
