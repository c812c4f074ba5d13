// SPDX-License-Identifier: MIT
#include "ksLightImporter.h"

#include <OpenSG/OSGDirectionalLight.h>
#include <OpenSG/OSGPointLight.h>
#include <OpenSG/OSGSpotLight.h>

#include <assimp/light.h>

#include <algorithm>
#include <cmath>

namespace {

constexpr float HalfPi = 1.5707963F;
constexpr float NarrowestCone = 0.001F;
constexpr float LargestExponent = 128;

float finite(float value)
{
    return std::isfinite(value) ? value : 0;
}

aiColor3D finite(const aiColor3D &colour)
{
    return {std::max(finite(colour.r), 0.0F), std::max(finite(colour.g), 0.0F),
            std::max(finite(colour.b), 0.0F)};
}

float peak(const aiColor3D &colour)
{
    return std::max({colour.r, colour.g, colour.b});
}

osg::Color4f opaque(const aiColor3D &colour)
{
    return {colour.r, colour.g, colour.b, 1};
}

ksLightValues::Kind kindOf(const aiLight &light)
{
    switch (light.mType) {
    case aiLightSource_SPOT:
        return ksLightValues::Kind::Spot;
    case aiLightSource_DIRECTIONAL:
        return ksLightValues::Kind::Directional;
    default:
        return ksLightValues::Kind::Point;
    }
}

void takeColours(ksLightValues &values, const aiLight &light)
{
    const aiColor3D diffuse = finite(light.mColorDiffuse);
    const aiColor3D specular = finite(light.mColorSpecular);
    aiColor3D ambient = finite(light.mColorAmbient);
    // Several readers fill the ambient share with the colour; only a light of that kind has one of its own.
    if (light.mType != aiLightSource_AMBIENT && ambient == diffuse)
        ambient = aiColor3D();

    values.intensity = std::max({1.0F, peak(diffuse), peak(specular), peak(ambient)});
    values.diffuse = opaque(diffuse * (1 / values.intensity));
    values.specular = opaque(specular * (1 / values.intensity));
    values.ambient = opaque(ambient * (1 / values.intensity));
}

void takeAttenuation(ksLightValues &values, const aiLight &light)
{
    if (values.kind == ksLightValues::Kind::Directional || light.mType == aiLightSource_AMBIENT)
        return;
    values.constantAttenuation = std::max(finite(light.mAttenuationConstant), 0.0F);
    values.linearAttenuation = std::max(finite(light.mAttenuationLinear), 0.0F);
    values.quadraticAttenuation = std::max(finite(light.mAttenuationQuadratic), 0.0F);
    if (values.constantAttenuation + values.linearAttenuation + values.quadraticAttenuation == 0)
        values.constantAttenuation = 1;
}

void takePlace(ksLightValues &values, const aiLight &light)
{
    values.position =
        osg::Pnt3f(finite(light.mPosition.x), finite(light.mPosition.y), finite(light.mPosition.z));
    osg::Vec3f direction(finite(light.mDirection.x), finite(light.mDirection.y), finite(light.mDirection.z));
    direction.normalize();
    if (direction.squareLength() > 0)
        values.direction = direction;
}

void takeCone(ksLightValues &values, const aiLight &light, ksModelFormat format)
{
    if (values.kind != ksLightValues::Kind::Spot)
        return;
    const float share = format == ksModelFormat::Gltf ? 1 : 0.5F;
    const float inner = std::clamp(finite(light.mAngleInnerCone) * share, NarrowestCone, HalfPi);
    // COLLADA gives one angle and an exponent, from which its reader guesses a second angle that is too wide.
    const float outer = format == ksModelFormat::Collada
                            ? inner
                            : std::clamp(finite(light.mAngleOuterCone) * share, inner, HalfPi);
    values.spotCutOff = outer;
    // Half of the light is left in the middle between the two angles.
    if (inner < outer)
        values.spotExponent =
            std::clamp(std::log(0.5F) / std::log(std::cos((inner + outer) / 2)), 0.0F, LargestExponent);
}

osg::LightPtr placed(const osg::PointLightPtr &light, const ksLightValues &values)
{
    CPEdit(light, osg::PointLight::PositionFieldMask);
    light->setPosition(values.position);
    return light;
}

osg::LightPtr createSpotLight(const ksLightValues &values)
{
    const osg::SpotLightPtr light = osg::SpotLight::create();
    CPEdit(light, osg::SpotLight::DirectionFieldMask | osg::SpotLight::SpotExponentFieldMask |
                      osg::SpotLight::SpotCutOffFieldMask);
    light->setDirection(values.direction);
    light->setSpotExponent(values.spotExponent);
    light->setSpotCutOff(values.spotCutOff);
    return placed(light, values);
}

osg::LightPtr createDirectionalLight(const ksLightValues &values)
{
    const osg::DirectionalLightPtr light = osg::DirectionalLight::create();
    CPEdit(light, osg::DirectionalLight::DirectionFieldMask);
    // The scene graph wants the way to the light.
    light->setDirection(-values.direction);
    return light;
}

osg::LightPtr createLight(const ksLightValues &values)
{
    switch (values.kind) {
    case ksLightValues::Kind::Spot:
        return createSpotLight(values);
    case ksLightValues::Kind::Directional:
        return createDirectionalLight(values);
    default:
        return placed(osg::PointLight::create(), values);
    }
}

} // namespace

ksLightValues ksLightImporter::values(const aiLight &light, ksModelFormat format)
{
    ksLightValues values;
    values.kind = kindOf(light);
    takeColours(values, light);
    takeAttenuation(values, light);
    takePlace(values, light);
    takeCone(values, light, format);
    return values;
}

osg::LightPtr ksLightImporter::createCore(const ksLightValues &values, const osg::NodePtr &beacon)
{
    const osg::LightPtr light = createLight(values);
    CPEdit(light, osg::Light::AmbientFieldMask | osg::Light::DiffuseFieldMask |
                      osg::Light::SpecularFieldMask | osg::Light::BeaconFieldMask |
                      osg::Light::ConstantAttenuationFieldMask | osg::Light::LinearAttenuationFieldMask |
                      osg::Light::QuadraticAttenuationFieldMask);
    light->setAmbient(values.ambient);
    light->setDiffuse(values.diffuse);
    light->setSpecular(values.specular);
    light->setBeacon(beacon);
    light->setConstantAttenuation(values.constantAttenuation);
    light->setLinearAttenuation(values.linearAttenuation);
    light->setQuadraticAttenuation(values.quadraticAttenuation);
    return light;
}
