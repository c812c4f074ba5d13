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
    ksWatches watches;
    ksInspectorFields::watchVariants(watches, osg::NodePtr::dcast(target), mask);
    return watches;
}

/// Adds the command that \a wanted is for the variant of \a node called like \a meant to \a batch; none when
/// the node has no such variant.
void addChange(const osg::NodePtr &node, const ksListChange &wanted, const osg::TransformVariantPtr &meant,
               QUndoCommand *batch)
{
    const std::string name = wanted.text.toStdString();
    if (wanted.kind == ksListChange::Kind::Add) {
        new ksAddTransformVariantUndoCommand(node, ksTransformEdits::makeVariant(node, name),
                                             static_cast<unsigned long>(countIn(node)), batch, unheard);
        return;
    }
    const int row = ksInspectorFields::indexOfVariant(node, meant);
    const osg::TransformVariantPtr variant = variantOf(node, row);
    if (variant == osg::NullFC)
        return;
    if (wanted.kind == ksListChange::Kind::Remove)
        new ksRemoveTransformSwitchVariantUndoCommand(node, static_cast<unsigned long>(row), batch, unheard);
    else if (wanted.kind == ksListChange::Kind::Apply)
        ksTransformEdits::addApplied(node, variant, batch);
    else if (wanted.kind == ksListChange::Kind::Rename && variant->getName() != name)
        new ksTransformVariantNameUndoCommand(variant, name, batch, unheard);
    else if (wanted.kind == ksListChange::Kind::Move && wanted.to >= 0 && wanted.to < countIn(node) &&
             wanted.to != row)
        new ksTransformVariantMoveCommand(node, row, wanted.to, batch, unheard);
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
    case ksListChange::Kind::Apply:
        return VariantsPageTexts::tr("Apply variant");
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
    // That of the shown node, and those of the others that are called like it.
    const auto find = [list, shown = ids.back()](const osg::FieldContainerPtr &target) {
        const auto meant = variantOf(ksFindContainer<osg::NodePtr>(shown), list->currentRow());
        return meant == osg::NullFC
                   ? meant
                   : variantOf(target, ksInspectorFields::indexOfVariant(osg::NodePtr::dcast(target), meant));
    };
    ksInspectorField field;
    field.name = VariantsPageTexts::tr("Applies");
    field.targets = ids;
    field.read = [find, flags](const osg::FieldContainerPtr &target) {
        const osg::TransformVariantPtr variant = find(target);
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
    field.make = [find, flags](const osg::FieldContainerPtr &target, const QVariant &value,
                               QUndoCommand *parent) {
        const osg::TransformVariantPtr variant = find(target);
        const QVariantList values = value.toList();
        osg::UInt64 bits = variant->getApplyFlags();
        for (std::size_t i = 0; i < flags.size(); ++i)
            bits = values[static_cast<int>(i)].toBool() ? bits | flags[i].second : bits & ~flags[i].second;
        return new ksTransformVariantOptionsUndoCommand(variant, bits, parent, unheard);
    };
    section.addTallRow(field, new ksFlagEditor(texts));
}

void buildVariants(ksInspectorSection &section, const ksInspectorSubjects &subjects)
{
    ksDocument &document = section.edits().document();
    auto *list =
        new ksListEditor(ksListEditor::TypeNew | ksListEditor::ApplyEntry | ksListEditor::RemoveEntry |
                         ksListEditor::RenameEntry | ksListEditor::MoveEntry | ksListEditor::TellChanges);
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
    field.perform = [&document, ids = subjects.ids](const QVariant &value, int) {
        const auto wanted = value.value<ksListChange>();
        auto batch = std::make_unique<ksMultiCommand>(textOf(wanted));
        const auto nodes = ksInspectorFields::findAll<osg::NodePtr>(ids);
        const osg::TransformVariantPtr meant = variantOf(nodes.back(), wanted.row);
        for (const osg::NodePtr &node : nodes)
            addChange(node, wanted, meant, batch.get());
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
    return {VariantsPageTexts::tr("Variants"), false, subjects, &buildVariants};
}
