// SPDX-License-Identifier: MIT
#include <editor/edits/ksFieldEdits.h>
#include <editor/scene/ksContainers.h>
#include <editor/scene/ksReferenceCycles.h>
#include <editor/script/ksScriptMaterial.h>
#include <editor/script/ksScriptRegistry.h>
#include <editor/script/ksScriptValues.h>

#include <ksundo/material/ksColorComponentUndoCommand.h>
#include <ksundo/material/ksMaterialMultiUndoCommand.h>
#include <ksundo/material/ksMaterialUndoCommand.h>
#include <ksundo/material/ksSetEnvironmentUndoCommand.h>

#include <OSGUBRDFMaterial.h>
#include <OSGUberMaterial.h>

#include <memory>

using namespace ksScriptValues;

namespace {

const ksScriptRegistry::Wrapper<osg::UberMaterialPtr, ksScriptMaterial> materialWrapper;
const ksScriptRegistry::Wrapper<osg::UBRDFMaterialPtr, ksScriptSurface> surfaceWrapper;

const QLatin1String Environment("environment");

/// The command that sets the field called \a field of a part of a material.
ksFieldBaseUndoCommand *makeInner(const osg::FieldContainerPtr &part, const QString &field,
                                  const QJSValue &value, ksMerging merging, QUndoCommand *parent = nullptr)
{
    return ksFieldEdits::make(QString(), part, field, plainFrom(value), merging, parent);
}

} // namespace

osg::FieldContainerPtr ksScriptMaterial::component(int index) const
{
    const osg::MFColorComponentPtr &all = osg::UberMaterialPtr::dcast(container())->getColorComponentData();
    if (index < 0 || static_cast<std::size_t>(index) >= all.size())
        throw ksEditorError(ksContainers::label(container()) +
                            QStringLiteral(" has no component %1").arg(index));
    return all[static_cast<osg::UInt32>(index)];
}

void ksScriptMaterial::setPart(const osg::FieldContainerPtr &part, const QString &field,
                               const QJSValue &value)
{
    if (part == osg::NullFC)
        throw ksEditorError(ksContainers::label(container()) + QStringLiteral(" has no settings"));
    if (!ksFieldEdits::holds(part, field, plainFrom(value)))
        host.add(make(part, field, value, ksMerging::Never));
}

void ksScriptMaterial::setComponent(int index, const QString &field, const QJSValue &value)
{
    host.guard([&] { setPart(component(index), field, value); });
}

void ksScriptMaterial::setComponentQuietly(int index, const QString &field, const QJSValue &value)
{
    host.guard([&] {
        const osg::FieldContainerPtr part = component(index);
        if (!ksFieldEdits::holds(part, field, plainFrom(value)))
            host.add(ksMergingAs(ksMerging::Never,
                                 new ksColorComponentUndoCommand(
                                     ksFieldEdits::defaultText(container(), field),
                                     makeInner(part, field, value, ksMerging::Never), part, container())));
    });
}

void ksScriptMaterial::setSettings(const QString &field, const QJSValue &value)
{
    host.guard(
        [&] { setPart(osg::UberMaterialPtr::dcast(container())->getComponentSettings(), field, value); });
}

void ksScriptMaterial::dragComponent(int index, const QString &field, const QJSValue &values)
{
    host.guard([&] {
        const osg::FieldContainerPtr part = component(index);
        addDrag(
            values,
            [&](const QJSValue &value, ksMerging merging) { return make(part, field, value, merging); },
            [&](const QJSValue &value) { return ksFieldEdits::holds(part, field, plainFrom(value)); });
    });
}

void ksScriptMaterial::setAllComponents(const QString &field, const QJSValue &value)
{
    host.guard([&] {
        const auto material = osg::UberMaterialPtr::dcast(container());
        auto batch = std::make_unique<ksMaterialMultiUndoCommand>(ksFieldEdits::defaultText(material, field),
                                                                  material, material->getComponentSettings());
        bool changes = false;
        for (const osg::ColorComponentPtr &each : material->getColorComponentData()) {
            makeInner(each, field, value, ksMerging::Never, batch.get());
            changes = changes || !ksFieldEdits::holds(each, field, plainFrom(value));
        }
        if (changes)
            host.add(batch.release());
    });
}

void ksScriptMaterial::setImage(int index, const QJSValue &image)
{
    host.guard([&] {
        ksScriptContainer part(host, component(index).getFieldContainerId());
        part.perform({QStringLiteral("image"), image, {}, {}});
    });
}

QUndoCommand *ksScriptMaterial::make(const osg::FieldContainerPtr &part, const QString &field,
                                     const QJSValue &value, ksMerging merging) const
{
    const auto material = osg::UberMaterialPtr::dcast(container());
    return ksMergingAs(merging, new ksMaterialUndoCommand(ksFieldEdits::defaultText(material, field),
                                                          makeInner(part, field, value, merging), material,
                                                          material->getComponentSettings()));
}

void ksScriptSurface::setEnvironment(const QJSValue &material)
{
    host.guard([&] { perform({Environment, material, {}, {}}); });
}

QUndoCommand *ksScriptSurface::makeEdit(const ksScriptEdit &edit) const
{
    if (edit.name != Environment)
        return ksScriptContainer::makeEdit(edit);
    const auto own = osg::UBRDFMaterialPtr::dcast(container());
    const auto wanted = containerFrom<osg::MaterialPtr>(edit.value, "material");
    ksReferenceCycles::refuse(own, wanted);
    return new ksSetEnvironmentUndoCommand(own, wanted, host.parent());
}

bool ksScriptSurface::holds(const ksScriptEdit &edit) const
{
    if (edit.name != Environment)
        return ksScriptContainer::holds(edit);
    return osg::UBRDFMaterialPtr::dcast(container())->getEnvironment() ==
           containerFrom<osg::MaterialPtr>(edit.value, "material");
}

bool ksScriptSurface::merges(const QString &name) const
{
    return name != Environment && ksScriptContainer::merges(name);
}
