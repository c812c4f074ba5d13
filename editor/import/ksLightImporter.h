// SPDX-License-Identifier: MIT
#pragma once

#include <editor/import/ksModelFile.h>

#include <OSGUberLight.h>
#include <OpenSG/OSGVector.h>

#include <QJsonObject>
#include <assimp/light.h>

/// A light as the scene graph means it, whatever format it came from.
struct ksLightValues
{
    /// Colours with components from 0 to 1; what a light radiates is its colour times its intensity.
    osg::Vec3f diffuse;
    osg::Vec3f glossy;

    /// At least 0.
    osg::Real32 intensity = 1;

    /// How the light fades, and the distance at which a change of that leaves the brightness as it was.
    osg::UberLight::LightAttenuation attenuation = osg::UberLight::None;
    osg::Real32 referenceDistance = 3;

    /// The opening of the cone of full light and what is added to it, over which the light fades out;
    /// degrees, both together at most 360.
    osg::Real32 coneAngle = 360;
    osg::Real32 penumbraAngle = 0;

    /// Relative to the light's node: where the light is, and where it shines to, of length 1.
    osg::Vec3f position;
    osg::Vec3f direction = osg::Vec3f(0, 0, -1);
};

/// Makes lights of the scene graph from lights of a model file.
class ksLightImporter
{
public:
    ksLightImporter() = delete;

    /// The values of \a light, whose format's conventions are evened out: intensities that are folded into
    /// the colour, attenuations that would divide by zero, opening angles that are halves or wholes, missing
    /// directions. Numbers that are not finite count as 0.
    ///
    /// A light that shines everywhere has a cone of 360 degrees. One from afar does not fade and shines on
    /// the half of the world that is before it. Of a mixed attenuation the steepest part gives the mode, and
    /// the intensity is such that the light is as bright as the file says at the reference distance.
    static ksLightValues values(const aiLight &light, ksModelFormat format);

    /// The values of a light of a glTF file, as KHR_lights_punctual has it.
    static ksLightValues values(const QJsonObject &light);

    /// The kind of such a light.
    static aiLightSourceType type(const QJsonObject &light);

    /// A new light core with \a values, except place and direction: a light core shines from the place of
    /// its node along the negative z axis.
    static osg::UberLightPtr createCore(const ksLightValues &values);

    /// Gives \a light these values, except place and direction, in one edit.
    static void apply(const ksLightValues &values, const osg::UberLightPtr &light);
};
