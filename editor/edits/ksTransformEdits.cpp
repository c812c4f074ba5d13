// SPDX-License-Identifier: MIT
#include <editor/edits/ksTransformEdits.h>
#include <editor/ksEditorError.h>
#include <editor/scene/ksContainers.h>
#include <editor/scene/ksWorldSpace.h>

#include <ksNodeUtils.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <type_traits>
#include <utility>

namespace {

using osg::Transform3D;

/// A row of the table: the command that sets what \a Get answers. \a Mode is bool for those that take a
/// space.
template <class Command, auto Get, class... Mode>
struct TransformRow
{
    static constexpr bool HasIndex = std::is_invocable_v<decltype(Get), osg::NodePtr, Mode..., int>;
    static constexpr bool HasCallback = std::is_constructible_v<Command, osg::NodePtr, osg::Vec3f, Mode...,
                                                                QUndoCommand *, ksTransformCallback, int>;

    static osg::Vec3f read(const ksTransformTarget &target)
    {
        if constexpr (HasIndex)
            return Get(target.node, Mode(target.world)..., target.index);
        else
            return Get(target.node);
    }

    static ksUndoCommand *make(const ksTransformTarget &target, const osg::Vec3f &value,
                               const ksTransformCallback &callback, QUndoCommand *parent)
    {
        if constexpr (HasCallback)
            return new Command(target.node, value, Mode(target.world)..., parent, callback, target.index);
        else if constexpr (HasIndex)
            return new Command(target.node, value, Mode(target.world)..., parent, target.index);
        else
            return new Command(target.node, value, parent);
    }

    static ksTransformProperty named(const char *name, osg::UInt32 field)
    {
        return {name, field, sizeof...(Mode) > 0, HasIndex, HasCallback, &read, &make};
    }
};

osg::Vec3f readDirection(const ksTransformTarget &target)
{
    return ksNodeUtils::getTransformNodeRotationDirection(target.node, target.index, -1);
}

ksUndoCommand *makeDirection(const ksTransformTarget &target, const osg::Vec3f &value,
                             const ksTransformCallback &, QUndoCommand *parent)
{
    return new ksRotationPivotDirectionUndoCommand(target.node, value, target.directionAxis,
                                                   target.directionOn, parent, target.index);
}

} // namespace

const std::vector<ksTransformProperty> &ksTransformEdits::properties()
{
    static const std::vector<ksTransformProperty> all = {
        TransformRow<ksTranslationUndoCommand, &ksNodeUtils::getTransformNodeTranslation, bool>::named(
            "translation", Transform3D::TranslationFieldId),
        TransformRow<ksRotationUndoCommand, &ksNodeUtils::getTransformNodeRotation>::named(
            "eulerRotation", Transform3D::EulerRotationFieldId),
        TransformRow<ksScaleUndoCommand, &ksNodeUtils::getTransformNodeScale>::named(
            "scale", Transform3D::ScaleFieldId),
        TransformRow<ksShearUndoCommand, &ksNodeUtils::getTransformNodeShear>::named(
            "shear", Transform3D::ShearFieldId),
        TransformRow<ksScalePivotUndoCommand, &ksNodeUtils::getTransformNodeScalePivot, bool>::named(
            "scalePivot", Transform3D::ScalePivotFieldId),
        TransformRow<ksRotationPivotUndoCommand, &ksNodeUtils::getTransformNodeRotatePivot, bool>::named(
            "rotatePivot", Transform3D::RotatePivotFieldId),
        TransformRow<ksScalePivotTranslationUndoCommand,
                     &ksNodeUtils::getTransformNodeScalePivotTranslation>::
            named("scalePivotTranslation", Transform3D::ScalePivotTranslationFieldId),
        TransformRow<ksRotationPivotTranslationUndoCommand,
                     &ksNodeUtils::getTransformNodeRotatePivotTranslation>::
            named("rotatePivotTranslation", Transform3D::RotatePivotTranslationFieldId),
        TransformRow<ksRotationPivotOrientationUndoCommand,
                     &ksNodeUtils::getTransformNodeRotationOrientation>::
            named("rotationOrientation", Transform3D::RotationOrientationFieldId),
        {"rotationDirection", Transform3D::RotationDirectionFieldId, false, true, false, &readDirection,
         &makeDirection},
    };
    return all;
}

