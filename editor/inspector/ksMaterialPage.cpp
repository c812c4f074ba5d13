// SPDX-License-Identifier: MIT
#include <editor/document/ksDocument.h>
#include <editor/edits/ksFieldEdits.h>
#include <editor/edits/ksMeshMaterialUndoCommand.h>
#include <editor/import/ksImageImporter.h>
#include <editor/inspector/ksChoiceEditor.h>
#include <editor/inspector/ksImageEditor.h>
#include <editor/inspector/ksInspectorEdits.h>
#include <editor/inspector/ksInspectorFields.h>
#include <editor/inspector/ksInspectorSection.h>
#include <editor/scene/ksContainers.h>
#include <editor/scene/ksImageLayout.h>
#include <editor/scene/ksMesh.h>
#include <editor/scene/ksReferenceCycles.h>

#include <ksundo/core/ksMultiCommand.h>
#include <ksundo/field/ksImageFieldUndoCommand.h>
#include <ksundo/material/ksMaterialMultiUndoCommand.h>
#include <ksundo/material/ksMaterialUndoCommand.h>
#include <ksundo/material/ksSetEnvironmentUndoCommand.h>

#include <OSGUBRDFMaterial.h>
#include <OSGUberMaterial.h>
#include <OpenSG/OSGImage.h>

#include <QCoreApplication>
#include <QImage>

#include <algorithm>
#include <functional>
#include <map>
#include <memory>
#include <set>
#include <unordered_map>
#include <utility>

using ksInspectorFields::findAll;

