// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGBaseFieldTypes.h>
#include <OpenSG/OSGGroup.h>
#include <OpenSG/OSGSysFieldTypes.h>

OSG_BEGIN_NAMESPACE

#define OSG_LIGHT_FIELDS(SF, MF)                                \
    SF(SFColor4f, ambient, Ambient, Color4f(0, 0, 0, 1))        \
    SF(SFColor4f, diffuse, Diffuse, Color4f(1, 1, 1, 1))        \
    SF(SFColor4f, specular, Specular, Color4f(1, 1, 1, 1))      \
    SF(SFNodePtr, beacon, Beacon, NullFC)                       \
    SF(SFBool, on, On, true)                                    \
    SF(SFReal32, constantAttenuation, ConstantAttenuation, 1)   \
    SF(SFReal32, linearAttenuation, LinearAttenuation, 0)       \
    SF(SFReal32, quadraticAttenuation, QuadraticAttenuation, 0) \
    SF(SFReal32, shadowIntensity, ShadowIntensity, 0)           \
    SF(SFUInt32, shadowMode, ShadowMode, 0)

OSG_CONTAINER_POINTER(Light, GroupPtr)
OSG_ABSTRACT_CONTAINER_BASE(Light, Group, OSG_LIGHT_FIELDS)

/// Core of a node whose children are lit. The light shines from the beacon, a node that it does not count a
/// reference for. Attenuation is 1 / (constant + linear * d + quadratic * d * d) at distance d.
class Light : public LightBase
{
    OSG_CONTAINER(Light)

public:
    using Inherited::setAmbient;
    using Inherited::setDiffuse;
    using Inherited::setSpecular;
    void setAmbient(Real32 r, Real32 g, Real32 b, Real32 a) { setAmbient(Color4f(r, g, b, a)); }
    void setDiffuse(Real32 r, Real32 g, Real32 b, Real32 a) { setDiffuse(Color4f(r, g, b, a)); }
    void setSpecular(Real32 r, Real32 g, Real32 b, Real32 a) { setSpecular(Color4f(r, g, b, a)); }
};

OSG_END_NAMESPACE
