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

public:
    using Inherited::setPosition;
    void setPosition(Real32 x, Real32 y, Real32 z) { setPosition(Pnt3f(x, y, z)); }

    void setAttenuation(Real32 constant, Real32 linear, Real32 quadratic)
    {
        setConstantAttenuation(constant);
        setLinearAttenuation(linear);
        setQuadraticAttenuation(quadratic);
    }
};

OSG_END_NAMESPACE
