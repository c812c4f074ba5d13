// SPDX-License-Identifier: MIT
#pragma once

#include "ksModelFile.h"

#include <OpenSG/OSGColor.h>
#include <OpenSG/OSGLight.h>
#include <OpenSG/OSGNode.h>
#include <OpenSG/OSGVector.h>

struct aiLight;

/// A light as the scene graph means it, whatever format it came from.
struct ksLightValues
{
    enum class Kind
    {
        Point,
        Spot,
        Directional
    };

    Kind kind = Kind::Point;

    /// Colours with components from 0 to 1; what a light radiates is its colour times its intensity.
    osg::Color4f ambient;
    osg::Color4f diffuse;
    osg::Color4f specular;

    /// At least 1: brighter lights keep their colour and have a higher intensity.
    osg::Real32 intensity = 1;

    /// The light fades with 1 / (constant + linear * d + quadratic * d * d) over the distance d. At least one
    /// of them is greater than 0.
    osg::Real32 constantAttenuation = 1;
    osg::Real32 linearAttenuation = 0;
    osg::Real32 quadraticAttenuation = 0;

    /// Relative to the light's node.
    osg::Pnt3f position;

    /// Where the light shines to, relative to the light's node; length 1.
    osg::Vec3f direction = osg::Vec3f(0, 0, -1);

    /// Half of the opening of a spot's cone, in radians, greater than 0 and at most half of pi.
    osg::Real32 spotCutOff = 0;

    /// How the light of a spot fades from the axis: with the cosine of the angle to this power, 0 to 128.
    osg::Real32 spotExponent = 0;
};

/// Makes lights of the scene graph from lights of a model file.
class ksLightImporter
{
public:
    ksLightImporter() = delete;

    /// The values of \a light, whose format's conventions are evened out: intensities that are folded into
    /// the colour, copies of the colour in the ambient share, attenuations that would divide by zero, opening
    /// angles that are halves or wholes, missing directions. Numbers that are not finite count as 0.
    static ksLightValues values(const aiLight &light, ksModelFormat format);

    /// A new light core with \a values, except the intensity, which light cores do not have. It shines from
    /// where \a beacon is.
    static osg::LightPtr createCore(const ksLightValues &values, const osg::NodePtr &beacon);
};
