// SPDX-License-Identifier: MIT
#include <editor/edits/ksTransformEdits.h>
#include <editor/inspector/ksChoiceEditor.h>
#include <editor/inspector/ksFlagEditor.h>
#include <editor/inspector/ksInspectorEdits.h>
#include <editor/inspector/ksInspectorFields.h>
#include <editor/inspector/ksInspectorSection.h>
#include <editor/inspector/ksNumbersEditor.h>
#include <editor/scene/ksContainers.h>

#include <ksundo/transform/ksEulerRotationOrderUndoCommand.h>
#include <ksundo/transform/ksRotationAsQuaternionUndoCommand.h>

#include <OSGTransformVariantsAttachment.h>
#include <ksNodeUtils.h>

#include <QCoreApplication>

#include <algorithm>
#include <cmath>
#include <map>
#include <memory>
#include <optional>
#include <utility>

namespace {

struct TransformPageTexts
{
    Q_DECLARE_TR_FUNCTIONS(ksTransformPage)
};

/// Which of the transforms is shown, and how.
struct View
{
    /// The node whose values are shown, and that of its variants which is shown, by their ids; 0 for the
    /// node's own transform.
    osg::UInt32 node = 0;
    osg::UInt32 variant = 0;

    bool world = false;

    /// The variant; null for the node's own transform, and when the variant has gone.
    osg::TransformVariantPtr meant() const
    {
        const auto found = ksFindContainer<osg::TransformVariantPtr>(variant);
        const auto shown = ksFindContainer<osg::NodePtr>(node);
        const bool isThere = found != osg::NullFC && ksInspectorFields::indexOfVariant(shown, found) >= 0;
        return isThere ? found : osg::TransformVariantPtr();
    }

    /// The index of the transform of \a each; none when the node has no such variant.
    std::optional<int> indexIn(const osg::NodePtr &each) const
    {
        const osg::TransformVariantPtr wanted = meant();
        const int index = wanted == osg::NullFC ? -1 : ksInspectorFields::indexOfVariant(each, wanted);
        return wanted != osg::NullFC && index < 0 ? std::nullopt : std::optional<int>(index);
    }

    osg::Transform3DPtr transformOf(const osg::NodePtr &each) const
    {
        const std::optional<int> index = indexIn(each);
        return index ? ksNodeUtils::getTransform3D(each, *index) : osg::Transform3DPtr();
    }

    /// What transformOf() depends on, and \a mask of that.
    ksWatches watches(const osg::NodePtr &each, osg::BitVector mask) const
    {
        ksWatches watches;
        ksInspectorFields::watchVariants(watches, each, osg::TransformVariant::TransformFieldMask);
        if (const osg::Transform3DPtr transform = transformOf(each))
            watches.emplace_back(transform.getFieldContainerId(), mask);
        return watches;
    }
};

using SharedView = std::shared_ptr<View>;

osg::NodePtr nodeOf(const osg::FieldContainerPtr &target)
{
    return osg::NodePtr::dcast(target);
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
    target.index = view.indexIn(node).value();
    target.world = view.world && property.hasSpace;
    const osg::Transform3DPtr transform = view.transformOf(node);
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
        const bool isVariant = view->meant() != osg::NullFC;
        if (view->transformOf(node) == osg::NullFC || (isVariant && !property.hasIndex))
            return QVariant();
        return QVariant(listOf(property.read(targetOf(node, property, *view))));
    };
    field.watches = [&property, view](const osg::FieldContainerPtr &target) {
        const osg::NodePtr node = nodeOf(target);
        ksWatches watches = view->watches(node, maskOf(property, view->world));
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
        const osg::Transform3DPtr transform = view->transformOf(nodeOf(target));
        return transform == osg::NullFC
                   ? QVariant()
                   : QVariant(QString::fromStdString(transform->getEulerRotationOrder()));
    };
    field.watches = [view](const osg::FieldContainerPtr &target) {
        return view->watches(nodeOf(target), osg::Transform3D::EulerRotationOrderFieldMask);
    };
    field.make = [view](const osg::FieldContainerPtr &target, const QVariant &value, QUndoCommand *parent) {
        const osg::NodePtr node = nodeOf(target);
        return new ksEulerRotationOrderUndoCommand(node, value.toString().toStdString(), parent, {},
                                                   view->indexIn(node).value());
    };
    ksChoiceEditor::Choices orders;
    for (const char *order : {"XYZ", "XZY", "YXZ", "YZX", "ZXY", "ZYX"})
        orders.emplace_back(QString::fromLatin1(order), QString::fromLatin1(order));
    section.addRow(field, new ksChoiceEditor(orders));
}

/// The rotation of length 1 that \a parts are, of which \a typed stays as it is, as far as that can be. What
/// it leaves to the others is w; x, y and z are shorter only when it leaves them less than they have.
osg::Quaternion rotationOf(const QVariantList &parts, int typed)
{
    constexpr int W = 3;
    double values[4];
    double others = 0;
    for (int i = 0; i <= W; ++i) {
        values[i] = parts[i].toDouble();
        if (i != W && i != typed)
            others += values[i] * values[i];
    }
    values[typed] = std::clamp(values[typed], -1.0, 1.0);
    const double rest = 1 - values[typed] * values[typed];
    if (typed != W)
        values[W] = std::copysign(std::sqrt(std::max(rest - others, 0.0)), values[W]);
    else if (others == 0)
        values[0] = std::sqrt(rest);
    if (others > 0 && (typed == W || others > rest))
        for (int i = 0; i < W; ++i)
            values[i] *= i == typed ? 1 : std::sqrt(rest / others);
    osg::Quaternion rotation(static_cast<float>(values[0]), static_cast<float>(values[1]),
                             static_cast<float>(values[2]), static_cast<float>(values[W]));
    return rotation;
}

