// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGMField.h>
#include <OpenSG/OSGSField.h>

/// @file
/// Fields of plain numbers.

OSG_BEGIN_NAMESPACE

OSG_FIELD_VALUE(FieldDataTraits, 0, Int8, Int8)
OSG_FIELD_VALUE(FieldDataTraits, 0, UInt8, UInt8)
OSG_FIELD_VALUE(FieldDataTraits, 0, Int16, Int16)
OSG_FIELD_VALUE(FieldDataTraits, 0, UInt16, UInt16)
OSG_FIELD_VALUE(FieldDataTraits, 0, Int32, Int32)
OSG_FIELD_VALUE(FieldDataTraits, 0, UInt32, UInt32)
OSG_FIELD_VALUE(FieldDataTraits, 0, Int64, Int64)
OSG_FIELD_VALUE(FieldDataTraits, 0, UInt64, UInt64)
OSG_FIELD_VALUE(FieldDataTraits, 0, Real32, Real32)
OSG_FIELD_VALUE(FieldDataTraits, 0, Real64, Real64)

OSG_END_NAMESPACE
