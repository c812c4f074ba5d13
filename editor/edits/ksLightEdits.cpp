// SPDX-License-Identifier: MIT
#include <editor/edits/ksLightEdits.h>

#include <ksundo/light/ksLightValueUndoCommands.h>

#include <ksLights.h>

#include <algorithm>
#include <type_traits>

namespace {

/// A row of the table: the command that sets what \a Get answers.
template <class Command, auto Get>
struct Row
{
    using Value = std::decay_t<decltype(Get(osg::NodePtr()))>;
    static constexpr bool IsColour = std::is_same_v<Value, osg::Vec3f>;

    static bool accepts([[maybe_unused]] const ksLightValue &value)
    {
        if constexpr (std::is_enum_v<Value>)
            return value[0] == osg::UberLight::None || value[0] == osg::UberLight::Linear ||
                   value[0] == osg::UberLight::Quadratic;
        else
            return true;
    }

    static ksLightValue read(const osg::NodePtr &light)
    {
        if constexpr (IsColour)
            return Get(light);
        else
            return {static_cast<float>(Get(light)), 0, 0};
    }

    static ksUndoCommand *make(const QString &text, const osg::NodePtr &light, const ksLightValue &value)
    {
        if constexpr (IsColour)
            return new Command(text, light, value);
        else
            return new Command(text, light, static_cast<Value>(value[0]));
    }

    static ksLightProperty named(const char *name)
    {
        return {name, IsColour ? 3 : 1, &accepts, &read, &make};
    }
};

} // namespace

const std::vector<ksLightProperty> &ksLightEdits::properties()
{
    static const std::vector<ksLightProperty> all = {
        Row<ksLightDiffuseUndoCommand, &ksLights::getDiffuse>::named("diffuse"),
        Row<ksLightGlossyUndoCommand, &ksLights::getGlossy>::named("glossy"),
        Row<ksLightIntensityUndoCommand, &ksLights::getLightValue>::named("intensity"),
        Row<ksLightPenumbraAngleUndoCommand, &ksLights::getPenumbraAngle>::named("penumbraAngle"),
        Row<ksLightConeAngleUndoCommand, &ksLights::getConeAngle>::named("coneAngle"),
        Row<ksLightAttenuationUndoCommand, &ksLights::getAttenuation>::named("attenuation"),
    };
    return all;
}

const ksLightProperty *ksLightEdits::find(const QString &name)
{
    const auto found =
        std::find_if(properties().begin(), properties().end(), [&name](const ksLightProperty &property) {
            return name == QLatin1String(property.name);
        });
    return found != properties().end() ? &*found : nullptr;
}
