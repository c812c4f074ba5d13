// SPDX-License-Identifier: MIT
#include <editor/edits/ksFieldEdits.h>
#include <editor/scene/ksContainers.h>
#include <editor/script/ksScriptMaterial.h>
#include <editor/script/ksScriptRegistry.h>
#include <editor/script/ksScriptValues.h>

#include <ksundo/field/ksFieldUndoCommand.h>
#include <ksundo/field/ksImageFieldUndoCommand.h>
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

/// The command that sets the field called \a field of a part of a material.
ksFieldBaseUndoCommand *makeInner(const osg::FieldContainerPtr &part, const QString &field,
                                  const QJSValue &value, ksMerging merging, QUndoCommand *parent = nullptr)
{
    const std::string name = field.toStdString();
    const osg::Field *target = part->getField(name.c_str());
    if (target == nullptr || target->getType() != osg::SFVec3f::getClassType())
        return ksFieldEdits::make(QString(), part, field, value.toVariant(), merging, parent);
    auto *command =
        new ksFieldUndoCommand<osg::Vec3f>(QString(), part, name, vectorFrom(value, field), parent);
    ksMergingAs(merging, command);
    return command;
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

void ksScriptMaterial::setComponent(int index, const QString &field, const QJSValue &value)
{
    host.guard([&] { host.history().add(make(component(index), field, value, ksMerging::Never)); });
}

void ksScriptMaterial::setSettings(const QString &field, const QJSValue &value)
{
    host.guard([&] {
        const auto material = osg::UberMaterialPtr::dcast(container());
        host.history().add(make(material->getComponentSettings(), field, value, ksMerging::Never));
    });
}

void ksScriptMaterial::dragComponent(int index, const QString &field, const QJSValue &values)
{
    host.guard([&] {
        addDrag(values, [&](const QJSValue &value, ksMerging merging) {
            return make(component(index), field, value, merging);
        });
    });
}

void ksScriptMaterial::setAllComponents(const QString &field, const QJSValue &value)
{
    host.guard([&] {
        const auto material = osg::UberMaterialPtr::dcast(container());
        auto batch = std::make_unique<ksMaterialMultiUndoCommand>(ksFieldEdits::defaultText(material, field),
                                                                  material, material->getComponentSettings());
        for (const osg::ColorComponentPtr &each : material->getColorComponentData())
            makeInner(each, field, value, ksMerging::Never, batch.get());
        host.history().add(batch.release());
    });
}

void ksScriptMaterial::setImage(int index, const QJSValue &image)
{
    host.guard([&] {
        const osg::FieldContainerPtr target = component(index);
        const osg::ImagePtr wanted =
            image.isNull() ? osg::ImagePtr() : containerFrom<osg::ImagePtr>(image, "image");
        host.history().add(new ksImageFieldUndoCommand(target, "image", wanted));
    });
}

QUndoCommand *ksScriptMaterial::make(const osg::FieldContainerPtr &part, const QString &field,
                                     const QJSValue &value, ksMerging merging) const
{
    const auto material = osg::UberMaterialPtr::dcast(container());
    if (part == osg::NullFC)
        throw ksEditorError(ksContainers::label(material) + QStringLiteral(" has no settings"));
    return ksMergingAs(merging, new ksMaterialUndoCommand(ksFieldEdits::defaultText(material, field),
                                                          makeInner(part, field, value, merging), material,
                                                          material->getComponentSettings()));
}

void ksScriptSurface::setEnvironment(const QJSValue &material)
{
    host.guard([&] {
        host.history().add(
            new ksSetEnvironmentUndoCommand(osg::UBRDFMaterialPtr::dcast(container()),
                                            containerFrom<osg::MaterialPtr>(material, "material")));
    });
}
