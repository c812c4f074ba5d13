// SPDX-License-Identifier: MIT
#pragma once

#include <editor/ksEditorError.h>
#include <editor/scene/ksContainers.h>
#include <editor/scene/ksLooseNumber.h>

#include <OpenSG/OSGNode.h>
#include <OpenSG/OSGVector.h>

#include <QJSValue>
#include <QString>
#include <QVariant>

#include <array>
#include <cmath>
#include <vector>

/// What scripts hand over, as the editor needs it. What does not fit throws ksEditorError.
namespace ksScriptValues {

/// What \a value is, for messages: texts and numbers as they are, of others the kind.
QString shown(const QJSValue &value);

/// Numbers, bools, texts, and lists of these as ksFieldEdits takes them; invalid for anything else.
QVariant plainFrom(const QJSValue &value);

/// The number of elements of an array.
quint32 lengthOf(const QJSValue &array);

/// \a value as a \a T; \a name is what it is for.
template <class T>
T numberFrom(const QJSValue &value, const QString &name)
{
    const auto number = ksLooseNumber::to<T>(plainFrom(value));
    if (!number || !std::isfinite(static_cast<double>(*number)))
        throw ksEditorError(QLatin1Char('\'') + shown(value) + QStringLiteral("' does not fit '") + name +
                            QLatin1Char('\''));
    return *number;
}

bool flagFrom(const QJSValue &value, const QString &name);
QString textFrom(const QJSValue &value, const QString &name);

/// An array of exactly \a Count numbers.
template <std::size_t Count>
std::array<float, Count> numbersFrom(const QJSValue &value, const QString &name)
{
    if (!value.isArray() || lengthOf(value) != Count)
        throw ksEditorError(QLatin1Char('\'') + name +
                            QStringLiteral("' is an array of %1 numbers").arg(Count));
    std::array<float, Count> numbers;
    for (quint32 i = 0; i < Count; ++i)
        numbers[i] = numberFrom<float>(value.property(i), name);
    return numbers;
}

osg::Vec3f vectorFrom(const QJSValue &value, const QString &name);

/// The container that \a value stands for; NullFC if it is null.
osg::FieldContainerPtr containerFrom(const QJSValue &value);

/// The container of the class of \a PtrT that \a value stands for; \a kind is what to call that class.
template <class PtrT>
PtrT containerFrom(const QJSValue &value, const char *kind)
{
    const osg::FieldContainerPtr given = containerFrom(value);
    const PtrT container = PtrT::dcast(given);
    if (container == osg::NullFC)
        throw ksEditorError(ksContainers::label(given) + QStringLiteral(" is no ") + QLatin1String(kind));
    return container;
}

/// One node, or those of an array.
std::vector<osg::NodePtr> nodesFrom(const QJSValue &value);

} // namespace ksScriptValues
