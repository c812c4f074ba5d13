// SPDX-License-Identifier: MIT
#include <editor/edits/ksTransformEdits.h>
#include <editor/inspector/ksChoiceEditor.h>
#include <editor/inspector/ksFlagEditor.h>
#include <editor/inspector/ksInspectorFields.h>
#include <editor/inspector/ksInspectorSection.h>
#include <editor/inspector/ksNumbersEditor.h>
#include <editor/ksEditorError.h>
#include <editor/scene/ksContainers.h>

#include <ksundo/transform/ksEulerRotationOrderUndoCommand.h>
#include <ksundo/transform/ksRotationAsQuaternionUndoCommand.h>

#include <OSGTransformVariantsAttachment.h>
#include <ksNodeUtils.h>

#include <QCoreApplication>

#include <memory>

namespace {

struct TransformPageTexts
{
    Q_DECLARE_TR_FUNCTIONS(ksTransformPage)
};

/// Which of the transforms is shown, and how.
struct View
{
    int index = -1;
    bool world = false;

    /// The index; -1 when \a node has no such variant.
    int indexIn(const osg::NodePtr &node) const
    {
        return index < static_cast<int>(ksNodeUtils::getTransformVariantCount(node)) ? index : -1;
    }
};

using SharedView = std::shared_ptr<View>;

osg::NodePtr nodeOf(const osg::FieldContainerPtr &target)
{
    return osg::NodePtr::dcast(target);
}

/// What the transform of \a node that \a index means depends on: the variants, and \a mask of the transform.
ksWatches watchesOf(const osg::NodePtr &node, int index, osg::BitVector mask)
{
    ksWatches watches{{node.getFieldContainerId(), osg::Node::AttachmentsFieldMask}};
    if (const auto variants = ksNodeUtils::getTransformVariantsAttachment(node))
        watches.emplace_back(variants.getFieldContainerId(), osg::FieldBits::AllFields);
    if (index >= 0)
        if (const auto variant = ksNodeUtils::getTransformVariant(node, static_cast<unsigned long>(index)))
            watches.emplace_back(variant.getFieldContainerId(), osg::TransformVariant::TransformFieldMask);
    if (const auto transform = ksNodeUtils::getTransform3D(node, index))
        watches.emplace_back(transform.getFieldContainerId(), mask);
    return watches;
}

/// Adds what the place of \a node in world space depends on.
void watchAbove(ksWatches &watches, const osg::NodePtr &node)
{
    for (osg::NodePtr each = node; each != osg::NullFC; each = each->getParent()) {
        watches.emplace_back(each.getFieldContainerId(),
                             osg::Node::ParentFieldMask | osg::Node::CoreFieldMask);
        if (each != node && each->getCore() != osg::NullFC)
            watches.emplace_back(each->getCore().getFieldContainerId(), osg::FieldBits::AllFields);
    }
}

QVariantList listOf(const osg::Vec3f &vector)
{
    return {static_cast<double>(vector[0]), static_cast<double>(vector[1]), static_cast<double>(vector[2])};
}

osg::Vec3f vectorOf(const QVariant &value)
{
    const QVariantList list = value.toList();
    return {list[0].toFloat(), list[1].toFloat(), list[2].toFloat()};
}

ksTransformTarget targetOf(const osg::NodePtr &node, const ksTransformProperty &property, const View &view)
{
    ksTransformTarget target;
    target.node = node;
    target.index = view.indexIn(node);
    target.world = view.world && property.hasSpace;
    const osg::Transform3DPtr transform = ksNodeUtils::getTransform3D(node, target.index);
    // An edit of the direction restores neither of these when it is undone.
    target.directionAxis = transform->getRotationDirectionMode();
    target.directionOn = transform->getRotationDirectionOn();
    return target;
}

QString labelOf(const ksTransformProperty &property)
{
    switch (property.field) {
    case osg::Transform3D::EulerRotationFieldId:
        return TransformPageTexts::tr("Rotation");
    case osg::Transform3D::ScalePivotTranslationFieldId:
        return TransformPageTexts::tr("Scale pivot shift");
    case osg::Transform3D::RotatePivotTranslationFieldId:
        return TransformPageTexts::tr("Rotate pivot shift");
    case osg::Transform3D::RotationOrientationFieldId:
        return TransformPageTexts::tr("Orientation");
    case osg::Transform3D::RotationDirectionFieldId:
        return TransformPageTexts::tr("Direction");
    default:
        return ksInspectorFields::label(QString::fromLatin1(property.name));
    }
}

/// What the matrix, or the other form of a rotation, makes a property depend on besides its own field.
osg::BitVector maskOf(const ksTransformProperty &property, bool world)
{
    if (world && property.hasSpace)
        return osg::Transform3D::ComponentsFieldMask;
    return ksInspectorFields::maskOf(property.field);
}

void addProperty(ksInspectorSection &section, const std::vector<osg::UInt32> &ids,
                 const ksTransformProperty &property, const SharedView &view)
{
    ksInspectorField field;
    field.name = labelOf(property);
    field.targets = ids;
    field.read = [&property, view](const osg::FieldContainerPtr &target) {
        const osg::NodePtr node = nodeOf(target);
        const int index = view->indexIn(node);
        if (ksNodeUtils::getTransform3D(node, index) == osg::NullFC || (index >= 0 && !property.hasIndex))
            return QVariant();
        return QVariant(listOf(property.read(targetOf(node, property, *view))));
    };
    field.watches = [&property, view](const osg::FieldContainerPtr &target) {
        const osg::NodePtr node = nodeOf(target);
        ksWatches watches = watchesOf(node, view->indexIn(node), maskOf(property, view->world));
        if (view->world && property.hasSpace)
            watchAbove(watches, node);
        return watches;
    };
    field.make = [&property, view](const osg::FieldContainerPtr &target, const QVariant &value,
                                   QUndoCommand *parent) {
        const ksTransformTarget meant = targetOf(nodeOf(target), property, *view);
        const osg::Vec3f wanted = vectorOf(value);
        if (meant.world)
            ksTransformEdits::refuseUnreachable(meant.node, wanted);
        return property.make(meant, wanted, {}, parent);
    };
    ksNumberKind kind;
    if (property.field == osg::Transform3D::EulerRotationFieldId ||
        property.field == osg::Transform3D::RotationOrientationFieldId)
        kind.step = 1;
    if (property.field == osg::Transform3D::ScaleFieldId || property.field == osg::Transform3D::ShearFieldId)
        kind.step = 0.01;
    section.addRow(field, new ksNumbersEditor(kind, QStringList{QStringLiteral("x"), QStringLiteral("y"),
                                                                QStringLiteral("z")}));
}

void addOrder(ksInspectorSection &section, const std::vector<osg::UInt32> &ids, const SharedView &view)
{
    ksInspectorField field;
    field.name = TransformPageTexts::tr("Rotation order");
    field.targets = ids;
    field.read = [view](const osg::FieldContainerPtr &target) {
        const osg::NodePtr node = nodeOf(target);
        return QString::fromStdString(
            ksNodeUtils::getTransformNodeEulerRotationOrder(node, view->indexIn(node)));
    };
    field.watches = [view](const osg::FieldContainerPtr &target) {
        const osg::NodePtr node = nodeOf(target);
        return watchesOf(node, view->indexIn(node), osg::Transform3D::EulerRotationOrderFieldMask);
    };
    field.make = [view](const osg::FieldContainerPtr &target, const QVariant &value, QUndoCommand *parent) {
        const osg::NodePtr node = nodeOf(target);
        return new ksEulerRotationOrderUndoCommand(node, value.toString().toStdString(), parent, {},
                                                   view->indexIn(node));
    };
    ksChoiceEditor::Choices orders;
    for (const char *order : {"XYZ", "XZY", "YXZ", "YZX", "ZXY", "ZYX"})
        orders.emplace_back(QString::fromLatin1(order), QString::fromLatin1(order));
    section.addRow(field, new ksChoiceEditor(orders));
}

void addQuaternion(ksInspectorSection &section, const std::vector<osg::UInt32> &ids, const SharedView &view)
{
    ksInspectorField field;
    field.name = TransformPageTexts::tr("Quaternion");
    field.targets = ids;
    field.read = [view](const osg::FieldContainerPtr &target) {
        const osg::NodePtr node = nodeOf(target);
        const auto transform = ksNodeUtils::getTransform3D(node, -1);
        if (view->indexIn(node) >= 0 || transform == osg::NullFC)
            return QVariant();
        QVariantList parts;
        for (osg::UInt32 i = 0; i < 4; ++i)
            parts += static_cast<double>(transform->getRotation()[i]);
        return QVariant(parts);
    };
    field.watches = [view](const osg::FieldContainerPtr &target) {
        const osg::NodePtr node = nodeOf(target);
        return watchesOf(node, view->indexIn(node), osg::Transform3D::RotationFieldMask);
    };
    field.make = [](const osg::FieldContainerPtr &target, const QVariant &value, QUndoCommand *parent) {
        const QVariantList parts = value.toList();
        osg::Quaternion rotation(parts[0].toFloat(), parts[1].toFloat(), parts[2].toFloat(),
                                 parts[3].toFloat());
        if (rotation.length() == 0)
            throw ksEditorError("a quaternion of length 0 is no rotation");
        rotation.normalize();
        const QString text = TransformPageTexts::tr("Turn '%1'").arg(ksContainers::nameOf(target));
        return new ksRotationAsQuaternionUndoCommand(text, nodeOf(target), rotation, parent);
    };
    ksNumberKind kind;
    kind.step = 0.01;
    section.addRow(field, new ksNumbersEditor(kind, QStringList{QStringLiteral("x"), QStringLiteral("y"),
                                                                QStringLiteral("z"), QStringLiteral("w")}));
}

/// Adds a row for a plain field of the transform that is shown.
void addPlain(ksInspectorSection &section, const std::vector<osg::UInt32> &ids, const SharedView &view,
              const QString &label, const QString &name, ksValueEditor *editor)
{
    const ksInspectorField plain = ksInspectorFields::fieldOf(ids, name);
    ksInspectorField field = plain;
    field.name = label;
    const auto transformOf = [view](const osg::FieldContainerPtr &target) {
        const osg::NodePtr node = nodeOf(target);
        return ksNodeUtils::getTransform3D(node, view->indexIn(node));
    };
    field.read = [plain, transformOf](const osg::FieldContainerPtr &target) {
        const osg::Transform3DPtr transform = transformOf(target);
        return transform == osg::NullFC ? QVariant() : plain.read(transform);
    };
    field.watches = [name, view](const osg::FieldContainerPtr &target) {
        const osg::NodePtr node = nodeOf(target);
        const osg::FieldDescription *description =
            osg::Transform3D::getClassType().findFieldDescription(name.toLatin1().constData());
        return watchesOf(node, view->indexIn(node), description->getFieldMask());
    };
    field.make = [name, transformOf](const osg::FieldContainerPtr &target, const QVariant &value,
                                     QUndoCommand *parent) {
        return ksInspectorFields::make(transformOf(target), name, value, parent);
    };
    section.addRow(field, editor);
}

/// Adds the rows that say which transform is shown, and how; these edit nothing.
void addView(ksInspectorSection &section, const std::vector<osg::UInt32> &ids, const SharedView &view)
{
    ksInspectorField which;
    which.name = TransformPageTexts::tr("Transform");
    which.targets = ids;
    which.read = [view](const osg::FieldContainerPtr &target) { return view->indexIn(nodeOf(target)); };
    which.watches = [view](const osg::FieldContainerPtr &target) {
        const osg::NodePtr node = nodeOf(target);
        ksWatches watches = watchesOf(node, -1, 0);
        if (const auto variant =
                ksNodeUtils::getTransformVariant(node, static_cast<unsigned long>(view->indexIn(node))))
            watches.emplace_back(variant.getFieldContainerId(), osg::TransformVariant::NameFieldMask);
        return watches;
    };
    which.perform = [view, &section](const QVariant &value) {
        view->index = value.toInt();
        section.refresh();
    };
    const auto textOf = [id = ids.back()](const QVariant &index) {
        if (index.toInt() < 0)
            return TransformPageTexts::tr("The node's own");
        const auto node = ksFindContainer<osg::NodePtr>(id);
        return TransformPageTexts::tr("Variant %1")
            .arg(QString::fromStdString(ksNodeUtils::getTransformVariantName(node, index.toInt())));
    };
    const auto choices = [id = ids.back(), textOf] {
        ksChoiceEditor::Choices all;
        const auto node = ksFindContainer<osg::NodePtr>(id);
        const int count = static_cast<int>(ksNodeUtils::getTransformVariantCount(node));
        for (int index = -1; index < count; ++index)
            all.emplace_back(textOf(index), index);
        return all;
    };
    section.addRow(which, new ksChoiceEditor(choices, textOf));

    ksInspectorField space;
    space.name = TransformPageTexts::tr("Space");
    space.targets = ids;
    space.read = [view](const osg::FieldContainerPtr &) { return view->world; };
    space.watches = [](const osg::FieldContainerPtr &) { return ksWatches(); };
    space.perform = [view, &section](const QVariant &value) {
        view->world = value.toBool();
        section.refresh();
    };
    section.addRow(space, new ksChoiceEditor({{TransformPageTexts::tr("Parent"), false},
                                              {TransformPageTexts::tr("World"), true}}));
}

void build(ksInspectorSection &section, const ksInspectorSubjects &subjects)
{
    const auto view = std::make_shared<View>();
    addView(section, subjects.ids, view);
    for (const ksTransformProperty &property : ksTransformEdits::properties()) {
        addProperty(section, subjects.ids, property, view);
        if (property.field == osg::Transform3D::EulerRotationFieldId) {
            addOrder(section, subjects.ids, view);
            addQuaternion(section, subjects.ids, view);
        }
    }
    addPlain(section, subjects.ids, view, TransformPageTexts::tr("Follows direction"),
             QStringLiteral("rotationDirectionOn"), new ksFlagEditor);
    addPlain(section, subjects.ids, view, TransformPageTexts::tr("Direction's axis"),
             QStringLiteral("rotationDirectionMode"),
             new ksChoiceEditor({{TransformPageTexts::tr("x axis"), 0.0},
                                 {TransformPageTexts::tr("y axis"), 1.0},
                                 {TransformPageTexts::tr("z axis"), 2.0}}));
    ksChoiceEditor::Choices types;
    constexpr int TypeCount = 4;
    for (int i = 0; i < TypeCount; ++i)
        types.emplace_back(TransformPageTexts::tr("Type %1").arg(i), static_cast<double>(i));
    addPlain(section, subjects.ids, view, TransformPageTexts::tr("Inherit type"),
             QStringLiteral("inheritType"), new ksChoiceEditor(types));
}

} // namespace

ksInspectorPage ksInspectorPages::transform()
{
    const auto subjects = [](const std::vector<osg::NodePtr> &nodes) {
        return ksInspectorFields::subjects(nodes, [](const osg::NodePtr &node) {
            return osg::Transform3DPtr::dcast(node->getCore()) != osg::NullFC ? node : osg::NodePtr();
        });
    };
    return {TransformPageTexts::tr("Transform"), false, subjects, &build};
}