namespace {

struct MaterialPageTexts
{
    Q_DECLARE_TR_FUNCTIONS(ksMaterialPage)
};

QString textOf(const QVariant &id)
{
    const auto material = ksFindContainer<osg::FieldContainerPtr>(id.toUInt());
    return material == osg::NullFC ? MaterialPageTexts::tr("None") : ksInspectorFields::titleOf(material);
}

/// The materials of the scene, those of environments included, by name. Walks the scene: to be asked when
/// the user is about to choose.
ksChoiceEditor::Choices materialsIn(const osg::NodePtr &root)
{
    std::multimap<QString, osg::UInt32> found;
    std::set<osg::UInt32> known;
    ksContainers::visitNodes(root, [&](const osg::NodePtr &node) {
        const auto mesh = osg::ksMeshPtr::dcast(node->getCore());
        osg::MaterialPtr material = mesh == osg::NullFC ? osg::MaterialPtr() : mesh->getMaterial();
        while (material != osg::NullFC && known.insert(material.getFieldContainerId()).second) {
            found.emplace(textOf(material.getFieldContainerId()), material.getFieldContainerId());
            const auto surface = osg::UBRDFMaterialPtr::dcast(material);
            material = surface == osg::NullFC ? osg::MaterialPtr() : surface->getEnvironment();
        }
    });
    return {found.begin(), found.end()};
}

void buildMesh(ksInspectorSection &section, const ksInspectorSubjects &subjects)
{
    ksDocument &document = section.edits().document();
    ksInspectorField field;
    field.name = MaterialPageTexts::tr("Material");
    field.targets = subjects.ids;
    field.read = [](const osg::FieldContainerPtr &target) {
        return osg::ksMeshPtr::dcast(target)->getMaterial().getFieldContainerId();
    };
    field.watches = [](const osg::FieldContainerPtr &target) {
        return ksWatches{{target.getFieldContainerId(), osg::ksMesh::MaterialFieldMask}};
    };
    field.make = [](const osg::FieldContainerPtr &target, const QVariant &value, QUndoCommand *parent) {
        return new ksMeshMaterialUndoCommand(osg::ksMeshPtr::dcast(target),
                                             ksFindContainer<osg::MaterialPtr>(value.toUInt()), parent);
    };
    const auto choices = [&document] {
        ksChoiceEditor::Choices all = materialsIn(document.root());
        all.insert(all.begin(), {textOf(0U), 0U});
        return all;
    };
    section.addRow(field, new ksChoiceEditor(choices, &textOf));
}

/// Finds the material that a part, a component or the settings, belongs to.
using Owner = std::function<osg::UberMaterialPtr(const osg::FieldContainerPtr &part)>;

Owner ownerIn(const std::vector<osg::UInt32> &materials)
{
    std::unordered_map<osg::UInt32, osg::UInt32> owners;
    for (const osg::UberMaterialPtr &material : findAll<osg::UberMaterialPtr>(materials)) {
        owners[material->getComponentSettings().getFieldContainerId()] = material.getFieldContainerId();
        for (const osg::ColorComponentPtr &component : material->getColorComponentData())
            owners[component.getFieldContainerId()] = material.getFieldContainerId();
    }
    return [owners = std::move(owners)](const osg::FieldContainerPtr &part) {
        return ksFindContainer<osg::UberMaterialPtr>(owners.at(part.getFieldContainerId()));
    };
}

/// Builds the command that sets a field of a part of \a material, which the material takes notice of.
QUndoCommand *makePart(const osg::UberMaterialPtr &material, const osg::FieldContainerPtr &part,
                       const QString &field, const QVariant &value, QUndoCommand *parent)
{
    return ksMergingAs(
        ksMerging::WithPrevious,
        new ksMaterialUndoCommand(ksInspectorFields::textOf(material, field),
                                  ksFieldEdits::make(QString(), part, field, value, ksMerging::WithPrevious),
                                  material, material->getComponentSettings(), parent));
}

ksInspectorFields::Make makerFor(const Owner &ownerOf)
{
    return [ownerOf](const osg::FieldContainerPtr &part, const QString &field, const QVariant &value,
                     QUndoCommand *parent) { return makePart(ownerOf(part), part, field, value, parent); };
}

/// The picture of \a image; plain grey for one of another kind than those that files have, and null for none.
QImage pictureOf(const osg::ImagePtr &image)
{
    if (image == osg::NullFC)
        return {};
    const QImage picture = ksImageLayout::pictureOf(*image);
    if (!picture.isNull())
        return picture.mirrored();
    QImage unknown(1, 1, QImage::Format_RGB32);
    unknown.fill(Qt::gray);
    return unknown;
}

void addImage(ksInspectorSection &section, const std::vector<osg::UInt32> &components, const Owner &ownerOf)
{
    ksDocument &document = section.edits().document();
    ksInspectorField field;
    field.name = MaterialPageTexts::tr("Image");
    field.targets = components;
    field.read = [](const osg::FieldContainerPtr &target) {
        return pictureOf(osg::ColorComponentPtr::dcast(target)->getImage());
    };
    field.watches = [](const osg::FieldContainerPtr &target) {
        ksWatches watches{{target.getFieldContainerId(), osg::ColorComponent::ImageFieldMask}};
        if (const osg::ImagePtr image = osg::ColorComponentPtr::dcast(target)->getImage())
            watches.emplace_back(image.getFieldContainerId(), osg::FieldBits::AllFields);
        return watches;
    };
    field.perform = [&document, components, ownerOf](const QVariant &path, int) {
        const osg::ImageRefPtr image =
            path.toString().isEmpty() ? osg::ImageRefPtr() : ksImageImporter::imageInFile(path.toString());
        auto batch = std::make_unique<ksMultiCommand>(MaterialPageTexts::tr("Set image"));
        for (const osg::ColorComponentPtr &component : findAll<osg::ColorComponentPtr>(components))
            if (component->getImage() != image.get()) {
                const osg::UberMaterialPtr material = ownerOf(component);
                new ksMaterialUndoCommand(batch->text(),
                                          new ksImageFieldUndoCommand(component, "image", image.get()),
                                          material, material->getComponentSettings(), batch.get());
            }
        if (batch->childCount() > 0)
            document.add(batch.release());
    };
    section.addRow(field, new ksImageEditor);
}

/// Adds the rows for the components that are at \a index in \a materials.
void addComponent(ksInspectorSection &section, const std::vector<osg::UInt32> &materials, osg::UInt32 index,
                  const Owner &ownerOf)
{
    std::vector<osg::FieldContainerPtr> components;
    for (const osg::UberMaterialPtr &material : findAll<osg::UberMaterialPtr>(materials))
        if (index < material->getColorComponentData().size() &&
            material->getColorComponentData()[index] != osg::NullFC)
            components.push_back(material->getColorComponentData()[index]);
    const std::vector<osg::UInt32> ids = ksInspectorFields::idsOf(components);
    if (ids.empty())
        return;
    section.addHeading(MaterialPageTexts::tr("Component %1").arg(index + 1));
    for (const char *name : {"color", "weight", "enabled"})
        ksInspectorFields::add(section, ids, QString::fromLatin1(name), makerFor(ownerOf));
    addImage(section, ids, ownerOf);
}

/// Adds rows that set a field of all components at once; they show that of the first one.
void addAllComponents(ksInspectorSection &section, const std::vector<osg::UInt32> &materials)
{
    const auto firstOf = [](const osg::FieldContainerPtr &target) {
        const auto &all = osg::UberMaterialPtr::dcast(target)->getColorComponentData();
        const auto first = std::find_if(all.begin(), all.end(),
                                        [](const auto &component) { return component != osg::NullFC; });
        return first == all.end() ? osg::FieldContainerPtr() : osg::FieldContainerPtr(*first);
    };
    const auto shown = firstOf(ksFindContainer<osg::FieldContainerPtr>(materials.back()));
    if (shown == osg::NullFC)
        return;
    section.addHeading(MaterialPageTexts::tr("All components"));
    for (const char *name : {"color", "weight", "enabled"}) {
        const QString fieldName = QString::fromLatin1(name);
        const ksInspectorField plain = ksInspectorFields::fieldOf(materials, fieldName);
        ksInspectorField field = plain;
        field.read = [plain, firstOf](const osg::FieldContainerPtr &target) {
            const osg::FieldContainerPtr first = firstOf(target);
            return first == osg::NullFC ? QVariant() : plain.read(first);
        };
        field.watches = [plain, firstOf](const osg::FieldContainerPtr &target) {
            const osg::FieldContainerPtr first = firstOf(target);
            return first == osg::NullFC ? ksWatches() : plain.watches(first);
        };
        // That the first one has a value already says nothing of the others.
        field.perform = [fieldName, materials, read = plain.read,
                         &document = section.edits().document()](const QVariant &value, int part) {
            const std::vector<osg::UberMaterialPtr> all = findAll<osg::UberMaterialPtr>(materials);
            const auto text = ksInspectorFields::textOf(all.back(), fieldName);
            std::unique_ptr<QUndoCommand> batch;
            if (all.size() == 1)
                batch = std::make_unique<ksMaterialMultiUndoCommand>(text, all.back(),
                                                                     all.back()->getComponentSettings());
            else
                batch = std::make_unique<ksMultiCommand>(text);
            for (const osg::UberMaterialPtr &material : all)
                for (const osg::ColorComponentPtr &component : material->getColorComponentData()) {
                    if (component == osg::NullFC)
                        continue;
                    const QVariant whole = ksWholeOf(read(component), value, part);
                    if (all.size() == 1)
                        ksFieldEdits::make(QString(), component, fieldName, whole, ksMerging::WithPrevious,
                                           batch.get());
                    else
                        makePart(material, component, fieldName, whole, batch.get());
                }
            document.add(batch.release());
        };
        section.addRow(field, ksInspectorFields::makeEditor(shown, fieldName));
    }
}

void addSettings(ksInspectorSection &section, const std::vector<osg::UInt32> &materials, const Owner &ownerOf)
{
    std::vector<osg::FieldContainerPtr> settings;
    for (const osg::UberMaterialPtr &material : findAll<osg::UberMaterialPtr>(materials))
        settings.push_back(material->getComponentSettings());
    const std::vector<osg::UInt32> ids = ksInspectorFields::idsOf(settings);
    if (ids.empty())
        return;
    section.addHeading(MaterialPageTexts::tr("Settings"));
    ksInspectorFields::addAll(section, ids, {QStringLiteral("attachments")}, makerFor(ownerOf));
}

void addEnvironment(ksInspectorSection &section, const std::vector<osg::UInt32> &surfaces)
{
    ksInspectorField field;
    field.name = MaterialPageTexts::tr("Environment");
    field.targets = surfaces;
    field.read = [](const osg::FieldContainerPtr &target) {
        return osg::UBRDFMaterialPtr::dcast(target)->getEnvironment().getFieldContainerId();
    };
    field.watches = [](const osg::FieldContainerPtr &target) {
        return ksWatches{{target.getFieldContainerId(), osg::UBRDFMaterial::EnvironmentFieldMask}};
    };
    field.make = [](const osg::FieldContainerPtr &target, const QVariant &value, QUndoCommand *parent) {
        const auto surface = osg::UBRDFMaterialPtr::dcast(target);
        const auto wanted = ksFindContainer<osg::MaterialPtr>(value.toUInt());
        ksReferenceCycles::refuse(surface, wanted);
        return new ksSetEnvironmentUndoCommand(surface, wanted, parent);
    };
    const auto choices = [&document = section.edits().document()] { return materialsIn(document.root()); };
    section.addRow(field, new ksChoiceEditor(choices, &textOf));
}

void buildMaterial(ksInspectorSection &section, const ksInspectorSubjects &subjects)
{
    // Materials of one class share their rows.
    const auto shown = ksFindContainer<osg::FieldContainerPtr>(subjects.ids.back());
    std::vector<osg::UInt32> ids;
    for (const osg::FieldContainerPtr &each : findAll<osg::FieldContainerPtr>(subjects.ids))
        if (each->getType() == shown->getType())
            ids.push_back(each.getFieldContainerId());
    const auto layered = osg::UberMaterialPtr::dcast(shown);
    QStringList special = {QStringLiteral("attachments"), QStringLiteral("environment"),
                           QStringLiteral("colorComponentData"), QStringLiteral("componentSettings")};
    ksInspectorFields::addAll(section, ids, special);
    if (osg::UBRDFMaterialPtr::dcast(shown) != osg::NullFC)
        addEnvironment(section, ids);
    if (layered == osg::NullFC)
        return;
    const auto count = static_cast<osg::UInt32>(layered->getColorComponentData().size());
    const Owner ownerOf = ownerIn(ids);
    for (osg::UInt32 i = 0; i < count; ++i)
        addComponent(section, ids, i, ownerOf);
    addAllComponents(section, ids);
    addSettings(section, ids, ownerOf);
}

} // namespace

