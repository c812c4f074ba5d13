// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGBaseTypes.h>

OSG_BEGIN_NAMESPACE

/// Masks that belong to no container in particular.
namespace FieldBits {

constexpr BitVector NoField = 0;
constexpr BitVector AllFields = ~NoField;

#define OSG_FIELD_BIT(Id) constexpr BitVector Field##Id = TypeTraits<BitVector>::One << Id;
OSG_FIELD_BIT(0)
OSG_FIELD_BIT(1)
OSG_FIELD_BIT(2)
OSG_FIELD_BIT(3)
OSG_FIELD_BIT(4)
OSG_FIELD_BIT(5)
OSG_FIELD_BIT(6)
OSG_FIELD_BIT(7)
OSG_FIELD_BIT(8)
OSG_FIELD_BIT(9)
OSG_FIELD_BIT(10)
OSG_FIELD_BIT(11)
OSG_FIELD_BIT(12)
OSG_FIELD_BIT(13)
OSG_FIELD_BIT(14)
OSG_FIELD_BIT(15)
OSG_FIELD_BIT(16)
OSG_FIELD_BIT(17)
OSG_FIELD_BIT(18)
OSG_FIELD_BIT(19)
OSG_FIELD_BIT(20)
OSG_FIELD_BIT(21)
OSG_FIELD_BIT(22)
OSG_FIELD_BIT(23)
OSG_FIELD_BIT(24)
OSG_FIELD_BIT(25)
OSG_FIELD_BIT(26)
OSG_FIELD_BIT(27)
OSG_FIELD_BIT(28)
OSG_FIELD_BIT(29)
OSG_FIELD_BIT(30)
OSG_FIELD_BIT(31)
#undef OSG_FIELD_BIT

} // namespace FieldBits

/// Who makes a change handler run.
namespace ChangedOrigin {

/// The end of an edit.
constexpr UInt32 External = 0x1;
/// A change list applied to another aspect.
constexpr UInt32 Sync = 0x2;
/// A container that this one refers to has changed.
constexpr UInt32 Child = 0x4;
constexpr UInt32 Abstract = 0x8;
constexpr UInt32 AbstrIgnoreCore = 0x100;
constexpr UInt32 AbstrIgnoreChild = 0x200;
constexpr UInt32 AbstrCheckValid = 0x400;
constexpr UInt32 AbstrIncRefCount = 0x800;

} // namespace ChangedOrigin

OSG_END_NAMESPACE
