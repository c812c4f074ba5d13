// SPDX-License-Identifier: MIT
#pragma once

#include <editor/edits/ksValueKinds.h>
#include <editor/ksEditorError.h>
#include <editor/scene/ksContainers.h>
#include <editor/scene/ksLooseNumber.h>

#include <OpenSG/OSGNode.h>
#include <OpenSG/OSGVector.h>

#include <QJSValue>
#include <QString>
#include <QVariant>

#include <cmath>
#include <vector>

/// What scripts hand over, as the editor needs it. What does not fit throws ksEditorError.
namespace ksScriptValues {

/// What \a value is, for messages, see ksValueKinds; of containers, how messages call them.
QString shown(const QJSValue &value);

/// Numbers, bools, texts, null, and lists of these as ksFieldEdits takes them; an empty map for any other
/// object.
QVariant plainFrom(const QJSValue &value);

/// The number of elements of an array.
quint32 lengthOf(const QJSValue &array);

/// \a value as a \a T; \a name is what it is for. Integers of 64 bits may be texts.
template <class T>
T numberFrom(const QJSValue &value, const QString &name)
{
    const auto number = ksLooseNumber::to<T>(plainFrom(value));
    if (!number || !std::isfinite(static_cast<double>(*number)) || (value.isString() && sizeof(T) < 8))
        ksValueKinds::refuse(name, ksValueKinds::ofNumber<T>(), shown(value));
    return *number;
}

bool flagFrom(const QJSValue &value, const QString &name);
QString textFrom(const QJSValue &value, const QString &name);

/// An array of numbers as \a VectorT, a type of vectors.
template <class VectorT>
VectorT tupleFrom(const QJSValue &value, const QString &name, const QString &kind)
{
    if (!value.isArray() || lengthOf(value) != VectorT::Size)
        ksValueKinds::refuse(name, kind, shown(value));
    VectorT tuple;
    for (quint32 i = 0; i < VectorT::Size; ++i) {
        const QJSValue element = value.property(i);
        const auto number = ksLooseNumber::to<float>(plainFrom(element));
        if (!number || !std::isfinite(*number))
            ksValueKinds::refuse(name, kind, QStringLiteral("an array with ") + shown(element));
        tuple[i] = *number;
    }
    return tuple;
}

osg::Vec3f vectorFrom(const QJSValue &value, const QString &name);

/// The container that \a value, \a kind, stands for; NullFC if it is null.
osg::FieldContainerPtr containerFrom(const QJSValue &value, const char *kind);

/// The container of the class of \a PtrT that \a value stands for; \a kind is what to call that class.
template <class PtrT>
PtrT containerFrom(const QJSValue &value, const char *kind)
{
    const osg::FieldContainerPtr given = containerFrom(value, kind);
    const PtrT container = PtrT::dcast(given);
    if (container == osg::NullFC)
        throw ksEditorError(ksContainers::label(given) + QStringLiteral(" is no ") + QLatin1String(kind));
    return container;
}

/// The same; NullFC if \a value is null.
template <class PtrT>
PtrT containerOrNone(const QJSValue &value, const char *kind)
{
    return value.isNull() ? PtrT() : containerFrom<PtrT>(value, kind);
}

/// One node, or those of an array.
std::vector<osg::NodePtr> nodesFrom(const QJSValue &value);

} // namespace ksScriptValues
