// SPDX-License-Identifier: MIT
#pragma once

#include "OSGPrecision.h"

OSG_BEGIN_NAMESPACE

/// What a matrix does to directions, as the product rotation * shear * scale.
///
/// The shear moves x by shear.x() for each unit of y and by shear.y() for each unit of z, and y by shear.z()
/// for each unit of z. A matrix that mirrors has an odd number of negative scale factors: one or all three,
/// whichever turns least.
struct AffineFactors
{
    Quaterniond rotation;
    Vec3d shear;
    Vec3d scale{1, 1, 1};

    /// The factors of @p matrix. False, and no change, where there are none: if the last row is not (0, 0, 0,
    /// 1), if an element is not finite, if a scale factor is no normal number in single precision, or if a
    /// singular matrix is so for another reason than columns of zeros, which are scale factors of 0.
    bool setFactorsOf(const Matrix &matrix);
};

OSG_END_NAMESPACE
