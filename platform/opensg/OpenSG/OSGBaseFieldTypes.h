// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGColor.h>
#include <OpenSG/OSGDynamicVolume.h>
#include <OpenSG/OSGMField.h>
#include <OpenSG/OSGSField.h>

/// @file
/// Fields of flags, texts, colours and volumes, and of the numbers that C++ does not tell from plain ones.

OSG_BEGIN_NAMESPACE

/// Six numbers, the corners.
template <>
struct ValueText<DynamicVolume>
{
    static bool getFromString(DynamicVolume &value, const Char8 *text);
    static void putToString(const DynamicVolume &value, std::string &text);
};

OSG_FIELD_VALUE_OF(FieldDataTraits2, 2, bool, Bool, "bool", ValueText<bool>)
OSG_FIELD_VALUE_OF(FieldDataTraits, 0, std::string, String, "string", ValueText<std::string>)
OSG_FIELD_VALUE(FieldDataTraits1, 1, Time, Time)
OSG_FIELD_VALUE_OF(FieldDataTraits1, 1, BitVector, BitVector, "BitVector", NoValueText<BitVector>)
OSG_FIELD_VALUE(FieldDataTraits1, 1, UInt32, GLenum)
OSG_FIELD_VALUE(FieldDataTraits, 0, Color3f, Color3f)
OSG_FIELD_VALUE(FieldDataTraits, 0, Color4f, Color4f)
OSG_FIELD_VALUE(FieldDataTraits, 0, DynamicVolume, DynamicVolume)

OSG_END_NAMESPACE
