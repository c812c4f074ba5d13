// SPDX-License-Identifier: MIT
#include "ksTour.h"

#include "ksCheckedHistory.h"
#include "ksContainers.h"
#include "ksFieldEdits.h"
#include "ksFieldReader.h"
#include "ksNumericFields.h"

#include <ksundo/core/ksMultiCommand.h>
#include <ksundo/core/ksUndoMacro.h>
#include <ksundo/field/ksBoolFieldUndoCommand.h>
#include <ksundo/field/ksFieldUndoCommand.h>
#include <ksundo/field/ksUndoUtil.h>

#include <OpenSG/OSGFieldContainerFactory.h>
#include <OpenSG/OSGRefPtr.h>
#include <OpenSG/OSGSFBaseTypes.h>

#include <QUndoCommand>

#include <limits>
#include <memory>
#include <type_traits>

namespace {

constexpr int DragEvents = 24;
constexpr unsigned long NamesAtMost = 3;

/// A value that differs from \a value.
template <class T>
T otherValue(T value)
{
    if constexpr (std::is_floating_point_v<T>)
        return value < T(0.5) ? value + T(0.25) : value / 2;
    else
        return value == std::numeric_limits<T>::max() ? std::numeric_limits<T>::min()
                                                      : static_cast<T>(value + 1);
}

QString text(const osg::FieldContainerPtr &container, const char *field)
{
    return ksFieldEdits::defaultText(container, QString::fromLatin1(field));
}

/// A command of a drag on the opacity of \a settings. Only the first event is kept from merging.
ksUndoCommand *dragEvent(const osg::ksNodeSettingsPtr &settings, float opacity, bool merging,
                         QUndoCommand *parent = nullptr)
{
    return ksFieldEdits::make(text(settings, "opacity"), settings, QStringLiteral("opacity"), opacity,
                              merging ? ksFieldEdits::Merging::WithPrevious : ksFieldEdits::Merging::Never,
                              parent);
}

} // namespace

ksTour::ksTour(ksCheckedHistory &checkedHistory)
    : history(checkedHistory)
    , targets(checkedHistory.root())
{}

void ksTour::run()
{
    editNumbers();
    editFlags();
    editIntegerAsFlag();
    useFactories();
    editBatches();
    dragAndMerge();
    dragWithoutMerging();
    runMacro();
    markAndReset();
    loseTarget();
    walkHistory();
}

void ksTour::add(QUndoCommand *command, int grown)
{
    const int before = history.stack()->count();
    history.add(command);
    history.verify(history.stack()->count() == before + grown,
                   grown == 0 ? QStringLiteral("it merged into the step before")
                              : QStringLiteral("it is a step of its own"));
}

void ksTour::editNumbers()
{
    for (const osg::FieldContainerPtr &container : targets.containers)
        editNumbersOf(container);
}

void ksTour::editNumbersOf(const osg::FieldContainerPtr &container)
{
    for (const osg::FieldDescription *description : ksTourTargets::editableFields(container)) {
        const auto edit = [this, &container, description](auto &field) {
            using T = typename std::decay_t<decltype(field)>::StoredType;
            const T value = otherValue(field.getValue());
            const char *name = description->getCName();
            add(new ksFieldUndoCommand<T>(text(container, name), container, name, value), 1);
            history.verify(field.getValue() == value, QStringLiteral("the field has the new value"));
        };
        ksNumericFields::visit(*description->getField(container), edit);
    }
}

void ksTour::editFlags()
{
    for (const osg::FieldContainerPtr &container : targets.containers)
        editFlagsOf(container);
}

