// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGConfig.h>

#include <limits>
#include <type_traits>

OSG_BEGIN_NAMESPACE

typedef char Char8;
typedef unsigned char UChar8;
typedef signed char Int8;
typedef unsigned char UInt8;
typedef short Int16;
typedef unsigned short UInt16;
typedef int Int32;
typedef unsigned int UInt32;
typedef long long Int64;
typedef unsigned long long UInt64;
typedef float Real32;
typedef double Real64;

/// Seconds.
typedef Real64 Time;

/// Numbers that differ by no more than this count as equal where vectors and colours are compared.
constexpr Real32 Eps = 1e-6f;

/// A set of fields: bit n stands for the field with id n. Bit 0 is unused, as ids start at 1.
typedef UInt64 BitVector;

static_assert(sizeof(Int16) == 2 && sizeof(Int32) == 4 && sizeof(Int64) == 8, "integer widths");

/// Constants of arithmetic types.
template <class T>
struct TypeTraits
{
    static_assert(std::is_arithmetic_v<T>);

    static constexpr T Zero = T(0);
    static constexpr T One = T(1);

    /// Smallest and largest value; Min of a floating type is its most negative one.
    static constexpr T Min = std::numeric_limits<T>::lowest();
    static constexpr T Max = std::numeric_limits<T>::max();

    static constexpr T getZeroElement(void) { return Zero; }
    static constexpr T getOneElement(void) { return One; }
    static constexpr T getMin(void) { return Min; }
    static constexpr T getMax(void) { return Max; }
};

OSG_END_NAMESPACE
