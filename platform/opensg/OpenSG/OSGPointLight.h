// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGLight.h>
#include <OpenSG/OSGVecFieldTypes.h>

OSG_BEGIN_NAMESPACE

#define OSG_POINT_LIGHT_FIELDS(SF, MF) SF(SFPnt3f, position, Position, Pnt3f(0, 0, 0))

OSG_CONTAINER_POINTER(PointLight, LightPtr)
OSG_CONTAINER_BASE(PointLight, Light, OSG_POINT_LIGHT_FIELDS)

/// Light from a point, in the beacon's coordinates.
class PointLight : public PointLightBase
{
    OSG_CONTAINER(PointLight)
};

OSG_END_NAMESPACE
