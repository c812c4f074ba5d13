// SPDX-License-Identifier: MIT
#pragma once

#include <OSGUberLight.h>

#include <QJsonObject>

/// Makes lights of glTF files of lights of the scene graph.
namespace ksLightExporter {

/// The light as KHR_lights_punctual has it, named \a name. One that shines evenly on the half of the world
/// before it is one from afar, one with a cone of more than that shines everywhere. Lights of glTF fade with
/// the square of the distance: a light of another mode is as bright as it should be at its reference
/// distance.
QJsonObject toGltf(const osg::UberLightPtr &light, const QString &name);

} // namespace ksLightExporter
