// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGMField.h>
#include <OpenSG/OSGMatrix.h>
#include <OpenSG/OSGSField.h>

/// @file
/// Fields of matrices and quaternions.

OSG_BEGIN_NAMESPACE

OSG_FIELD_VALUE(FieldDataTraits, 0, Matrix, Matrix)
OSG_FIELD_VALUE(FieldDataTraits, 0, Quaternion, Quaternion)

OSG_END_NAMESPACE
