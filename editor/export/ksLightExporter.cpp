// SPDX-License-Identifier: MIT
#include <editor/export/ksLightExporter.h>

#include <QJsonArray>
#include <QtMath>

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr float HalfTurn = 180;

/// The outer angle of a cone has to be larger than the inner one.
constexpr double SmallestPenumbra = 1e-4;
const double WidestOuter = qDegreesToRadians(HalfTurn / 2.0);

double positive(double value)
{
    return std::isfinite(value) ? std::clamp(value, 0.0, double(std::numeric_limits<float>::max())) : 0.0;
}

/// By how much the intensity of a light that fades with the square of the distance is higher.
double brightening(const osg::UberLight &light)
{
    const double distance = light.getReferenceDistance();
    if (!(distance > 0) || !std::isfinite(distance))
        return 1;
    switch (light.getAttenuation()) {
    case osg::UberLight::None:
        return distance * distance;
    case osg::UberLight::Linear:
        return distance;
    default:
        return 1;
    }
}

bool isFromAfar(const osg::UberLight &light)
{
    return light.getAttenuation() == osg::UberLight::None && light.getConeAngle() == HalfTurn &&
           light.getPenumbraAngle() == 0;
}

QJsonObject coneOf(const osg::UberLight &light)
{
    const double inner = std::clamp(qDegreesToRadians(positive(light.getConeAngle()) / 2), 0.0,
                                    WidestOuter - SmallestPenumbra);
    const double outer = inner + qDegreesToRadians(positive(light.getPenumbraAngle()) / 2);
    return {{QStringLiteral("innerConeAngle"), inner},
            {QStringLiteral("outerConeAngle"), std::clamp(outer, inner + SmallestPenumbra, WidestOuter)}};
}

} // namespace

QJsonObject ksLightExporter::toGltf(const osg::UberLightPtr &light, const QString &name)
{
    const osg::Vec3f &diffuse = light->getDiffuse();
    const double components[] = {positive(diffuse[0]), positive(diffuse[1]), positive(diffuse[2])};
    // Colours of glTF end at 1.
    const double peak = std::max({1.0, components[0], components[1], components[2]});
    const bool isDirectional = isFromAfar(*light);
    const double intensity = light->getIntensity() * peak * (isDirectional ? 1 : brightening(*light));

    QJsonObject result{{QStringLiteral("color"),
                        QJsonArray{components[0] / peak, components[1] / peak, components[2] / peak}},
                       {QStringLiteral("intensity"), positive(intensity)}};
    if (!name.isEmpty())
        result.insert(QStringLiteral("name"), name);
    QString type = isDirectional ? QStringLiteral("directional") : QStringLiteral("point");
    if (!isDirectional && light->getConeAngle() <= HalfTurn) {
        type = QStringLiteral("spot");
        result.insert(QStringLiteral("spot"), coneOf(*light));
    }
    result.insert(QStringLiteral("type"), type);
    return result;
}
