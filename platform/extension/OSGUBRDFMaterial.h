// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGMaterial.h>
#include <OpenSG/OSGVecFieldTypes.h>

OSG_BEGIN_NAMESPACE

#define OSG_UBRDF_MATERIAL_FIELDS(SF, MF)                \
    SF(SFVec3f, baseColor, BaseColor, Vec3f(1, 1, 1))    \
    SF(SFReal32, roughness, Roughness, 0.5f)             \
    SF(SFReal32, metalness, Metalness, 0)                \
    SF(SFReal32, refractionIndex, RefractionIndex, 1.5f) \
    SF(SFMaterialPtr, environment, Environment, NullFC)

OSG_CONTAINER_POINTER(UBRDFMaterial, MaterialPtr)
OSG_CONTAINER_BASE(UBRDFMaterial, Material, OSG_UBRDF_MATERIAL_FIELDS)

/// Physically based material: a colour (red, green, blue; 1 is full), roughness (0 a mirror, 1 chalk),
/// metalness (0 to 1), refraction index, and as environment the material of what it mirrors, on which it
/// holds a reference.
class UBRDFMaterial : public UBRDFMaterialBase
{
    OSG_CONTAINER_MEMBERS(UBRDFMaterial)

public:
    /// Replaces the environment; null takes it away. Releases the old one, which may destroy it, and takes a
    /// reference on the new one. The edit of this material is up to the caller.
    void setEnvironment(const MaterialPtr &environment);

protected:
    UBRDFMaterial(void) = default;

    /// The environment is not copied.
    UBRDFMaterial(const UBRDFMaterial &source);
    ~UBRDFMaterial(void) override;
};

OSG_END_NAMESPACE
