// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cmath>

/// Numbers of files and scenes as they have to be.
namespace ksSoundNumbers {

/// \a value itself; 0 when it is not finite.
inline float finite(float value)
{
    return std::isfinite(value) ? value : 0;
}

/// The same for one that is at least 0.
inline float positive(float value)
{
    return std::max(finite(value), 0.0F);
}

/// The same for one from 0 to 1.
inline float share(float value)
{
    return std::min(positive(value), 1.0F);
}

/// Whether all \a count numbers at \a values are finite.
template <class T>
bool areFinite(const T *values, unsigned int count)
{
    return std::all_of(values, values + count, [](T value) { return std::isfinite(value); });
}

} // namespace ksSoundNumbers
