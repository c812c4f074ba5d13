// SPDX-License-Identifier: MIT
#pragma once

#include "OSGTransform3D.h"

OSG_BEGIN_NAMESPACE

/// Bits of a variant's apply flags: the components of its transform that take the place of the node's when
/// the variant is selected. The other components of the node stay.
namespace TransformVariantFlags {

constexpr UInt64 Translation = 0x1;
/// Rotation and Euler angles.
constexpr UInt64 Rotation = 0x2;
constexpr UInt64 Scale = 0x4;
constexpr UInt64 Shear = 0x8;
constexpr UInt64 ScalePivot = 0x10;
constexpr UInt64 RotatePivot = 0x20;
constexpr UInt64 ScalePivotTranslation = 0x40;
constexpr UInt64 RotatePivotTranslation = 0x80;
constexpr UInt64 RotationOrientation = 0x100;
/// Direction, its mode and whether it is on.
constexpr UInt64 RotationDirection = 0x200;
constexpr UInt64 EulerRotationOrder = 0x400;
constexpr UInt64 InheritType = 0x800;
constexpr UInt64 AllComponents = 0xFFF;

} // namespace TransformVariantFlags

#define OSG_TRANSFORM_VARIANT_FIELDS(SF, MF)                                   \
    SF(SFString, name, Name, std::string())                                    \
    SF(SFUInt64, applyFlags, ApplyFlags, TransformVariantFlags::AllComponents) \
    SF(SFTransform3DPtr, transform, Transform, NullFC)

OSG_CONTAINER_POINTER(TransformVariant, FieldContainerPtr)
OSG_CONTAINER_BASE(TransformVariant, FieldContainer, OSG_TRANSFORM_VARIANT_FIELDS)

/// A named alternative to the transform of the node whose attachment lists it: a transform of its own, which
/// is no node's core, and flags that say which components of it apply (TransformVariantFlags; all at first).
/// It starts without a transform.
class TransformVariant : public TransformVariantBase
{
    OSG_CONTAINER_MEMBERS(TransformVariant)

public:
    /// Replaces the stored transform; null takes it away. Releases the old one, which may destroy it, and
    /// takes a reference on the new one. The edit of this variant is up to the caller.
    void setTransform(const Transform3DPtr &transform);

protected:
    TransformVariant(void) = default;

    /// The transform belongs to @p source and is not copied.
    TransformVariant(const TransformVariant &source);
    ~TransformVariant(void) override;
};

OSG_END_NAMESPACE
