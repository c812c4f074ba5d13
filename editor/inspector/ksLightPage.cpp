// SPDX-License-Identifier: MIT
#include <editor/document/ksDocument.h>
#include <editor/document/ksNodeEdits.h>
#include <editor/edits/ksFieldRanges.h>
#include <editor/edits/ksLightEdits.h>
#include <editor/inspector/ksChoiceEditor.h>
#include <editor/inspector/ksInspectorEdits.h>
#include <editor/inspector/ksInspectorFields.h>
#include <editor/inspector/ksInspectorSection.h>
#include <editor/inspector/ksListEditor.h>
#include <editor/ksEditorError.h>
#include <editor/scene/ksContainers.h>

#include <ksundo/core/ksMultiCommand.h>
#include <ksundo/light/ksAddNodeToLightLinkSetUndoCommand.h>

#include <OSGLightLinkSet.h>

#include <QCoreApplication>

#include <algorithm>
#include <memory>

using ksInspectorFields::findAll;

namespace {

struct LightPageTexts
{
    Q_DECLARE_TR_FUNCTIONS(ksLightPage)
};

/// The selected nodes that are none of \a left, nor have one of them as core, nor are the root, which no
/// light can be linked to.
std::vector<osg::NodePtr> othersSelected(ksDocument &document, const std::vector<osg::UInt32> &left)
{
    std::vector<osg::NodePtr> others;
    const auto isLeft = [&left](const osg::FieldContainerPtr &container) {
        return std::find(left.begin(), left.end(), container.getFieldContainerId()) != left.end();
    };
    for (const osg::NodePtr &node : document.selection().nodes())
        if (node != document.root() && !isLeft(node) && !isLeft(node->getCore()))
            others.push_back(node);
    if (others.empty())
        throw ksEditorError(
            LightPageTexts::tr("Select the nodes that are meant first, and then add this one to them."));
    return others;
}

void addProperty(ksInspectorSection &section, const std::vector<osg::UInt32> &ids,
                 const ksLightProperty &property)
{
    const QString name = QString::fromLatin1(property.name);
    ksInspectorField field = ksInspectorFields::fieldOf(ids, name);
    field.make = [&property, name](const osg::FieldContainerPtr &target, const QVariant &value,
                                   QUndoCommand *parent) {
        const QVariantList parts = property.components == 1 ? QVariantList{value} : value.toList();
        ksLightValue wanted(0, 0, 0);
        std::vector<double> numbers;
        for (int i = 0; i < property.components; ++i) {
            wanted[static_cast<osg::UInt32>(i)] = parts[i].toFloat();
            numbers.push_back(parts[i].toDouble());
        }
        ksFieldRanges::check(target, name, numbers);
        return property.make(ksInspectorFields::textOf(target, name), ksContainers::ownerOf(target), wanted,
                             parent);
    };
    const bool isAttenuation = name == QLatin1String("attenuation");
    const ksChoiceEditor::Choices attenuations = {
        {LightPageTexts::tr("None"), double(osg::UberLight::None)},
        {LightPageTexts::tr("Linear"), double(osg::UberLight::Linear)},
        {LightPageTexts::tr("Quadratic"), double(osg::UberLight::Quadratic)}};
    const auto shown = ksFindContainer<osg::FieldContainerPtr>(ids.back());
    section.addRow(field, isAttenuation ? new ksChoiceEditor(attenuations)
                                        : ksInspectorFields::makeEditor(shown, name));
}

void addVisibilityReference(ksInspectorSection &section, const std::vector<osg::UInt32> &ids)
{
    ksInspectorEdits &edits = section.edits();
    ksInspectorField field;
    field.name = LightPageTexts::tr("Visibility reference");
    field.targets = ids;
    field.read = [](const osg::FieldContainerPtr &target) {
        return osg::UberLightPtr::dcast(target)->getVisibilityReference().getFieldContainerId();
    };
    field.watches = [](const osg::FieldContainerPtr &target) {
        ksWatches watches{{target.getFieldContainerId(), osg::UberLight::VisibilityReferenceFieldMask}};
        if (const osg::NodePtr node = osg::UberLightPtr::dcast(target)->getVisibilityReference())
            ksInspectorFields::watchName(watches, node);
        return watches;
    };
    field.perform = [&edits, ids](const QVariant &value, int) {
        ksDocument &document = edits.document();
        const auto wanted = ksFindContainer<osg::NodePtr>(value.toUInt());
        ksNodeEdits::asOneStep(document, LightPageTexts::tr("Set visibility reference"), [&] {
            for (const osg::UberLightPtr &light : findAll<osg::UberLightPtr>(ids))
                document.add(ksLightEdits::makeVisibilityReference(light, wanted, edits.lights()));
        });
    };
    const auto textOf = [](const QVariant &id) {
        const auto node = ksFindContainer<osg::NodePtr>(id.toUInt());
        return node == osg::NullFC ? LightPageTexts::tr("None") : ksInspectorFields::titleOf(node);
    };
    const auto choices = [textOf, shown = ids.back()] {
        const auto light = ksFindContainer<osg::UberLightPtr>(shown);
        ksChoiceEditor::Choices all{{textOf(0U), 0U}};
        if (const osg::NodePtr now = light->getVisibilityReference())
            all.emplace_back(textOf(now.getFieldContainerId()), now.getFieldContainerId());
        return all;
    };
    auto *editor = new ksChoiceEditor(choices, textOf);
    editor->addButton(LightPageTexts::tr("Use selected"), [&edits, editor, ids] {
        QVariant picked;
        edits.run(editor,
                  [&] { picked = othersSelected(edits.document(), ids).back().getFieldContainerId(); });
        return picked;
    });
    section.addRow(field, editor);
}

void buildLight(ksInspectorSection &section, const ksInspectorSubjects &subjects)
{
    for (const ksLightProperty &property : ksLightEdits::properties())
        addProperty(section, subjects.ids, property);
    ksInspectorFields::add(section, subjects.ids, QStringLiteral("referenceDistance"));
    addVisibilityReference(section, subjects.ids);
}

const osg::MFNodePtr &listOf(const osg::LightLinkSetPtr &set, bool lights)
{
    return lights ? set->getLights() : set->getSceneNodes();
}

/// Changes the list of every set as \a wanted says, in one step.
void changeLinks(ksDocument &document, const std::vector<osg::UInt32> &ids, bool lights,
                 const ksListChange &wanted)
{
    const std::vector<osg::LightLinkSetPtr> sets = findAll<osg::LightLinkSetPtr>(ids);
    const bool removes = wanted.kind == ksListChange::Kind::Remove;
    std::vector<osg::NodePtr> nodes;
    if (removes)
        nodes.push_back(listOf(sets.back(), lights)[static_cast<osg::UInt32>(wanted.row)]);
    else
        for (const osg::NodePtr &node : othersSelected(document, ids)) {
            const osg::NodePtr meant = lights ? ksInspectorFields::nodeNear<osg::UberLightPtr>(node) : node;
            if (meant != osg::NullFC && std::find(nodes.begin(), nodes.end(), meant) == nodes.end())
                nodes.push_back(meant);
        }
    if (nodes.empty())
        throw ksEditorError(LightPageTexts::tr("None of the other selected nodes is a light."));
    auto batch = std::make_unique<ksMultiCommand>(removes ? LightPageTexts::tr("Remove links")
                                                          : LightPageTexts::tr("Add links"));
    for (const osg::LightLinkSetPtr &set : sets) {
        std::vector<osg::NodePtr> changed;
        for (const osg::NodePtr &node : nodes)
            if ((lights ? set->containsLight(node) : set->containsSceneNode(node)) == removes)
                changed.push_back(node);
        if (!changed.empty())
            new ksAddNodeToLightLinkSetUndoCommand(
                set, changed, lights ? ksLightEdits::LightList : ksLightEdits::SceneNodeList, removes,
                batch.get());
    }
    if (batch->childCount() > 0)
        document.add(batch.release());
}

void addLinks(ksInspectorSection &section, const std::vector<osg::UInt32> &ids, bool lights)
{
    ksDocument &document = section.edits().document();
    ksInspectorField field;
    field.name = lights ? LightPageTexts::tr("Lights") : LightPageTexts::tr("Nodes that they shine on");
    field.targets = ids;
    field.read = [lights](const osg::FieldContainerPtr &target) {
        QStringList names;
        for (const osg::NodePtr &node : listOf(osg::LightLinkSetPtr::dcast(target), lights))
            names += ksInspectorFields::titleOf(node);
        return names;
    };
    field.watches = [lights](const osg::FieldContainerPtr &target) {
        ksWatches watches{{target.getFieldContainerId(), lights ? osg::LightLinkSet::LightsFieldMask
                                                                : osg::LightLinkSet::SceneNodesFieldMask}};
        for (const osg::NodePtr &node : listOf(osg::LightLinkSetPtr::dcast(target), lights))
            ksInspectorFields::watchName(watches, node);
        return watches;
    };
    field.perform = [&document, ids, lights](const QVariant &value, int) {
        changeLinks(document, ids, lights, value.value<ksListChange>());
    };
    section.addTallRow(field, new ksListEditor(ksListEditor::AddOther | ksListEditor::RemoveEntry |
                                               ksListEditor::TellChanges));
}

void buildLinks(ksInspectorSection &section, const ksInspectorSubjects &subjects)
{
    addLinks(section, subjects.ids, true);
    addLinks(section, subjects.ids, false);
}

} // namespace

ksInspectorPage ksInspectorPages::light()
{
    const auto subjects = [](const std::vector<osg::NodePtr> &nodes) {
        return ksInspectorFields::subjects(nodes, &ksInspectorFields::coreNear<osg::UberLightPtr>);
    };
    return {LightPageTexts::tr("Light"), false, subjects, &buildLight};
}

ksInspectorPage ksInspectorPages::links()
{
    const auto subjects = [](const std::vector<osg::NodePtr> &nodes) {
        return ksInspectorFields::subjects(
            nodes, [](const osg::NodePtr &node) { return osg::LightLinkSetPtr::dcast(node->getCore()); });
    };
    return {LightPageTexts::tr("Light links"), false, subjects, &buildLinks};
}
