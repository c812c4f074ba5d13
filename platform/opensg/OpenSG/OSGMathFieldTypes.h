// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGMField.h>
#include <OpenSG/OSGMatrix.h>
#include <OpenSG/OSGSField.h>

/// @file
/// Fields of matrices and quaternions.

OSG_BEGIN_NAMESPACE

/// The 16 numbers, row by row.
template <>
struct ValueText<Matrix>
{
    static bool getFromString(Matrix &value, const Char8 *text);
    static void putToString(const Matrix &value, std::string &text);
};

OSG_FIELD_VALUE(FieldDataTraits, 0, Matrix, Matrix)
OSG_FIELD_VALUE(FieldDataTraits, 0, Quaternion, Quaternion)

OSG_END_NAMESPACE
