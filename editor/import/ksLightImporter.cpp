// SPDX-License-Identifier: MIT
#include <editor/import/ksLightImporter.h>
#include <editor/scene/ksSoundNumbers.h>

#include <QtMath>

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr float NarrowestCone = 0.1F;
constexpr float HalfTurn = 180;

using ksSoundNumbers::finite;
using ksSoundNumbers::positive;

osg::Vec3f soundColor(const aiColor3D &colour)
{
    return {positive(colour.r), positive(colour.g), positive(colour.b)};
}

float peak(const osg::Vec3f &colour)
{
    return std::max({colour[0], colour[1], colour[2]});
}

void takeColours(ksLightValues &values, const aiLight &light)
{
    values.diffuse = soundColor(light.mColorDiffuse);
    values.glossy = soundColor(light.mColorSpecular);
    // Some readers give light that comes from everywhere its ambient share only.
    if (light.mType == aiLightSource_AMBIENT && peak(values.diffuse) == 0)
        values.diffuse = soundColor(light.mColorAmbient);

    values.intensity = std::max({1.0F, peak(values.diffuse), peak(values.glossy)});
    values.diffuse *= 1 / values.intensity;
    values.glossy *= 1 / values.intensity;
}

void takeAttenuation(ksLightValues &values, const aiLight &light)
{
    const double constant = positive(light.mAttenuationConstant);
    const double linear = positive(light.mAttenuationLinear);
    const double quadratic = positive(light.mAttenuationQuadratic);
    const bool isFading = light.mType != aiLightSource_DIRECTIONAL && light.mType != aiLightSource_AMBIENT;
    if (!isFading || constant + linear + quadratic == 0)
        return;

    const double distance = values.referenceDistance;
    const double divisor = constant + linear * distance + quadratic * distance * distance;
    double divisorOfMode = 1;
    if (quadratic > 0) {
        values.attenuation = osg::UberLight::Quadratic;
        divisorOfMode = distance * distance;
    } else if (linear > 0) {
        values.attenuation = osg::UberLight::Linear;
        divisorOfMode = distance;
    }
    constexpr double Brightest = std::numeric_limits<float>::max();
    values.intensity = static_cast<float>(std::min(values.intensity * (divisorOfMode / divisor), Brightest));
}

void takePlace(ksLightValues &values, const aiLight &light)
{
    values.position =
        osg::Vec3f(finite(light.mPosition.x), finite(light.mPosition.y), finite(light.mPosition.z));
    const osg::Vec3f direction(finite(light.mDirection.x), finite(light.mDirection.y),
                               finite(light.mDirection.z));
    if (const float length = direction.length(); length > 0)
        values.direction = direction / length;
}

void takeCone(ksLightValues &values, const aiLight &light, ksModelFormat format)
{
    if (light.mType == aiLightSource_DIRECTIONAL)
        values.coneAngle = HalfTurn;
    if (light.mType != aiLightSource_SPOT)
        return;
    const float toOpening = (format == ksModelFormat::Gltf ? 2.0F : 1.0F) * ksDegreesPerRadian;
    const float inner = std::clamp(finite(light.mAngleInnerCone) * toOpening, NarrowestCone, HalfTurn);
    // COLLADA gives one angle and an exponent, from which its reader guesses a second angle that is too wide.
    const float outer = format == ksModelFormat::Collada
                            ? inner
                            : std::clamp(finite(light.mAngleOuterCone) * toOpening, inner, HalfTurn);
    values.coneAngle = inner;
    values.penumbraAngle = outer - inner;
}

} // namespace

ksLightValues ksLightImporter::values(const aiLight &light, ksModelFormat format)
{
    ksLightValues values;
    takeColours(values, light);
    takeAttenuation(values, light);
    takePlace(values, light);
    takeCone(values, light, format);
    return values;
}

aiLightSourceType ksLightImporter::type(const QJsonObject &light)
{
    const QJsonValue name = light.value(QLatin1String("type"));
    if (name == QLatin1String("directional"))
        return aiLightSource_DIRECTIONAL;
    return name == QLatin1String("spot") ? aiLightSource_SPOT : aiLightSource_POINT;
}

ksLightValues ksLightImporter::values(const QJsonObject &light)
{
    aiLight source;
    const auto intensity = static_cast<float>(light.value(QLatin1String("intensity")).toDouble(1));
    const QJsonValue color = light.value(QLatin1String("color"));
    for (int i = 0; i < 3; ++i)
        source.mColorDiffuse[static_cast<unsigned int>(i)] =
            intensity * static_cast<float>(color[i].toDouble(1));
    source.mColorSpecular = source.mColorDiffuse;
    source.mAttenuationLinear = 0;
    source.mAttenuationQuadratic = 1;
    source.mType = type(light);
    const QJsonValue spot = light.value(QLatin1String("spot"));
    source.mAngleInnerCone = static_cast<float>(spot[QLatin1String("innerConeAngle")].toDouble());
    source.mAngleOuterCone = static_cast<float>(spot[QLatin1String("outerConeAngle")].toDouble(M_PI_4));
    return values(source, ksModelFormat::Gltf);
}

osg::UberLightPtr ksLightImporter::createCore(const ksLightValues &values)
{
    const osg::UberLightPtr light = osg::UberLight::create();
    apply(values, light);
    return light;
}

void ksLightImporter::apply(const ksLightValues &values, const osg::UberLightPtr &light)
{
    CPEdit(light, osg::UberLight::DiffuseFieldMask | osg::UberLight::GlossyFieldMask |
                      osg::UberLight::IntensityFieldMask | osg::UberLight::AttenuationFieldMask |
                      osg::UberLight::ReferenceDistanceFieldMask | osg::UberLight::ConeAngleFieldMask |
                      osg::UberLight::PenumbraAngleFieldMask);
    light->setDiffuse(values.diffuse);
    light->setGlossy(values.glossy);
    light->setReferenceDistance(values.referenceDistance);
    // The mode first: setting it scales the intensity.
    light->setAttenuation(values.attenuation);
    light->setIntensity(values.intensity);
    light->setConeAngle(values.coneAngle);
    light->setPenumbraAngle(values.penumbraAngle);
}
