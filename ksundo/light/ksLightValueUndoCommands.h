// SPDX-License-Identifier: MIT
#pragma once

#include <ksundo/transform/ksFunctionUndoCommand.h>

#include <OSGUberLight.h>
#include <OpenSG/OSGVector.h>
#include <ksMessage.h>

/// @file
/// The commands on the values of a light. Each takes a text, the light's node, which may be null, the value
/// and a parent. They differ by the application's getter and setter. A node that has gone makes a step a
/// silent no-op; of a node that is no light the application's getters make zeros, and its setters nothing.
/// Light commands have no sync function.

/// Changes one value of one light node.
///
/// \tparam T the value's type
template <class T>
class ksLightUndoCommand : public ksFunctionUndoCommand<T>
{
public:
    using ksFunctionUndoCommand<T>::ksFunctionUndoCommand;

    /// Adds "id", then "lightCommand", the bool true, and no "node".
    void makeMessage(ksMessage &message) const override
    {
        // The node stays out of this message. NOLINTNEXTLINE(bugprone-parent-virtual-call)
        ksUndoCommand::makeMessage(message);
        message.set("lightCommand", true, true);
    }
};

extern template class KSUNDO_EXPORT ksLightUndoCommand<osg::Vec3f>;
extern template class KSUNDO_EXPORT ksLightUndoCommand<float>;
extern template class KSUNDO_EXPORT ksLightUndoCommand<osg::UberLight::LightAttenuation>;

/// Gives a class of light commands its getter and setter.
///
/// \tparam Command the class
template <class Command, class T>
class KSUNDO_EXPORT ksLightValueUndoCommand : public ksLightUndoCommand<T>
{
public:
    using ksLightUndoCommand<T>::ksLightUndoCommand;

    /// Asks the application's getter.
    T get(osg::NodePtr node) override;

    /// Calls the application's setter, which ends the edit.
    void set(osg::NodePtr node, T value) override;
};

/// Sets a light's diffuse colour: red, green and blue, each 0 for none and 1 for full.
class KSUNDO_EXPORT ksLightDiffuseUndoCommand
    : public ksLightValueUndoCommand<ksLightDiffuseUndoCommand, osg::Vec3f>
{
    KS_UNDO_COMMAND(ksLightDiffuseUndoCommand)

public:
    using ksLightValueUndoCommand::ksLightValueUndoCommand;
};

/// Sets a light's glossy (specular) colour: red, green and blue, each 0 for none and 1 for full.
class KSUNDO_EXPORT ksLightGlossyUndoCommand
    : public ksLightValueUndoCommand<ksLightGlossyUndoCommand, osg::Vec3f>
{
    KS_UNDO_COMMAND(ksLightGlossyUndoCommand)

public:
    using ksLightValueUndoCommand::ksLightValueUndoCommand;
};

/// Sets a light's intensity: a factor on its colours, from 0 up.
class KSUNDO_EXPORT ksLightIntensityUndoCommand
    : public ksLightValueUndoCommand<ksLightIntensityUndoCommand, float>
{
    KS_UNDO_COMMAND(ksLightIntensityUndoCommand)

public:
    using ksLightValueUndoCommand::ksLightValueUndoCommand;
};

/// Sets the penumbra angle of a spot light, in degrees from 0 up: the soft edge around the cone.
class KSUNDO_EXPORT ksLightPenumbraAngleUndoCommand
    : public ksLightValueUndoCommand<ksLightPenumbraAngleUndoCommand, float>
{
    KS_UNDO_COMMAND(ksLightPenumbraAngleUndoCommand)

public:
    using ksLightValueUndoCommand::ksLightValueUndoCommand;
};

/// Sets the cone angle of a spot light, the whole opening, in degrees from 0 to 180.
class KSUNDO_EXPORT ksLightConeAngleUndoCommand
    : public ksLightValueUndoCommand<ksLightConeAngleUndoCommand, float>
{
    KS_UNDO_COMMAND(ksLightConeAngleUndoCommand)

public:
    using ksLightValueUndoCommand::ksLightValueUndoCommand;
};

/// Sets a light's attenuation mode: how its light fades with distance. Every step leaves the intensity as it
/// was before the step, whatever the application's setter does to it.
class KSUNDO_EXPORT ksLightAttenuationUndoCommand
    : public ksLightValueUndoCommand<ksLightAttenuationUndoCommand, osg::UberLight::LightAttenuation>
{
    KS_UNDO_COMMAND(ksLightAttenuationUndoCommand)

public:
    using ksLightValueUndoCommand::ksLightValueUndoCommand;
};