void ksTour::editFlagsOf(const osg::FieldContainerPtr &container)
{
    for (const osg::FieldDescription *description : ksTourTargets::editableFields(container)) {
        const auto *flag = dynamic_cast<const osg::SFBool *>(description->getField(container));
        if (flag == nullptr)
            continue;
        const bool value = flag->getValue();
        const char *name = description->getCName();
        add(new ksBoolFieldUndoCommand(text(container, name), container, name, !value), 1);
        // Flags never merge, so that this is a step of its own.
        add(new ksBoolFieldUndoCommand(text(container, name), container,
                                       static_cast<int>(description->getFieldId()), value),
            1);
        history.verify(flag->getValue() == value, QStringLiteral("the flag is back"));
    }
}

void ksTour::editIntegerAsFlag()
{
    const osg::ksNodeSettingsPtr settings = targets.settings.front();
    const auto field = static_cast<int>(osg::ksNodeSettings::StencilReferenceFieldId);
    add(new ksFieldUndoCommand<osg::UInt16>(text(settings, "stencilReference"), settings, "stencilReference",
                                            7),
        1);
    add(new ksBoolFieldUndoCommand(text(settings, "stencilReference"), settings, field, false), 1);
    history.verify(settings->getStencilReference() == 0, QStringLiteral("false is 0"));
    history.expect({settings.getFieldContainerId(), osg::ksNodeSettings::StencilReferenceFieldId, "7", "1",
                    QStringLiteral("an edit as a flag remembers no more than whether the number was 0")});
    history.undo();
    history.verify(settings->getStencilReference() == 1, QStringLiteral("true is 1"));
    history.redo();
}

void ksTour::useFactories()
{
    const osg::ksNodeSettingsPtr settings = targets.settings.back();
    for (const osg::FieldDescription *description : ksTourTargets::editableFields(settings)) {
        const std::string name = description->getCName();
        const QString title = text(settings, name.c_str());
        const int count = history.stack()->count();
        // 300 does not fit 8 bits, of which the factory keeps the low ones.
        history.step(QStringLiteral("make the integer command \"") + title + QLatin1Char('"'),
                     [&] { ksUndoUtil::makeIntTypeCommand(title, settings, name, 300); });
        const bool isInteger = history.stack()->count() == count + 1;
        history.step(QStringLiteral("make the float command \"") + title + QLatin1Char('"'),
                     [&] { ksUndoUtil::makeFloatTypeCommand(title, settings, name, 0.125); });
        const bool isFloat = history.stack()->count() == count + (isInteger ? 2 : 1);
        history.verify(!(isInteger && isFloat), QStringLiteral("no field is an integer and a float"));
    }
    history.verify(settings->getLayer() == 44, QStringLiteral("300 becomes 44 in 8 bits"));
    history.verify(settings->getRenderOrder() == 300, QStringLiteral("300 fits 16 bits"));
    history.verify(settings->getLocked(), QStringLiteral("300 is true"));
    history.verify(settings->getOpacity() == 0.125F && settings->getTimeOffset() == 0.125,
                   QStringLiteral("floats of both widths are set"));
}

void ksTour::editBatches()
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

void ksTour::dragAndMerge()
{
    const osg::ksNodeSettingsPtr settings = targets.settings.front();
    const float before = settings->getOpacity();
    for (int event = 0; event < DragEvents; ++event)
        add(dragEvent(settings, 0.5F - static_cast<float>(event) / 64, event > 0), event > 0 ? 0 : 1);
    history.undo();
    history.verify(settings->getOpacity() == before, QStringLiteral("one undo takes the whole drag back"));
    history.redo();
}

void ksTour::dragWithoutMerging()
{
    const osg::ksNodeSettingsPtr settings = targets.settings.front();
    for (int event = 0; event < 3; ++event)
        add(dragEvent(settings, 0.75F + static_cast<float>(event) / 16, false), 1);
    // The second container is between the two edits of the first.
    for (const osg::ksNodeSettingsPtr &target : {targets.settings.back(), settings})
        add(dragEvent(target, 0.375F, true), target == settings && targets.settings.size() == 1 ? 0 : 1);
}

void ksTour::runMacro()
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

void ksTour::markAndReset()
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

void ksTour::loseTarget()
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
