// SPDX-License-Identifier: MIT
#include <ksundo/light/ksLightValueUndoCommands.h>

#include <ksLights.h>

template class ksLightUndoCommand<osg::Vector<float, 3u>>;
template class ksLightUndoCommand<float>;
template class ksLightUndoCommand<osg::UberLight::LightAttenuation>;

osg::Vector<float, 3u> ksLightDiffuseUndoCommand::get(osg::NodePtr node)
{
    return ksLights::getDiffuse(node);
}

void ksLightDiffuseUndoCommand::set(osg::NodePtr node, osg::Vector<float, 3u> value)
{
    ksLights::setDiffuse(node, value);
}

osg::Vector<float, 3u> ksLightGlossyUndoCommand::get(osg::NodePtr node)
{
    return ksLights::getGlossy(node);
}

void ksLightGlossyUndoCommand::set(osg::NodePtr node, osg::Vector<float, 3u> value)
{
    ksLights::setGlossy(node, value);
}

float ksLightIntensityUndoCommand::get(osg::NodePtr node)
{
    return ksLights::getLightValue(node);
}

void ksLightIntensityUndoCommand::set(osg::NodePtr node, float value)
{
    ksLights::setLightValue(node, value);
}

float ksLightPenumbraAngleUndoCommand::get(osg::NodePtr node)
{
    return ksLights::getPenumbraAngle(node);
}

void ksLightPenumbraAngleUndoCommand::set(osg::NodePtr node, float value)
{
    ksLights::setPenumbraAngle(node, value);
}

float ksLightConeAngleUndoCommand::get(osg::NodePtr node)
{
    return ksLights::getConeAngle(node);
}

void ksLightConeAngleUndoCommand::set(osg::NodePtr node, float value)
{
    ksLights::setConeAngle(node, value);
}

osg::UberLight::LightAttenuation ksLightAttenuationUndoCommand::get(osg::NodePtr node)
{
    return ksLights::getAttenuation(node);
}

void ksLightAttenuationUndoCommand::set(osg::NodePtr node, osg::UberLight::LightAttenuation value)
{
    const float intensity = ksLights::getLightValue(node);
    ksLights::setAttenuation(node, value);
    ksLights::setLightValue(node, intensity);
}