ksInspectorPage ksInspectorPages::mesh()
{
    const auto subjects = [](const std::vector<osg::NodePtr> &nodes) {
        return ksInspectorFields::subjects(nodes, &ksInspectorFields::coreNear<osg::ksMeshPtr>);
    };
    return {MaterialPageTexts::tr("Mesh"), false, subjects, &buildMesh};
}

ksInspectorPage ksInspectorPages::material()
{
    const auto materialOf = [](const osg::NodePtr &node) {
        const auto mesh = ksInspectorFields::coreNear<osg::ksMeshPtr>(node);
        return mesh == osg::NullFC ? osg::MaterialPtr() : mesh->getMaterial();
    };
    const auto subjects = [materialOf](const std::vector<osg::NodePtr> &nodes) {
        ksInspectorSubjects result = ksInspectorFields::subjects(nodes, materialOf);
        for (const osg::NodePtr &node : nodes)
            if (const auto mesh = ksInspectorFields::coreNear<osg::ksMeshPtr>(node))
                result.watches.emplace_back(mesh.getFieldContainerId(), osg::ksMesh::MaterialFieldMask);
        for (const osg::UberMaterialPtr &material : findAll<osg::UberMaterialPtr>(result.ids)) {
            result.watches.emplace_back(material.getFieldContainerId(),
                                        osg::UberMaterial::ColorComponentDataFieldMask |
                                            osg::UberMaterial::ComponentSettingsFieldMask);
            result.parts.push_back(material->getComponentSettings().getFieldContainerId());
            for (const osg::ColorComponentPtr &component : material->getColorComponentData())
                result.parts.push_back(component.getFieldContainerId());
        }
        return result;
    };
    return {MaterialPageTexts::tr("Material"), false, subjects, &buildMaterial};
}
