// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGPointLight.h>

OSG_BEGIN_NAMESPACE

#define OSG_SPOT_LIGHT_FIELDS(SF, MF)                 \
    SF(SFVec3f, direction, Direction, Vec3f(0, 0, 1)) \
    SF(SFReal32, spotExponent, SpotExponent, 0)       \
    SF(SFReal32, spotCutOff, SpotCutOff, 0)

OSG_CONTAINER_POINTER(SpotLight, PointLightPtr)
OSG_CONTAINER_BASE(SpotLight, PointLight, OSG_SPOT_LIGHT_FIELDS)

/// Light in a cone along the direction. The cut-off is the angle between the cone's axis and its side in
/// radians, the exponent says how fast the light fades towards the side.
class SpotLight : public SpotLightBase
{
    OSG_CONTAINER(SpotLight)

public:
    using Inherited::setDirection;
    void setDirection(Real32 x, Real32 y, Real32 z) { setDirection(Vec3f(x, y, z)); }
};

OSG_END_NAMESPACE
