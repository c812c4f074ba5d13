// SPDX-License-Identifier: MIT
#include "ksTransformEdits.h"

#include <ksNodeUtils.h>

#include <algorithm>
#include <type_traits>
#include <utility>

namespace {

using osg::Transform3D;

/// A row of the table. \a Mode is bool for the commands that take a space.
template <auto get, class Command, class... Mode>
struct Row
{
    static constexpr bool HasCallback = std::is_constructible_v<Command, osg::NodePtr, osg::Vec3f, Mode...,
                                                                QUndoCommand *, ksTransformCallback, int>;
    static constexpr bool HasIndex =
        HasCallback ||
        std::is_constructible_v<Command, osg::NodePtr, osg::Vec3f, Mode..., QUndoCommand *, int>;

    static osg::Vec3f read(const ksTransformTarget &target)
    {
        if constexpr (HasIndex)
            return get(target.node, Mode(target.world)..., target.index);
        else
            return get(target.node);
    }

    static ksUndoCommand *make(const ksTransformTarget &target, const osg::Vec3f &value,
                               const ksTransformCallback &callback)
    {
        if constexpr (HasCallback)
            return new Command(target.node, value, Mode(target.world)..., nullptr, callback, target.index);
        else if constexpr (HasIndex)
            return new Command(target.node, value, Mode(target.world)..., nullptr, target.index);
        else
            return new Command(target.node, value, nullptr);
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
                             const ksTransformCallback &)
{
    return new ksRotationPivotDirectionUndoCommand(target.node, value, target.directionAxis,
                                                   target.directionOn, nullptr, target.index);
}

} // namespace

const std::vector<ksTransformProperty> &ksTransformEdits::properties()
{
    static const std::vector<ksTransformProperty> all = {
        Row<&ksNodeUtils::getTransformNodeTranslation, ksTranslationUndoCommand, bool>::named(
            "translation", Transform3D::TranslationFieldId),
        Row<&ksNodeUtils::getTransformNodeRotation, ksRotationUndoCommand>::named(
            "eulerRotation", Transform3D::EulerRotationFieldId),
        Row<&ksNodeUtils::getTransformNodeScale, ksScaleUndoCommand>::named("scale",
                                                                            Transform3D::ScaleFieldId),
        Row<&ksNodeUtils::getTransformNodeShear, ksShearUndoCommand>::named("shear",
                                                                            Transform3D::ShearFieldId),
        Row<&ksNodeUtils::getTransformNodeScalePivot, ksScalePivotUndoCommand, bool>::named(
            "scalePivot", Transform3D::ScalePivotFieldId),
        Row<&ksNodeUtils::getTransformNodeRotatePivot, ksRotationPivotUndoCommand, bool>::named(
            "rotatePivot", Transform3D::RotatePivotFieldId),
        Row<&ksNodeUtils::getTransformNodeScalePivotTranslation, ksScalePivotTranslationUndoCommand>::named(
            "scalePivotTranslation", Transform3D::ScalePivotTranslationFieldId),
        Row<&ksNodeUtils::getTransformNodeRotatePivotTranslation,
            ksRotationPivotTranslationUndoCommand>::named("rotatePivotTranslation",
                                                          Transform3D::RotatePivotTranslationFieldId),
        Row<&ksNodeUtils::getTransformNodeRotationOrientation, ksRotationPivotOrientationUndoCommand>::named(
            "rotationOrientation", Transform3D::RotationOrientationFieldId),
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

ksTransformationUndoCommand *
ksTransformEdits::makeApply(const osg::NodePtr &node, const ksTransformation &values, int index, bool syncs,
                            ksTransformationUndoCommand::Notification notification)
{
    return new ksTransformationUndoCommand(node, values, syncs, nullptr, std::move(notification), index);
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
