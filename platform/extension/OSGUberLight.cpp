// SPDX-License-Identifier: MIT
#include "OSGUberLight.h"

#include <OpenSG/OSGNode.h>

#include <cmath>

OSG_BEGIN_NAMESPACE

OSG_DEFINE_CONTAINER(UberLight, Group, "", OSG_UBER_LIGHT_FIELDS)

namespace {

/// What is left of an intensity of 1 at @p distance.
Real64 falloff(UberLight::LightAttenuation mode, Real64 distance)
{
    switch (mode) {
    case UberLight::Linear:
        return 1 / distance;
    case UberLight::Quadratic:
        return 1 / (distance * distance);
    default:
        return 1;
    }
}

} // namespace

UberLight::UberLight(const UberLight &source)
    : Inherited(source)
{
    _sfVisibilityReference.setValue(NullFC);
}

UberLight::~UberLight(void)
{
    setVisibilityReference(NullFC);
}

UberLight::LightAttenuation UberLight::getAttenuation(void) const
{
    return static_cast<LightAttenuation>(Inherited::getAttenuation());
}

void UberLight::setAttenuation(LightAttenuation mode)
{
    const Real64 distance = getReferenceDistance();
    if (distance > 0 && std::isfinite(distance)) {
        const Real64 factor = falloff(getAttenuation(), distance) / falloff(mode, distance);
        setIntensity(static_cast<Real32>(getIntensity() * factor));
    }
    Inherited::setAttenuation(mode);
}

void UberLight::setVisibilityReference(const NodePtr &node)
{
    setRefdCP(_sfVisibilityReference.getValue(), node);
}

OSG_END_NAMESPACE
