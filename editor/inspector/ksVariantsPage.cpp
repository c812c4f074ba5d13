// SPDX-License-Identifier: MIT
#include <editor/document/ksDocument.h>
#include <editor/edits/ksTransformEdits.h>
#include <editor/inspector/ksFlagEditor.h>
#include <editor/inspector/ksInspectorEdits.h>
#include <editor/inspector/ksInspectorFields.h>
#include <editor/inspector/ksInspectorSection.h>
#include <editor/inspector/ksListEditor.h>

#include <ksundo/core/ksMultiCommand.h>
#include <ksundo/transform/ksAddTransformVariantUndoCommand.h>
#include <ksundo/transform/ksRemoveTransformSwitchVariantUndoCommand.h>
#include <ksundo/transform/ksTransformVariantMoveCommand.h>
#include <ksundo/transform/ksTransformVariantNameUndoCommand.h>
#include <ksundo/transform/ksTransformVariantOptionsUndoCommand.h>

#include <OSGTransformVariantsAttachment.h>
#include <ksNodeUtils.h>

#include <QCoreApplication>

#include <memory>

namespace {

struct VariantsPageTexts
{
    Q_DECLARE_TR_FUNCTIONS(ksVariantsPage)
};

/// The rows follow the change list.
const auto unheard = [](const auto &...) {};

int countIn(const osg::NodePtr &node)
{
    return static_cast<int>(ksNodeUtils::getTransformVariantCount(node));
}

osg::TransformVariantPtr variantOf(const osg::FieldContainerPtr &target, int index)
{
    return index < 0 ? osg::TransformVariantPtr()
                     : ksNodeUtils::getTransformVariant(osg::NodePtr::dcast(target),
                                                        static_cast<unsigned long>(index));
}

ksWatches watchesOf(const osg::FieldContainerPtr &target, osg::BitVector mask)
{
    const osg::NodePtr node = osg::NodePtr::dcast(target);
    ksWatches watches{{node.getFieldContainerId(), osg::Node::AttachmentsFieldMask}};
    if (const auto variants = ksNodeUtils::getTransformVariantsAttachment(node))
        watches.emplace_back(variants.getFieldContainerId(), osg::FieldBits::AllFields);
    for (int i = 0; i < countIn(node); ++i)
        watches.emplace_back(variantOf(node, i).getFieldContainerId(), mask);
    return watches;
}

/// Builds the command that \a wanted is for \a node; null when the node has no such variant.
QUndoCommand *makeChange(const osg::NodePtr &node, const ksListChange &wanted, QUndoCommand *parent)
{
    const osg::TransformVariantPtr variant = variantOf(node, wanted.row);
    if (wanted.kind == ksListChange::Kind::Add)
        return new ksAddTransformVariantUndoCommand(
            node, ksTransformEdits::makeVariant(node, wanted.text.toStdString()),
            static_cast<unsigned long>(countIn(node)), parent, unheard);
    if (variant == osg::NullFC)
        return nullptr;
    if (wanted.kind == ksListChange::Kind::Remove)
        return new ksRemoveTransformSwitchVariantUndoCommand(node, static_cast<unsigned long>(wanted.row),
                                                             parent, unheard);
    if (wanted.kind == ksListChange::Kind::Rename)
        return variant->getName() == wanted.text.toStdString()
                   ? nullptr
                   : new ksTransformVariantNameUndoCommand(variant, wanted.text.toStdString(), parent,
                                                           unheard);
    return wanted.to < 0 || wanted.to >= countIn(node) || wanted.to == wanted.row
               ? nullptr
               : new ksTransformVariantMoveCommand(node, wanted.row, wanted.to, parent, unheard);
}

QString textOf(const ksListChange &wanted)
{
    switch (wanted.kind) {
    case ksListChange::Kind::Add:
        return VariantsPageTexts::tr("Add variant '%1'").arg(wanted.text);
    case ksListChange::Kind::Remove:
        return VariantsPageTexts::tr("Remove variant");
    case ksListChange::Kind::Rename:
        return VariantsPageTexts::tr("Rename variant to '%1'").arg(wanted.text);
    default:
        return VariantsPageTexts::tr("Move variant");
    }
}

void addFlags(ksInspectorSection &section, const std::vector<osg::UInt32> &ids, ksListEditor *list)
{
    namespace Flags = osg::TransformVariantFlags;
    const std::vector<std::pair<QString, osg::UInt64>> flags = {
        {VariantsPageTexts::tr("Translation"), Flags::Translation},
        {VariantsPageTexts::tr("Rotation"), Flags::Rotation},
        {VariantsPageTexts::tr("Scale"), Flags::Scale},
        {VariantsPageTexts::tr("Shear"), Flags::Shear},
        {VariantsPageTexts::tr("Scale pivot"), Flags::ScalePivot},
        {VariantsPageTexts::tr("Rotate pivot"), Flags::RotatePivot},
        {VariantsPageTexts::tr("Scale pivot shift"), Flags::ScalePivotTranslation},
        {VariantsPageTexts::tr("Rotate pivot shift"), Flags::RotatePivotTranslation},
        {VariantsPageTexts::tr("Orientation"), Flags::RotationOrientation},
        {VariantsPageTexts::tr("Direction"), Flags::RotationDirection},
        {VariantsPageTexts::tr("Rotation order"), Flags::EulerRotationOrder},
        {VariantsPageTexts::tr("Inherit type"), Flags::InheritType}};
    QStringList texts;
    for (const auto &flag : flags)
        texts += flag.first;
    ksInspectorField field;
    field.name = VariantsPageTexts::tr("Applies");
    field.targets = ids;
    field.read = [list, flags](const osg::FieldContainerPtr &target) {
        const osg::TransformVariantPtr variant = variantOf(target, list->currentRow());
        if (variant == osg::NullFC)
            return QVariant();
        QVariantList values;
        for (const auto &flag : flags)
            values.append((variant->getApplyFlags() & flag.second) != 0);
        return QVariant(values);
    };
    field.watches = [](const osg::FieldContainerPtr &target) {
        return watchesOf(target, osg::TransformVariant::ApplyFlagsFieldMask);
    };
    field.make = [list, flags](const osg::FieldContainerPtr &target, const QVariant &value,
                               QUndoCommand *parent) {
        const osg::TransformVariantPtr variant = variantOf(target, list->currentRow());
        const QVariantList values = value.toList();
        osg::UInt64 bits = variant->getApplyFlags();
        for (std::size_t i = 0; i < flags.size(); ++i)
            bits = values[static_cast<int>(i)].toBool() ? bits | flags[i].second : bits & ~flags[i].second;
        return new ksTransformVariantOptionsUndoCommand(variant, bits, parent, unheard);
    };
    section.addTallRow(field, new ksFlagEditor(texts));
}

void build(ksInspectorSection &section, const ksInspectorSubjects &subjects)
{
    ksDocument &document = section.edits().document();
    auto *list =
        new ksListEditor(ksListEditor::TypeNew | ksListEditor::RemoveEntry | ksListEditor::RenameEntry |
                         ksListEditor::MoveEntry | ksListEditor::TellChanges);
    ksInspectorField field;
    field.name = VariantsPageTexts::tr("Variants");
    field.targets = subjects.ids;
    field.read = [](const osg::FieldContainerPtr &target) {
        QStringList names;
        const osg::NodePtr node = osg::NodePtr::dcast(target);
        for (int i = 0; i < countIn(node); ++i)
            names += QString::fromStdString(ksNodeUtils::getTransformVariantName(node, i));
        return names;
    };
    field.watches = [](const osg::FieldContainerPtr &target) {
        return watchesOf(target, osg::TransformVariant::NameFieldMask);
    };
    field.perform = [&document, ids = subjects.ids](const QVariant &value) {
        const auto wanted = value.value<ksListChange>();
        auto batch = std::make_unique<ksMultiCommand>(textOf(wanted));
        for (const osg::NodePtr &node : ksInspectorFields::findAll<osg::NodePtr>(ids))
            makeChange(node, wanted, batch.get());
        if (batch->childCount() > 0)
            document.add(batch.release());
    };
    section.addTallRow(field, list);
    addFlags(section, subjects.ids, list);
    QObject::connect(list, &ksListEditor::currentChanged, list, [&section] { section.refresh(); });
}

} // namespace

ksInspectorPage ksInspectorPages::variants()
{
    const auto subjects = [](const std::vector<osg::NodePtr> &nodes) {
        return ksInspectorFields::subjects(nodes, [](const osg::NodePtr &node) {
            const bool has = osg::Transform3DPtr::dcast(node->getCore()) != osg::NullFC ||
                             ksNodeUtils::getTransformVariantsAttachment(node) != osg::NullFC;
            return has ? node : osg::NodePtr();
        });
    };
    return {VariantsPageTexts::tr("Variants"), false, subjects, &build};
}
