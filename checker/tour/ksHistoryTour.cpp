// SPDX-License-Identifier: MIT
#include <checker/history/ksCheckedHistory.h>
#include <checker/tour/ksHistoryTour.h>
#include <editor/edits/ksFieldEdits.h>

#include <ksundo/core/ksMultiCommand.h>
#include <ksundo/core/ksUndoMacro.h>
#include <ksundo/field/ksBoolFieldUndoCommand.h>
#include <ksundo/field/ksFieldUndoCommand.h>
#include <ksundo/field/ksUndoUtil.h>

#include <OpenSG/OSGFieldContainerFactory.h>
#include <OpenSG/OSGRefPtr.h>

#include <memory>

namespace {

constexpr unsigned long NamesAtMost = 3;

/// A command of a drag on the opacity of \a settings.
ksUndoCommand *dragEvent(const osg::ksNodeSettingsPtr &settings, float opacity, bool merging,
                         QUndoCommand *parent = nullptr)
{
    const QString field = QStringLiteral("opacity");
    return ksFieldEdits::make(ksFieldEdits::defaultText(settings, field), settings, field, opacity,
                              merging ? ksMerging::WithPrevious : ksMerging::Never, parent);
}

} // namespace

void ksHistoryTour::run()
{
    editBatches();
    dragAndMerge();
    dragWithoutMerging();
    runMacro();
    markAndReset();
    loseTarget();
}

void ksHistoryTour::editBatches()
{
    // The batch lives on in the history.
    const auto runs = std::make_shared<int>(0);
    const QString title =
        QStringLiteral("Set opacity of ") + ksUndoUtil::makeNameList(targets.nodes, NamesAtMost);
    const auto makeBatch = [this, &title, runs](float opacity, bool merging) {
        auto *batch = new ksMultiCommand(title, [runs] { ++*runs; });
        for (const osg::ksNodeSettingsPtr &settings : targets.settings)
            dragEvent(settings, opacity, merging, batch);
        return batch;
    };
    add(makeBatch(0.5F, false), 1);
    add(makeBatch(0.25F, true), 0);
    add(makeBatch(0.75F, true), 0);
    history.undo();
    history.redo();
    history.verify(*runs == 5, QStringLiteral("the action of a batch ran after every run"));
    history.verify(targets.settings.back()->getOpacity() == 0.75F, QStringLiteral("the last value is back"));

    auto *made = new ksMultiCommand(QStringLiteral("Number ") + ksUndoUtil::makeNameList(targets.nodes));
    for (const osg::ksNodeSettingsPtr &settings : targets.settings) {
        ksUndoUtil::makeIntTypeCommand(QString(), settings, "sortKey", -5, made);
        ksUndoUtil::makeFloatTypeCommand(QString(), settings, "timeOffset", 1.5, made);
    }
    add(made, 1);
}

void ksHistoryTour::dragAndMerge()
{
    const osg::ksNodeSettingsPtr settings = targets.settings.front();
    const float before = settings->getOpacity();
    for (int event = 0; event < DragEvents; ++event)
        add(dragEvent(settings, 0.5F - static_cast<float>(event) / 256, event > 0), event > 0 ? 0 : 1);
    history.undo();
    history.verify(settings->getOpacity() == before, QStringLiteral("one undo takes the whole drag back"));
    history.redo();
}

void ksHistoryTour::dragWithoutMerging()
{
    const osg::ksNodeSettingsPtr settings = targets.settings.front();
    for (int event = 0; event < 3; ++event)
        add(dragEvent(settings, 0.75F + static_cast<float>(event) / 16, false), 1);
    // The second container is between the two edits of the first.
    for (const osg::ksNodeSettingsPtr &target : {targets.settings.back(), settings})
        add(dragEvent(target, 0.375F, true), target == settings && targets.settings.size() == 1 ? 0 : 1);
}

void ksHistoryTour::runMacro()
{
    const int count = history.stack()->count();
    history.step(QStringLiteral("macro"), [this] {
        ksUndoStack *stack = history.stack();
        const ksUndoMacro outer(QStringLiteral("Freeze ") + ksUndoUtil::makeNameList(targets.nodes), stack);
        for (const osg::ksNodeSettingsPtr &settings : targets.settings) {
            const ksUndoMacro inner(text(settings, "locked"), stack);
            stack->add(new ksBoolFieldUndoCommand(settings, "locked", !settings->getLocked()));
            stack->add(dragEvent(settings, 0.0625F, false));
        }
    });
    history.verify(history.stack()->count() == count + 1, QStringLiteral("a macro is one step"));
    history.undo();
    history.redo();
}

void ksHistoryTour::markAndReset()
{
    const osg::ksNodeSettingsPtr settings = targets.settings.back();
    history.mark();
    const int marked = history.stack()->index();
    for (int i = 0; i < 3; ++i)
        add(new ksBoolFieldUndoCommand(text(settings, "locked"), settings, "locked", !settings->getLocked()),
            1);
    history.reset();
    history.verify(history.stack()->index() == marked, QStringLiteral("the stack is at the mark"));
    while (history.stack()->canRedo())
        history.redo();
}

void ksHistoryTour::loseTarget()
{
    osg::ksNodeSettingsRefPtr passing(osg::ksNodeSettings::create());
    const osg::UInt32 id = passing.get().getFieldContainerId();
    add(new ksFieldUndoCommand<osg::UInt8>(QStringLiteral("Set layer of settings that go"), passing.get(),
                                           "layer", 9),
        1);
    history.step(QStringLiteral("destroy the target"), [&passing] { passing = osg::ksNodeSettingsRefPtr(); });
    history.verify(osg::FieldContainerFactory::the()->getContainer(id) == osg::NullFC,
                   QStringLiteral("the target has gone"));
    history.undo();
    history.redo();
}
