// SPDX-License-Identifier: MIT
#include <checker/history/ksCheckedHistory.h>
#include <checker/tour/ksFieldTour.h>
#include <editor/edits/ksFieldEdits.h>
#include <editor/scene/ksNumericFields.h>

#include <ksundo/field/ksBoolFieldUndoCommand.h>
#include <ksundo/field/ksFieldUndoCommand.h>
#include <ksundo/field/ksUndoUtil.h>

#include <OpenSG/OSGSFBaseTypes.h>

#include <limits>
#include <type_traits>

namespace {

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

} // namespace

void ksFieldTour::run()
{
    editNumbers();
    editFlags();
    editIntegerAsFlag();
    useFactories();
}

void ksFieldTour::editNumbers()
{
    for (const osg::FieldContainerPtr &container : targets.containers)
        editNumbersOf(container);
}

void ksFieldTour::editNumbersOf(const osg::FieldContainerPtr &container)
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

void ksFieldTour::editFlags()
{
    for (const osg::FieldContainerPtr &container : targets.containers)
        editFlagsOf(container);
}

void ksFieldTour::editFlagsOf(const osg::FieldContainerPtr &container)
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

void ksFieldTour::editIntegerAsFlag()
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

void ksFieldTour::useFactories()
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
