// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGField.h>

#include <QString>
#include <QVariant>

#include <limits>
#include <type_traits>

/// What values are called in messages, in the terms of scripts.
namespace ksValueKinds {

/// What takes a \a T: "a number" or "a whole number from ... to ...".
template <class T>
QString ofNumber()
{
    if constexpr (std::is_floating_point_v<T>)
        return QStringLiteral("a number");
    else
        return QStringLiteral("a whole number from %1 to %2")
            .arg(+std::numeric_limits<T>::min())
            .arg(+std::numeric_limits<T>::max());
}

/// What \a field takes, such as "a text"; empty when it is of a type that cannot be edited.
QString ofField(const osg::Field &field);

/// \a value: numbers as they are, texts in quotes, of others what they are.
QString shown(const QVariant &value);

/// Throws ksEditorError: \a name is \a kind, not \a given.
[[noreturn]] void refuse(const QString &name, const QString &kind, const QString &given);

} // namespace ksValueKinds
