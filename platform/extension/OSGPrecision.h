// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGMatrix.h>

#include <algorithm>

OSG_BEGIN_NAMESPACE

/// @file
/// Double precision, for calculations whose results are kept in single precision.

typedef QuaternionBase<Real64> Quaterniond;
typedef TransformationMatrix<Real64> Matrix4d;

/// The numbers of @p source in the precision of @a ToT, a vector, quaternion or matrix of the same size.
template <class ToT, class FromT>
ToT inPrecisionOf(const FromT &source)
{
    static_assert(ToT::Size == FromT::Size);
    ToT result;
    std::copy_n(source.getValues(), UInt32(FromT::Size), result.getValues());
    return result;
}

/// @p rotation with length 1; the identity if it has length 0.
inline Quaterniond unitOf(const Quaterniond &rotation)
{
    Quaterniond result = rotation.length() > 0 ? rotation : Quaterniond();
    result.normalize();
    return result;
}

OSG_END_NAMESPACE
