// SPDX-License-Identifier: MIT
#include <editor/document/ksDocument.h>
#include <editor/document/ksNodeEdits.h>
#include <editor/edits/ksFieldEdits.h>
#include <editor/inspector/ksFlagEditor.h>
#include <editor/inspector/ksInspectorEdits.h>
#include <editor/inspector/ksInspectorFields.h>
#include <editor/inspector/ksInspectorSection.h>
#include <editor/inspector/ksTextEditor.h>
#include <editor/scene/ksContainers.h>
#include <editor/scene/ksNodeSettings.h>

#include <OpenSG/OSGSimpleAttachments.h>

#include <QCoreApplication>

#include <algorithm>

using ksInspectorFields::findAll;

namespace {

struct NodePageTexts
{
    Q_DECLARE_TR_FUNCTIONS(ksNodePage)
};

osg::AttachmentPtr nameOf(const osg::NodePtr &node)
{
    return node->findAttachment(osg::Name::getClassType());
}

osg::AttachmentPtr settingsOf(const osg::NodePtr &node)
{
    return node->findAttachment(osg::ksNodeSettings::getClassType());
}

void addName(ksInspectorSection &section, const std::vector<osg::UInt32> &ids)
{
    ksInspectorField field;
    field.name = NodePageTexts::tr("Name");
    field.targets = ids;
    field.read = [](const osg::FieldContainerPtr &target) { return ksContainers::nameOf(target); };
    field.watches = [](const osg::FieldContainerPtr &target) {
        ksWatches watches;
        ksInspectorFields::watchName(watches, osg::NodePtr::dcast(target));
        return watches;
    };
    const std::vector<osg::NodePtr> nodes = findAll<osg::NodePtr>(ids);
    const bool haveNames = std::all_of(nodes.begin(), nodes.end(),
                                       [](const osg::NodePtr &node) { return nameOf(node) != osg::NullFC; });
    if (haveNames) {
        field.make = [](const osg::FieldContainerPtr &target, const QVariant &value, QUndoCommand *parent) {
            const QString text = NodePageTexts::tr("Rename '%1'").arg(ksContainers::nameOf(target));
            return ksFieldEdits::make(text, nameOf(osg::NodePtr::dcast(target)), QStringLiteral("name"),
                                      value, ksMerging::WithPrevious, parent);
        };
        section.addRow(field, new ksTextEditor(ksTextEditor::Telling::WhileTyping));
        return;
    }
    // To give a name to a node that has none is another command than those that change it.
    ksDocument &document = section.edits().document();
    field.perform = [&document, ids](const QVariant &value, int) {
        ksNodeEdits::asOneStep(document, NodePageTexts::tr("Rename to '%1'").arg(value.toString()), [&] {
            for (const osg::NodePtr &node : findAll<osg::NodePtr>(ids))
                ksNodeEdits::rename(document, node, value.toString());
        });
    };
    section.addRow(field, new ksTextEditor(ksTextEditor::Telling::AtTheEnd));
}

void addShown(ksInspectorSection &section, const std::vector<osg::UInt32> &ids)
{
    ksInspectorField field;
    field.name = NodePageTexts::tr("Shown");
    field.targets = ids;
    field.read = [](const osg::FieldContainerPtr &target) {
        return osg::NodePtr::dcast(target)->getTravMask() != 0;
    };
    field.watches = [](const osg::FieldContainerPtr &target) {
        return ksWatches{{target.getFieldContainerId(), osg::Node::TravMaskFieldMask}};
    };
    field.make = [](const osg::FieldContainerPtr &target, const QVariant &value, QUndoCommand *parent) {
        const QString text =
            (value.toBool() ? NodePageTexts::tr("Show '%1'") : NodePageTexts::tr("Hide '%1'"))
                .arg(ksContainers::nameOf(target));
        return ksFieldEdits::make(text, target, QStringLiteral("travMask"), value.toBool() ? 0xffffffffU : 0U,
                                  ksMerging::Never, parent);
    };
    section.addRow(field, new ksFlagEditor);
}

void buildNode(ksInspectorSection &section, const ksInspectorSubjects &subjects)
{
    addName(section, subjects.ids);
    addShown(section, subjects.ids);
    std::vector<osg::FieldContainerPtr> settings;
    for (const osg::NodePtr &node : findAll<osg::NodePtr>(subjects.ids))
        settings.push_back(settingsOf(node));
    if (const std::vector<osg::UInt32> ids = ksInspectorFields::idsOf(settings); !ids.empty())
        ksInspectorFields::addAll(section, ids, {QStringLiteral("internal")});
}

} // namespace

ksInspectorPage ksInspectorPages::node()
{
    const auto subjects = [](const std::vector<osg::NodePtr> &nodes) {
        ksInspectorSubjects result =
            ksInspectorFields::subjects(nodes, [](const osg::NodePtr &node) { return node; });
        for (const osg::NodePtr &node : nodes)
            for (const osg::AttachmentPtr &attached : {nameOf(node), settingsOf(node)})
                result.parts.push_back(attached.getFieldContainerId());
        return result;
    };
    return {NodePageTexts::tr("Node"), false, subjects, &buildNode};
}
