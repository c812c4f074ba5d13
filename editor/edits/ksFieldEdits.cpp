// SPDX-License-Identifier: MIT
#include <editor/edits/ksFieldEdits.h>
#include <editor/edits/ksFieldRanges.h>
#include <editor/edits/ksValueKinds.h>
#include <editor/ksEditorError.h>
#include <editor/scene/ksContainers.h>
#include <editor/scene/ksLooseNumber.h>
#include <editor/scene/ksNumericFields.h>

#include <ksundo/field/ksBoolFieldUndoCommand.h>
#include <ksundo/field/ksFieldUndoCommand.h>
#include <ksundo/field/ksStringFieldUndoCommand.h>
#include <ksundo/field/ksStringsFieldUndoCommand.h>

#include <OSGTransform3D.h>
#include <OpenSG/OSGColor.h>
#include <OpenSG/OSGFieldDescription.h>
#include <OpenSG/OSGMFBaseTypes.h>
#include <OpenSG/OSGSFBaseTypes.h>
#include <OpenSG/OSGSFVecTypes.h>

#include <algorithm>

namespace {

/// A field that is to be edited, and what it is to hold.
class Edit
{
public:
    Edit(const osg::FieldContainerPtr &target, const QString &field, const QVariant &given)
        : container(target)
        , value(given)
    {
        const osg::FieldDescription *description =
            ksFieldBaseUndoCommand::findField(container, field.toStdString());
        found = description != nullptr ? description->getField(container) : nullptr;
        if (found == nullptr)
            throw ksEditorError(ksContainers::label(container) + QStringLiteral(" has no field '") + field +
                                QStringLiteral("' that can be edited"));
        name = QString::fromLatin1(description->getCName());
        const bool isRotation =
            name == QLatin1String("eulerRotation") || name == QLatin1String("eulerRotationOrder");
        if (isRotation && osg::Transform3DPtr::dcast(container) != osg::NullFC)
            throw ksEditorError(QStringLiteral("the field '") + name + QStringLiteral("' of ") +
                                ksContainers::label(container) + QStringLiteral(" is edited by its node"));
    }

    /// Calls \a use(field, value), both of the field's own type.
    template <class Use>
    void visit(const Use &use) const
    {
        const auto useNumber = [this, &use](auto &typed) {
            using T = typename std::decay_t<decltype(typed)>::StoredType;
            use(typed, this->numberFrom<T>(value));
        };
        const auto useTuple = [this, &use](auto &typed) {
            using T = typename std::decay_t<decltype(typed)>::StoredType;
            use(typed, this->tupleFrom<T>());
        };
        if (ksNumericFields::visit(*found, useNumber) ||
            ksNumericFields::visitAs<osg::Vec2f, osg::Vec3f, osg::Vec4f, osg::Pnt3f, osg::Color3f,
                                     osg::Color4f>(*found, useTuple))
            return;
        if (found->getType() == osg::SFBool::getClassType()) {
            refuseUnless(value.userType() == QMetaType::Bool, value);
            use(static_cast<osg::SFBool &>(*found), value.toBool());
        } else if (found->getType() == osg::SFString::getClassType()) {
            refuseUnless(value.userType() == QMetaType::QString, value);
            use(static_cast<osg::SFString &>(*found), value.toString().toStdString());
        } else if (found->getType() == osg::MFString::getClassType()) {
            use(static_cast<osg::MFString &>(*found), textsFrom());
        } else
            throw ksEditorError(QStringLiteral("the field '") + name + QStringLiteral("' of ") +
                                ksContainers::label(container) + QStringLiteral(" cannot be edited"));
    }

private:
    /// Throws unless \a part, the value or an element of it, \a fits.
    void refuseUnless(bool fits, const QVariant &part) const
    {
        if (!fits)
            ksValueKinds::refuse(name, ksValueKinds::ofField(*found),
                                 (&part == &value ? QString() : QStringLiteral("an array with ")) +
                                     ksValueKinds::shown(part));
    }

    template <class T>
    T numberFrom(const QVariant &given) const
    {
        const std::optional<T> number = ksLooseNumber::to<T>(given);
        refuseUnless(number && (sizeof(T) == 8 || given.userType() != QMetaType::QString), given);
        ksFieldRanges::check(container, name, {static_cast<double>(*number)});
        return *number;
    }

    template <class T>
    T tupleFrom() const
    {
        const QVariantList list = value.toList();
        refuseUnless(list.size() == static_cast<int>(T::Size), value);
        T tuple;
        for (int i = 0; i < list.size(); ++i)
            tuple[static_cast<osg::UInt32>(i)] = numberFrom<float>(list[i]);
        return tuple;
    }

    osg::MFString textsFrom() const
    {
        const bool isList =
            value.userType() == QMetaType::QVariantList || value.userType() == QMetaType::QStringList;
        refuseUnless(isList, value);
        osg::MFString texts;
        for (const QVariant &text : value.toList()) {
            refuseUnless(text.userType() == QMetaType::QString, text);
            texts.push_back(text.toString().toStdString());
        }
        return texts;
    }

    const osg::FieldContainerPtr container;
    QString name;
    const QVariant value;
    osg::Field *found;
};

} // namespace

ksFieldBaseUndoCommand *ksFieldEdits::make(const QString &text, const osg::FieldContainerPtr &container,
                                           const QString &field, const QVariant &value, ksMerging merging,
                                           QUndoCommand *parent)
{
    const std::string name = field.toStdString();
    ksFieldBaseUndoCommand *command = nullptr;
    Edit(container, field, value).visit([&](auto &, const auto &wanted) {
        using T = std::decay_t<decltype(wanted)>;
        if constexpr (std::is_same_v<T, bool>)
            command = new ksBoolFieldUndoCommand(text, container, name, wanted, parent);
        else if constexpr (std::is_same_v<T, std::string>)
            command = new ksStringFieldUndoCommand(text, container, name, wanted, parent);
        else if constexpr (std::is_same_v<T, osg::MFString>)
            command = new ksStringsFieldUndoCommand(text, container, name, wanted, parent);
        else
            command = new ksFieldUndoCommand<T>(text, container, name, wanted, parent);
    });
    ksMergingAs(merging, command);
    return command;
}

bool ksFieldEdits::holds(const osg::FieldContainerPtr &container, const QString &field, const QVariant &value)
{
    bool same = false;
    Edit(container, field, value).visit([&same](const auto &typed, const auto &wanted) {
        using T = std::decay_t<decltype(wanted)>;
        if constexpr (std::is_same_v<T, osg::MFString>)
            same = typed == wanted;
        else if constexpr (std::is_arithmetic_v<T> || std::is_same_v<T, std::string>)
            same = typed.getValue() == wanted;
        else // exactly, which their own comparison is not
            same = std::equal(wanted.getValues(), wanted.getValues() + T::Size, typed.getValue().getValues());
    });
    return same;
}

QString ksFieldEdits::defaultText(const osg::FieldContainerPtr &container, const QString &field)
{
    return QStringLiteral("Set ") + field + QStringLiteral(" of '") + ksContainers::nameOf(container) +
           QLatin1Char('\'');
}
