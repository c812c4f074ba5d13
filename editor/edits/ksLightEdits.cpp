// SPDX-License-Identifier: MIT
#include <editor/edits/ksLightEdits.h>
#include <editor/scene/ksContainers.h>

#include <ksundo/core/ksMultiCommand.h>
#include <ksundo/field/ksFieldUndoCommand.h>
#include <ksundo/light/ksAddNodeAsVisibilityReferenceUndoCommand.h>
#include <ksundo/light/ksLightValueUndoCommands.h>

#include <ksLights.h>

#include <algorithm>
#include <memory>
#include <type_traits>

namespace {

/// A row of the table: the command that sets what \a Get answers.
template <class Command, auto Get>
struct LightRow
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

    static ksUndoCommand *make(const QString &text, const osg::NodePtr &light, const ksLightValue &value,
                               QUndoCommand *parent)
    {
        if constexpr (IsColour)
            return new Command(text, light, value, parent);
        else
            return new Command(text, light, static_cast<Value>(value[0]), parent);
    }

    static ksLightProperty named(const char *name)
    {
        return {name, IsColour ? 3 : 1, &accepts, &read, &make};
    }
};

/// Adds to \a batch a command that sets the mark of \a node to what it is now, or takes it away.
void addMark(QUndoCommand *batch, const osg::NodePtr &node, bool keeps)
{
    const osg::UInt32 flags = node->getExternalFlags();
    const osg::UInt32 mark = osg::NodeExternalFlags::VisibilityReference;
    new ksFieldUndoCommand<osg::UInt32>(QString(), node, "externalFlags", keeps ? flags : flags & ~mark,
                                        batch);
}

} // namespace

const std::vector<ksLightProperty> &ksLightEdits::properties()
{
    static const std::vector<ksLightProperty> all = {
        LightRow<ksLightDiffuseUndoCommand, &ksLights::getDiffuse>::named("diffuse"),
        LightRow<ksLightGlossyUndoCommand, &ksLights::getGlossy>::named("glossy"),
        LightRow<ksLightIntensityUndoCommand, &ksLights::getLightValue>::named("intensity"),
        LightRow<ksLightPenumbraAngleUndoCommand, &ksLights::getPenumbraAngle>::named("penumbraAngle"),
        LightRow<ksLightConeAngleUndoCommand, &ksLights::getConeAngle>::named("coneAngle"),
        LightRow<ksLightAttenuationUndoCommand, &ksLights::getAttenuation>::named("attenuation"),
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

QUndoCommand *ksLightEdits::makeVisibilityReference(const osg::UberLightPtr &light, const osg::NodePtr &node,
                                                    const std::vector<osg::UberLightPtr> &lights)
{
    const osg::NodePtr before = light->getVisibilityReference();
    if (before == node)
        return nullptr;
    const auto isShared = [&light, &lights](const osg::NodePtr &reference) {
        return std::any_of(lights.begin(), lights.end(), [&](const osg::UberLightPtr &other) {
            return other != light && other->getVisibilityReference() == reference;
        });
    };
    const QString name = ksContainers::nameOf(light);
    auto batch = std::make_unique<ksMultiCommand>(QStringLiteral("Set visibilityReference of '") + name +
                                                  QLatin1Char('\''));
    // Either command clears the mark when it takes a reference away, which undoing the addition does, too. So
    // the mark is set before them, for the undo, and after them.
    for (const osg::NodePtr &each : {before, node})
        if (each != osg::NullFC)
            addMark(batch.get(), each, true);
    if (before != osg::NullFC)
        new ksAddNodeAsVisibilityReferenceUndoCommand(light, before, true, batch.get());
    if (node != osg::NullFC)
        new ksAddNodeAsVisibilityReferenceUndoCommand(light, node, false, batch.get());
    if (before != osg::NullFC)
        addMark(batch.get(), before, isShared(before));
    return batch.release();
}
