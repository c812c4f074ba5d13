// SPDX-License-Identifier: MIT
#include <ksundo/core/detail/ksTakeBack.h>
#include <ksundo/light/ksLightValueUndoCommands.h>

#include <ksLights.h>

#include <cstddef>

template class ksLightUndoCommand<osg::Vec3f>;
template class ksLightUndoCommand<float>;
template class ksLightUndoCommand<osg::UberLight::LightAttenuation>;

namespace {

/// The application's getter and setter.
template <class T, class Argument = T>
struct Accessors
{
    T (*get)(const osg::NodePtr &node);
    void (*set)(const osg::NodePtr &node, Argument value);
};

using ColorAccessors = Accessors<osg::Vec3f, const osg::Vec3f &>;

/// Every class has its own.
template <class Command>
constexpr std::nullptr_t accessors = nullptr;

template <>
constexpr ColorAccessors accessors<ksLightDiffuseUndoCommand> = {&ksLights::getDiffuse,
                                                                 &ksLights::setDiffuse};

template <>
constexpr ColorAccessors accessors<ksLightGlossyUndoCommand> = {&ksLights::getGlossy, &ksLights::setGlossy};

template <>
constexpr Accessors<float> accessors<ksLightIntensityUndoCommand> = {&ksLights::getLightValue,
                                                                     &ksLights::setLightValue};

template <>
constexpr Accessors<float> accessors<ksLightPenumbraAngleUndoCommand> = {&ksLights::getPenumbraAngle,
                                                                         &ksLights::setPenumbraAngle};

template <>
constexpr Accessors<float> accessors<ksLightConeAngleUndoCommand> = {&ksLights::getConeAngle,
                                                                     &ksLights::setConeAngle};

void setAttenuation(const osg::NodePtr &node, osg::UberLight::LightAttenuation value)
{
    const float intensity = ksLights::getLightValue(node);
    const auto keepIntensity = [&] { ksLights::setLightValue(node, intensity); };
    ksDetail::ksStep([&] { ksLights::setAttenuation(node, value); }, keepIntensity);
    keepIntensity();
}

template <>
constexpr Accessors<osg::UberLight::LightAttenuation> accessors<ksLightAttenuationUndoCommand> = {
    &ksLights::getAttenuation, &setAttenuation};

} // namespace

template <class Command, class T>
T ksLightValueUndoCommand<Command, T>::get(osg::NodePtr node)
{
    return accessors<Command>.get(node);
}

template <class Command, class T>
void ksLightValueUndoCommand<Command, T>::set(osg::NodePtr node, T value)
{
    accessors<Command>.set(node, value);
}

template class ksLightValueUndoCommand<ksLightDiffuseUndoCommand, osg::Vec3f>;
template class ksLightValueUndoCommand<ksLightGlossyUndoCommand, osg::Vec3f>;
template class ksLightValueUndoCommand<ksLightIntensityUndoCommand, float>;
template class ksLightValueUndoCommand<ksLightPenumbraAngleUndoCommand, float>;
template class ksLightValueUndoCommand<ksLightConeAngleUndoCommand, float>;
template class ksLightValueUndoCommand<ksLightAttenuationUndoCommand, osg::UberLight::LightAttenuation>;
