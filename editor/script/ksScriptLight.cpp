// SPDX-License-Identifier: MIT
#include <editor/edits/ksFieldEdits.h>
#include <editor/edits/ksLightEdits.h>
#include <editor/scene/ksContainers.h>
#include <editor/script/ksScriptLight.h>
#include <editor/script/ksScriptRegistry.h>
#include <editor/script/ksScriptValues.h>

#include <ksundo/light/ksAddNodeAsVisibilityReferenceUndoCommand.h>

using namespace ksScriptValues;

namespace {

const ksScriptRegistry::Wrapper<osg::UberLightPtr, ksScriptLight> wrapper;

} // namespace

QJSValue ksScriptLight::value(const char *name) const
{
    return guarded([&](const osg::FieldContainerPtr &light) { return host.value(*light->getField(name)); });
}

void ksScriptLight::setValue(const char *name, const QJSValue &value)
{
    host.guard([&] {
        const ksLightProperty &property = *ksLightEdits::find(QLatin1String(name));
        host.history().add(make(property, value, QString(), ksMerging::Never));
    });
}

void ksScriptLight::setVisibilityReference(const QJSValue &node)
{
    host.guard([&] {
        const auto light = osg::UberLightPtr::dcast(container());
        const osg::NodePtr before = light->getVisibilityReference();
        const osg::NodePtr after = node.isNull() ? osg::NodePtr() : containerFrom<osg::NodePtr>(node, "node");
        // Undoing an addition leaves no reference, so that the one before goes by a step of its own.
        if (before != osg::NullFC)
            host.history().add(new ksAddNodeAsVisibilityReferenceUndoCommand(light, before, true));
        if (after != osg::NullFC)
            host.history().add(new ksAddNodeAsVisibilityReferenceUndoCommand(light, after, false));
    });
}

void ksScriptLight::drag(const QString &property, const QJSValue &values, const QJSValue &text)
{
    const ksLightProperty *wanted = ksLightEdits::find(property);
    if (wanted == nullptr) {
        ksScriptContainer::drag(property, values, text);
        return;
    }
    host.guard([&] {
        const QString title = titleFrom(text);
        addDrag(values, [&](const QJSValue &value, ksMerging merging) {
            return make(*wanted, value, title, merging);
        });
    });
}

QUndoCommand *ksScriptLight::make(const ksLightProperty &property, const QJSValue &value, const QString &text,
                                  ksMerging merging) const
{
    const osg::NodePtr light = ksContainers::ownerOf(container());
    if (light == osg::NullFC)
        throw ksEditorError(ksContainers::label(container()) + QStringLiteral(" belongs to no node"));
    const QString name = QString::fromLatin1(property.name);
    const ksLightValue wanted = property.components == 3 ? vectorFrom(value, name)
                                                         : ksLightValue(numberFrom<float>(value, name), 0, 0);
    if (!property.accepts(wanted))
        throw ksEditorError(QLatin1Char('\'') + value.toString() + QStringLiteral("' does not fit '") + name +
                            QLatin1Char('\''));
    const QString title = text.isEmpty() ? ksFieldEdits::defaultText(light, name) : text;
    return ksMergingAs(merging, property.make(title, light, wanted));
}
