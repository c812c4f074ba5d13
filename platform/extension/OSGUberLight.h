// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGGroup.h>
#include <OpenSG/OSGSysFieldTypes.h>
#include <OpenSG/OSGVecFieldTypes.h>

OSG_BEGIN_NAMESPACE

#define OSG_UBER_LIGHT_FIELDS(SF, MF)                     \
    SF(SFVec3f, diffuse, Diffuse, Vec3f(1, 1, 1))         \
    SF(SFVec3f, glossy, Glossy, Vec3f(1, 1, 1))           \
    SF(SFReal32, intensity, Intensity, 1)                 \
    SF(SFReal32, penumbraAngle, PenumbraAngle, 0)         \
    SF(SFReal32, coneAngle, ConeAngle, 180)               \
    SF(SFUInt32, attenuation, Attenuation, 0)             \
    SF(SFReal32, referenceDistance, ReferenceDistance, 3) \
    SF(SFNodePtr, visibilityReference, VisibilityReference, NullFC)

OSG_CONTAINER_POINTER(UberLight, GroupPtr)
OSG_CONTAINER_BASE(UberLight, Group, OSG_UBER_LIGHT_FIELDS)

/// Core of a node that shines, from the node's place along its negative z axis. Not an osg::Light: that one
/// has a diffuse colour with opacity and three factors for the attenuation, this one has a plain colour and a
/// mode, under the same names.
///
/// - **diffuse** and **glossy** are the colours (red, green, blue; 1 is full) that matt and shiny surfaces
///   reflect, both multiplied by **intensity**.
/// - **coneAngle** is the whole opening of the cone of light, **penumbraAngle** what is added to it, over
///   which the light fades out; degrees.
/// - **attenuation** is a LightAttenuation; **referenceDistance** the distance, in units of the scene, at
///   which a change of it leaves the brightness as it was.
/// - **visibilityReference** is the node that has to be visible for the light to shine; null: it always does.
///   The light holds a reference on it, so a light below its own visibility reference has to let go of it
///   before both can go.
class UberLight : public UberLightBase
{
    OSG_CONTAINER_MEMBERS(UberLight)

public:
    /// What is left of the intensity at distance d: all of it, 1 / d or 1 / (d * d) of it.
    enum LightAttenuation : UInt32
    {
        None = 0,
        Linear = 1,
        Quadratic = 2
    };

    LightAttenuation getAttenuation(void) const;

    /// Sets the mode, and scales the intensity so that the light is as bright as before at the reference
    /// distance; unless that is not above 0 and finite, then the intensity stays. Going to a mode and back
    /// gives an intensity that is the same up to rounding only. A mode that is none of the three counts as
    /// None. The edit of both fields is up to the caller.
    void setAttenuation(LightAttenuation mode);

    /// Replaces the reference; null takes it away. Releases the old one, which may destroy it, and takes a
    /// reference on the new one. The edit of this light is up to the caller.
    void setVisibilityReference(const NodePtr &node);

protected:
    UberLight(void) = default;

    /// The visibility reference is not copied.
    UberLight(const UberLight &source);
    ~UberLight(void) override;
};

OSG_END_NAMESPACE
