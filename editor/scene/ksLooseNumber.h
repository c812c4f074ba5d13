// SPDX-License-Identifier: MIT
#pragma once

#include <QVariant>

#include <cmath>
#include <limits>
#include <optional>
#include <type_traits>

/// @file
/// Numbers of which only the running program knows what they are: from scripts and from model files.

namespace ksLooseNumber {

/// \a value as a whole number: an integer of any width, a floating-point number without a fraction, or
/// decimal digits as text, which carry 64 bits through languages whose numbers do not. Nothing for any other
/// value and for one out of range.
std::optional<long long> toSigned(const QVariant &value);
std::optional<unsigned long long> toUnsigned(const QVariant &value);

/// \a value as a floating-point number; nothing when it is not a number.
std::optional<double> toReal(const QVariant &value);

/// \a value as a \a T, which is an integer or floating-point type; nothing when it is not a number or does
/// not fit. A double is rounded to the nearest float.
template <class T>
std::optional<T> to(const QVariant &value)
{
    if constexpr (std::is_floating_point_v<T>) {
        const std::optional<double> number = toReal(value);
        const double largest = std::numeric_limits<T>::max();
        if (number && std::isfinite(*number) && (*number > largest || *number < -largest))
            return std::nullopt;
        return number ? std::optional<T>(static_cast<T>(*number)) : std::nullopt;
    } else {
        const auto number = [&value] {
            if constexpr (std::is_signed_v<T>)
                return toSigned(value);
            else
                return toUnsigned(value);
        }();
        if (!number || *number < std::numeric_limits<T>::min() || *number > std::numeric_limits<T>::max())
            return std::nullopt;
        return static_cast<T>(*number);
    }
}

} // namespace ksLooseNumber
