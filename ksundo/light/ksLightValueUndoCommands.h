// SPDX-License-Identifier: MIT
#pragma once

#include <ksundo/transform/ksFunctionUndoCommand.h>

#include <OSGUberLight.h>
#include <OpenSG/OSGVector.h>
#include <ksMessage.h>

/// @file
/// The commands on the values of a light. They differ by the application's getter and setter. Whatever is out
/// of the ordinary, such as a node that is no light, is the getter's and the setter's business.

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

extern template class KSUNDO_EXPORT ksLightUndoCommand<osg::Vector<float, 3u>>;
extern template class KSUNDO_EXPORT ksLightUndoCommand<float>;
extern template class KSUNDO_EXPORT ksLightUndoCommand<osg::UberLight::LightAttenuation>;

/// Sets a light's diffuse colour.
class KSUNDO_EXPORT ksLightDiffuseUndoCommand : public ksLightUndoCommand<osg::Vector<float, 3u>>
{
    KS_UNDO_COMMAND(ksLightDiffuseUndoCommand)

public:
    using ksLightUndoCommand::ksLightUndoCommand;

    osg::Vector<float, 3u> get(osg::NodePtr node) override;
    void set(osg::NodePtr node, osg::Vector<float, 3u> value) override;
};

/// Sets a light's glossy (specular) colour.
class KSUNDO_EXPORT ksLightGlossyUndoCommand : public ksLightUndoCommand<osg::Vector<float, 3u>>
{
    KS_UNDO_COMMAND(ksLightGlossyUndoCommand)

public:
    using ksLightUndoCommand::ksLightUndoCommand;

    osg::Vector<float, 3u> get(osg::NodePtr node) override;
    void set(osg::NodePtr node, osg::Vector<float, 3u> value) override;
};

/// Sets a light's intensity.
class KSUNDO_EXPORT ksLightIntensityUndoCommand : public ksLightUndoCommand<float>
{
    KS_UNDO_COMMAND(ksLightIntensityUndoCommand)

public:
    using ksLightUndoCommand::ksLightUndoCommand;

    float get(osg::NodePtr node) override;
    void set(osg::NodePtr node, float value) override;
};

/// Sets the penumbra angle of a spot light.
class KSUNDO_EXPORT ksLightPenumbraAngleUndoCommand : public ksLightUndoCommand<float>
{
    KS_UNDO_COMMAND(ksLightPenumbraAngleUndoCommand)

public:
    using ksLightUndoCommand::ksLightUndoCommand;

    float get(osg::NodePtr node) override;
    void set(osg::NodePtr node, float value) override;
};

/// Sets the cone angle of a spot light.
class KSUNDO_EXPORT ksLightConeAngleUndoCommand : public ksLightUndoCommand<float>
{
    KS_UNDO_COMMAND(ksLightConeAngleUndoCommand)

public:
    using ksLightUndoCommand::ksLightUndoCommand;

    float get(osg::NodePtr node) override;
    void set(osg::NodePtr node, float value) override;
};

/// Sets a light's attenuation mode. Every step leaves the intensity as it was before the step, whatever the
/// application's setter does to it.
class KSUNDO_EXPORT ksLightAttenuationUndoCommand
    : public ksLightUndoCommand<osg::UberLight::LightAttenuation>
{
    KS_UNDO_COMMAND(ksLightAttenuationUndoCommand)

public:
    using ksLightUndoCommand::ksLightUndoCommand;

    osg::UberLight::LightAttenuation get(osg::NodePtr node) override;
    void set(osg::NodePtr node, osg::UberLight::LightAttenuation value) override;
};
