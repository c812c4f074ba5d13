// SPDX-License-Identifier: MIT
#pragma once

#include <OSGUberLight.h>
#include <OpenSG/OSGNode.h>

/// Operations on light nodes: nodes whose core is an osg::UberLight. For any other node, null included,
/// getters answer with zeros and setters do nothing.
///
/// A setter is one edit of the light that names the fields it wrote, also when the value was there before.
class ksLights
{
public:
    ksLights() = delete;

    /// Colours: red, green and blue; 1 is full.
    static osg::Vector<float, 3u> getDiffuse(const osg::NodePtr &node);
    static void setDiffuse(const osg::NodePtr &node, const osg::Vector<float, 3u> &color);

    static osg::Vector<float, 3u> getGlossy(const osg::NodePtr &node);
    static void setGlossy(const osg::NodePtr &node, const osg::Vector<float, 3u> &color);

    /// The intensity.
    static float getLightValue(const osg::NodePtr &node);
    static void setLightValue(const osg::NodePtr &node, float value);

    /// Angles in degrees.
    static float getPenumbraAngle(const osg::NodePtr &node);
    static void setPenumbraAngle(const osg::NodePtr &node, float angle);

    static float getConeAngle(const osg::NodePtr &node);
    static void setConeAngle(const osg::NodePtr &node, float angle);

    /// Setting the mode changes the intensity as well, see osg::UberLight::setAttenuation().
    static osg::UberLight::LightAttenuation getAttenuation(const osg::NodePtr &node);
    static void setAttenuation(const osg::NodePtr &node, osg::UberLight::LightAttenuation attenuation);

    /// Whether the node, a light or not, stands for another one whose core it shares. False for null.
    static bool isInstance(const osg::NodePtr &node);

    /// Whether the node, a light or not, must not take the place of an instance that shares its core. False
    /// for null.
    static bool isExcludedFromInstanceSubstitution(const osg::NodePtr &node);
};
