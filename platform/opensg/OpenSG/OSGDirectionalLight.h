// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGLight.h>
#include <OpenSG/OSGVecFieldTypes.h>

OSG_BEGIN_NAMESPACE

#define OSG_DIRECTIONAL_LIGHT_FIELDS(SF, MF) SF(SFVec3f, direction, Direction, Vec3f(0, 0, 1))

OSG_CONTAINER_POINTER(DirectionalLight, LightPtr)
OSG_CONTAINER_BASE(DirectionalLight, Light, OSG_DIRECTIONAL_LIGHT_FIELDS)

/// Light from infinitely far away. The direction, in the beacon's coordinates, points towards the light.
class DirectionalLight : public DirectionalLightBase
{
    OSG_CONTAINER(DirectionalLight)

public:
    using Inherited::setDirection;
    void setDirection(Real32 x, Real32 y, Real32 z) { setDirection(Vec3f(x, y, z)); }
};

OSG_END_NAMESPACE