QVariantList partsOf(const osg::Quaternion &rotation)
{
    QVariantList parts;
    for (osg::UInt32 i = 0; i < 4; ++i)
        parts += static_cast<double>(rotation[i]);
    return parts;
}

void addQuaternion(ksInspectorSection &section, const std::vector<osg::UInt32> &ids, const SharedView &view)
{
    ksInspectorField field;
    field.name = TransformPageTexts::tr("Quaternion");
    field.targets = ids;
    field.read = [view](const osg::FieldContainerPtr &target) {
        const osg::Transform3DPtr transform = view->transformOf(nodeOf(target));
        const bool isVariant = view->meant() != osg::NullFC;
        return isVariant || transform == osg::NullFC ? QVariant()
                                                     : QVariant(partsOf(transform->getRotation()));
    };
    field.watches = [view](const osg::FieldContainerPtr &target) {
        return view->watches(nodeOf(target), osg::Transform3D::RotationFieldMask);
    };
    // A drag goes from where it began, however it gets to where it is.
    const auto starts = std::make_shared<std::map<osg::UInt32, std::pair<std::size_t, QVariantList>>>();
    field.make = [starts, &edits = section.edits()](const osg::FieldContainerPtr &target,
                                                    const QVariant &value, QUndoCommand *parent) {
        const osg::NodePtr node = nodeOf(target);
        const QVariantList wanted = value.toList();
        const QVariantList known = partsOf(ksNodeUtils::getTransform3D(node, -1)->getRotation());
        const auto differs = std::mismatch(wanted.begin(), wanted.end(), known.begin()).first;
        const int typed = std::min(static_cast<int>(differs - wanted.begin()), 3);
        auto &[gesture, parts] = (*starts)[target.getFieldContainerId()];
        if (std::exchange(gesture, edits.gestureCount()) != edits.gestureCount())
            parts = known;
        QVariantList meant = differs == wanted.end() ? known : parts;
        meant[typed] = wanted[typed];
        const osg::Quaternion rotation = rotationOf(meant, typed);
        const QString text = TransformPageTexts::tr("Turn '%1'").arg(ksContainers::nameOf(target));
        return new ksRotationAsQuaternionUndoCommand(text, node, rotation, parent);
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
    field.read = [plain, view](const osg::FieldContainerPtr &target) {
        const osg::Transform3DPtr transform = view->transformOf(nodeOf(target));
        return transform == osg::NullFC ? QVariant() : plain.read(transform);
    };
    field.watches = [name, view](const osg::FieldContainerPtr &target) {
        const osg::FieldDescription *description =
            osg::Transform3D::getClassType().findFieldDescription(name.toLatin1().constData());
        return view->watches(nodeOf(target), description->getFieldMask());
    };
    field.make = [name, view](const osg::FieldContainerPtr &target, const QVariant &value,
                              QUndoCommand *parent) {
        return ksInspectorFields::make(view->transformOf(nodeOf(target)), name, value, parent);
    };
    section.addRow(field, editor);
}

/// Adds the rows that say which transform is shown, and how; these edit nothing.
void addView(ksInspectorSection &section, const std::vector<osg::UInt32> &ids, const SharedView &view)
{
    ksInspectorField which;
    which.name = TransformPageTexts::tr("Transform");
    which.targets = ids;
    which.read = [view](const osg::FieldContainerPtr &) { return view->meant().getFieldContainerId(); };
    which.watches = [](const osg::FieldContainerPtr &target) {
        ksWatches watches;
        ksInspectorFields::watchVariants(watches, nodeOf(target), osg::TransformVariant::NameFieldMask);
        return watches;
    };
    which.perform = [view, &section](const QVariant &value, int) {
        view->variant = value.toUInt();
        section.refresh();
    };
    const auto textOf = [](const QVariant &id) {
        const auto variant = ksFindContainer<osg::TransformVariantPtr>(id.toUInt());
        return variant == osg::NullFC
                   ? TransformPageTexts::tr("The node's own")
                   : TransformPageTexts::tr("Variant %1").arg(QString::fromStdString(variant->getName()));
    };
    const auto choices = [view, textOf] {
        ksChoiceEditor::Choices all{{textOf(0U), 0U}};
        const auto node = ksFindContainer<osg::NodePtr>(view->node);
        if (const auto variants = ksNodeUtils::getTransformVariantsAttachment(node))
            for (const osg::TransformVariantPtr &variant : variants->getVariants())
                all.emplace_back(textOf(variant.getFieldContainerId()), variant.getFieldContainerId());
        return all;
    };
    section.addRow(which, new ksChoiceEditor(choices, textOf));

    ksInspectorField space;
    space.name = TransformPageTexts::tr("Space");
    space.targets = ids;
    space.read = [view](const osg::FieldContainerPtr &) { return view->world; };
    space.watches = [](const osg::FieldContainerPtr &) { return ksWatches(); };
    space.perform = [view, &section](const QVariant &value, int) {
        view->world = value.toBool();
        section.refresh();
    };
    section.addRow(space, new ksChoiceEditor({{TransformPageTexts::tr("Parent"), false},
                                              {TransformPageTexts::tr("World"), true}}));
}

void buildTransform(ksInspectorSection &section, const ksInspectorSubjects &subjects, const SharedView &view)
{
    view->node = subjects.ids.back();
    view->variant = 0;
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
    // The space stays from one selection to the next.
    const auto view = std::make_shared<View>();
    return {TransformPageTexts::tr("Transform"), false, subjects,
            [view](ksInspectorSection &section, const ksInspectorSubjects &shown) {
                buildTransform(section, shown, view);
            }};
}
