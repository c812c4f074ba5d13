// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGMatrix.h>

#include <algorithm>

OSG_BEGIN_NAMESPACE

/// @file
/// Double precision, for calculations whose results are kept in single precision.

typedef Vector<Real64, 3> Vec3d;
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

OSG_END_NAMESPACE
