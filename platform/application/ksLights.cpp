// SPDX-License-Identifier: MIT
#include "ksLights.h"

namespace {

using osg::UberLight;

/// Null if the node is no light.
osg::UberLightPtr lightOf(const osg::NodePtr &node)
{
    return node ? osg::UberLightPtr::dcast(node->getCore()) : osg::UberLightPtr();
}

/// The value of a field of the light; zero if the node is no light.
template <class T>
T read(const osg::NodePtr &node, osg::SField<T> *(UberLight::*field)())
{
    const osg::UberLightPtr light = lightOf(node);
    return light ? ((*light).*field)()->getValue() : T();
}

template <class T>
void write(const osg::NodePtr &node, osg::SField<T> *(UberLight::*field)(), osg::BitVector mask,
           const T &value)
{
    if (const osg::UberLightPtr light = lightOf(node)) {
        const osg::CPEditor edit(light, mask);
        ((*light).*field)()->setValue(value);
    }
}

} // namespace

osg::Vec3f ksLights::getDiffuse(const osg::NodePtr &node)
{
    return read<osg::Vec3f>(node, &UberLight::getSFDiffuse);
}

void ksLights::setDiffuse(const osg::NodePtr &node, const osg::Vec3f &color)
{
    write<osg::Vec3f>(node, &UberLight::getSFDiffuse, UberLight::DiffuseFieldMask, color);
}

osg::Vec3f ksLights::getGlossy(const osg::NodePtr &node)
{
    return read<osg::Vec3f>(node, &UberLight::getSFGlossy);
}

void ksLights::setGlossy(const osg::NodePtr &node, const osg::Vec3f &color)
{
    write<osg::Vec3f>(node, &UberLight::getSFGlossy, UberLight::GlossyFieldMask, color);
}

float ksLights::getLightValue(const osg::NodePtr &node)
{
    return read<float>(node, &UberLight::getSFIntensity);
}

void ksLights::setLightValue(const osg::NodePtr &node, float value)
{
    write<float>(node, &UberLight::getSFIntensity, UberLight::IntensityFieldMask, value);
}

float ksLights::getPenumbraAngle(const osg::NodePtr &node)
{
    return read<float>(node, &UberLight::getSFPenumbraAngle);
}

void ksLights::setPenumbraAngle(const osg::NodePtr &node, float angle)
{
    write<float>(node, &UberLight::getSFPenumbraAngle, UberLight::PenumbraAngleFieldMask, angle);
}

float ksLights::getConeAngle(const osg::NodePtr &node)
{
    return read<float>(node, &UberLight::getSFConeAngle);
}

void ksLights::setConeAngle(const osg::NodePtr &node, float angle)
{
    write<float>(node, &UberLight::getSFConeAngle, UberLight::ConeAngleFieldMask, angle);
}

UberLight::LightAttenuation ksLights::getAttenuation(const osg::NodePtr &node)
{
    const osg::UberLightPtr light = lightOf(node);
    return light ? light->getAttenuation() : UberLight::None;
}

void ksLights::setAttenuation(const osg::NodePtr &node, UberLight::LightAttenuation attenuation)
{
    if (const osg::UberLightPtr light = lightOf(node)) {
        const osg::CPEditor edit(light, UberLight::AttenuationFieldMask | UberLight::IntensityFieldMask);
        light->setAttenuation(attenuation);
    }
}

bool ksLights::isInstance(const osg::NodePtr &node)
{
    return node && (node->getExternalFlags() & osg::NodeExternalFlags::Instance) != 0;
}

bool ksLights::isExcludedFromInstanceSubstitution(const osg::NodePtr &node)
{
    return node && (node->getInternalFlags() & osg::NodeInternalFlags::ExcludedFromInstanceSubstitution) != 0;
}
