// SPDX-License-Identifier: MIT
#include <editor/edits/ksFieldEdits.h>
#include <editor/ksEditorError.h>
#include <editor/scene/ksContainers.h>
#include <editor/scene/ksLooseNumber.h>
#include <editor/scene/ksNumericFields.h>

#include <ksundo/field/ksBoolFieldUndoCommand.h>
#include <ksundo/field/ksFieldUndoCommand.h>

#include <OpenSG/OSGFieldDescription.h>
#include <OpenSG/OSGSFBaseTypes.h>

namespace {

[[noreturn]] void refuseValue(const osg::Field &field, const QString &name, const QVariant &value)
{
    const QString shown = value.isValid() ? value.toString() : QStringLiteral("undefined");
    throw ksEditorError(QLatin1Char('\'') + shown + QStringLiteral("' does not fit the field '") + name +
                        QStringLiteral("', ") + QString::fromLatin1(field.getType().getCName()));
}

osg::Field &findField(const osg::FieldContainerPtr &container, const QString &name)
{
    const osg::FieldDescription *description =
        ksFieldBaseUndoCommand::findField(container, name.toStdString());
    osg::Field *field = description != nullptr ? description->getField(container) : nullptr;
    if (field == nullptr)
        throw ksEditorError(ksContainers::label(container) + QStringLiteral(" has no field '") + name +
                            QStringLiteral("' that can be edited"));
    return *field;
}

} // namespace

ksFieldBaseUndoCommand *ksFieldEdits::make(const QString &text, const osg::FieldContainerPtr &container,
                                           const QString &field, const QVariant &value, ksMerging merging,
                                           QUndoCommand *parent)
{
    osg::Field &target = findField(container, field);
    const std::string name = field.toStdString();
    ksFieldBaseUndoCommand *command = nullptr;

    const auto makeNumeric = [&](auto &typed) {
        using T = typename std::decay_t<decltype(typed)>::StoredType;
        const std::optional<T> number = ksLooseNumber::to<T>(value);
        if (!number)
            refuseValue(target, field, value);
        command = new ksFieldUndoCommand<T>(text, container, name, *number, parent);
    };
    if (!ksNumericFields::visit(target, makeNumeric)) {
        if (target.getType() != osg::SFBool::getClassType())
            throw ksEditorError(QStringLiteral("the field '") + field + QStringLiteral("' of ") +
                                ksContainers::label(container) + QStringLiteral(" is an ") +
                                QString::fromLatin1(target.getType().getCName()) +
                                QStringLiteral(", which cannot be edited"));
        if (value.userType() != QMetaType::Bool)
            refuseValue(target, field, value);
        command = new ksBoolFieldUndoCommand(text, container, name, value.toBool(), parent);
    }
    ksMergingAs(merging, command);
    return command;
}

QString ksFieldEdits::defaultText(const osg::FieldContainerPtr &container, const QString &field)
{
    return QStringLiteral("Set ") + field + QStringLiteral(" of '") + ksContainers::nameOf(container) +
           QLatin1Char('\'');
}