const ksTransformProperty *ksTransformEdits::find(const QString &name)
{
    const auto found =
        std::find_if(properties().begin(), properties().end(), [&name](const ksTransformProperty &property) {
            return name == QLatin1String(property.name);
        });
    return found != properties().end() ? &*found : nullptr;
}

void ksTransformEdits::refuseUnreachable(const osg::NodePtr &node, const osg::Vec3f &position)
{
    const QString refusal = ksContainers::label(node) + QStringLiteral(" cannot be placed ");
    osg::Matrix4d toParent = ksWorldSpace::above(node);
    if (!toParent.invert())
        throw ksEditorError(refusal + QStringLiteral("in world space: what is above it is flattened"));
    for (osg::UInt32 row = 0; row < 3; ++row) {
        double value = toParent[3][row];
        for (osg::UInt32 column = 0; column < 3; ++column)
            value += toParent[column][row] * position[column];
        if (!(std::abs(value) <= std::numeric_limits<float>::max()))
            throw ksEditorError(refusal + QStringLiteral("so far away"));
    }
}

ksTransformationUndoCommand *
ksTransformEdits::makeApply(const osg::NodePtr &node, const ksTransformation &values, int index, bool syncs,
                            ksTransformationUndoCommand::Notification notification, QUndoCommand *parent)
{
    return new ksTransformationUndoCommand(node, values, syncs, parent, std::move(notification), index);
}

void ksTransformEdits::addApplied(const osg::NodePtr &node, const osg::TransformVariantPtr &variant,
                                  QUndoCommand *batch)
{
    namespace Flags = osg::TransformVariantFlags;
    using Values = ksTransformation;
    const osg::Transform3DPtr stored = variant->getTransform();
    const osg::Transform3DPtr own = ksNodeUtils::getTransform3D(node, -1);
    if (stored == osg::NullFC || own == osg::NullFC)
        return;
    const Values from = Values::of(stored);
    Values values = Values::of(own);
    const auto take = [&, flags = variant->getApplyFlags()](osg::UInt64 flag, auto... members) {
        if ((flags & flag) != 0)
            ((values.*members = from.*members), ...);
    };
    take(Flags::Translation, &Values::translation);
    take(Flags::Rotation, &Values::rotation);
    take(Flags::Scale, &Values::scale);
    take(Flags::Shear, &Values::shear);
    take(Flags::ScalePivot, &Values::scalePivot);
    take(Flags::RotatePivot, &Values::rotatePivot);
    take(Flags::ScalePivotTranslation, &Values::scalePivotTranslation);
    take(Flags::RotatePivotTranslation, &Values::rotatePivotTranslation);
    take(Flags::RotationDirection, &Values::rotationDirectionOn, &Values::rotationDirection,
         &Values::rotationDirectionMode);
    take(Flags::EulerRotationOrder, &Values::eulerRotationOrder);
    take(Flags::InheritType, &Values::inheritType);
    makeApply(node, values, -1, true, {}, batch);
    if ((variant->getApplyFlags() & Flags::RotationOrientation) != 0)
        new ksRotationPivotOrientationUndoCommand(node, stored->getRotationOrientation(), batch, -1);
}

osg::TransformVariantPtr ksTransformEdits::makeVariant(const osg::NodePtr &node, const std::string &name)
{
    const osg::Transform3DPtr own = ksNodeUtils::getTransform3D(node, -1);
    const osg::Transform3DPtr transform =
        own != osg::NullFC ? osg::Transform3DPtr::dcast(own->shallowCopy()) : osg::Transform3D::create();
    const osg::TransformVariantPtr variant = osg::TransformVariant::create();
    CPEdit(variant, osg::TransformVariant::NameFieldMask | osg::TransformVariant::TransformFieldMask);
    variant->setName(name);
    variant->setTransform(transform);
    return variant;
}
