// SPDX-License-Identifier: MIT
#include <editor/document/ksDocument.h>
#include <editor/document/ksNodeEdits.h>
#include <editor/edits/ksTagEdits.h>
#include <editor/inspector/ksInspectorEdits.h>
#include <editor/inspector/ksInspectorFields.h>
#include <editor/inspector/ksInspectorSection.h>
#include <editor/inspector/ksListEditor.h>
#include <editor/ksEditorError.h>

#include <ksundo/tag/ksTagUndoCommands.h>

#include <QCoreApplication>

using ksInspectorFields::findAll;

namespace {

struct TagsPageTexts
{
    Q_DECLARE_TR_FUNCTIONS(ksTagsPage)
};

osg::TagAttachmentPtr tagsOf(const osg::NodePtr &node)
{
    return osg::TagAttachmentPtr::dcast(node->findAttachment(osg::TagAttachment::getClassType()));
}

/// Adds \a tag to those of \a nodes that have it not, or removes it from those that have it, in one step.
void change(ksDocument &document, const std::vector<osg::NodePtr> &nodes, osg::UInt32 field,
            const std::string &tag, bool adding)
{
    std::vector<osg::NodePtr> changed;
    for (const osg::NodePtr &node : nodes) {
        const osg::TagAttachmentPtr tags = tagsOf(node);
        if ((tags != osg::NullFC && ksTagEdits::hasTag(tags, field, tag)) != adding)
            changed.push_back(node);
    }
    if (changed.empty())
        throw ksEditorError(
            TagsPageTexts::tr("The tag '%1' is there already.").arg(QString::fromStdString(tag)));
    const QString text = adding ? TagsPageTexts::tr("Add tag '%1'") : TagsPageTexts::tr("Remove tag '%1'");
    ksNodeEdits::asOneStep(document, text.arg(QString::fromStdString(tag)), [&] {
        for (const osg::NodePtr &node : changed) {
            if (tagsOf(node) == osg::NullFC)
                document.add(ksTagEdits::makeFirst(node, field, tag));
            else
                document.add(ksTagEdits::make(node, field, tag, adding));
        }
    });
}

void addTags(ksInspectorSection &section, const std::vector<osg::UInt32> &ids, const QString &name,
             osg::UInt32 list)
{
    ksDocument &document = section.edits().document();
    ksInspectorField field;
    field.name = name;
    field.targets = ids;
    field.read = [list](const osg::FieldContainerPtr &target) {
        QStringList texts;
        if (const osg::TagAttachmentPtr tags = tagsOf(osg::NodePtr::dcast(target)))
            for (const std::string &tag : ksTagEdits::listOf(tags, list))
                texts += QString::fromStdString(tag);
        return texts;
    };
    field.watches = [list](const osg::FieldContainerPtr &target) {
        ksWatches watches{{target.getFieldContainerId(), osg::Node::AttachmentsFieldMask}};
        if (const osg::TagAttachmentPtr tags = tagsOf(osg::NodePtr::dcast(target)))
            watches.emplace_back(tags.getFieldContainerId(), ksInspectorFields::maskOf(list));
        return watches;
    };
    field.perform = [&document, ids, list, read = field.read](const QVariant &value, int) {
        const auto wanted = value.value<ksListChange>();
        const std::vector<osg::NodePtr> nodes = findAll<osg::NodePtr>(ids);
        if (wanted.kind == ksListChange::Kind::Add)
            change(document, nodes, list, wanted.text.toStdString(), true);
        else
            change(document, nodes, list, read(nodes.back()).toStringList()[wanted.row].toStdString(), false);
    };
    section.addTallRow(field, new ksListEditor(ksListEditor::TypeNew | ksListEditor::RemoveEntry |
                                               ksListEditor::TellChanges));
}

void buildTags(ksInspectorSection &section, const ksInspectorSubjects &subjects)
{
    addTags(section, subjects.ids, TagsPageTexts::tr("User tags"), ksTagEdits::UserTags);
    addTags(section, subjects.ids, TagsPageTexts::tr("Layers"), ksTagEdits::LayerTags);
}

} // namespace

ksInspectorPage ksInspectorPages::tags()
{
    const auto subjects = [](const std::vector<osg::NodePtr> &nodes) {
        return ksInspectorFields::subjects(nodes, [](const osg::NodePtr &node) { return node; });
    };
    return {TagsPageTexts::tr("Tags"), false, subjects, &buildTags};
}
