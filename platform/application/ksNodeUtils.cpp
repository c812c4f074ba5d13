// SPDX-License-Identifier: MIT
#include "ksNodeUtils.h"

#include <algorithm>

namespace {

using osg::Transform3D;

/// A vector field of a transform.
struct Component
{
    osg::SFVec3f *(Transform3D::*field)();
    osg::BitVector mask;
};

constexpr Component translationField = {&Transform3D::getSFTranslation, Transform3D::TranslationFieldMask};
constexpr Component rotationField = {&Transform3D::getSFEulerRotation, Transform3D::EulerRotationFieldMask};
constexpr Component scaleField = {&Transform3D::getSFScale, Transform3D::ScaleFieldMask};
constexpr Component shearField = {&Transform3D::getSFShear, Transform3D::ShearFieldMask};
constexpr Component scalePivotField = {&Transform3D::getSFScalePivot, Transform3D::ScalePivotFieldMask};
constexpr Component rotatePivotField = {&Transform3D::getSFRotatePivot, Transform3D::RotatePivotFieldMask};
constexpr Component scalePivotTranslationField = {&Transform3D::getSFScalePivotTranslation,
                                                  Transform3D::ScalePivotTranslationFieldMask};
constexpr Component rotatePivotTranslationField = {&Transform3D::getSFRotatePivotTranslation,
                                                   Transform3D::RotatePivotTranslationFieldMask};
constexpr Component rotationOrientationField = {&Transform3D::getSFRotationOrientation,
                                                Transform3D::RotationOrientationFieldMask};

osg::Vec3f read(const osg::NodePtr &node, int index, const Component &component)
{
    const osg::Transform3DPtr transform = ksNodeUtils::getTransform3D(node, index);
    return transform ? ((*transform).*component.field)()->getValue() : osg::Vec3f();
}

void write(const osg::NodePtr &node, int index, const Component &component, const osg::Vec3f &value)
{
    if (const osg::Transform3DPtr transform = ksNodeUtils::getTransform3D(node, index)) {
        const osg::CPEditor edit(transform, component.mask);
        ((*transform).*component.field)()->setValue(value);
    }
}

/// Null for a negative index: no list is long enough to have what it converts to.
osg::TransformVariantPtr variantAt(const osg::NodePtr &node, int index)
{
    return ksNodeUtils::getTransformVariant(node, static_cast<unsigned long>(index));
}

/// Calls \a operation with the matrix of each ancestor of \a node that has one, from the parent on.
template <class Operation>
void forEachMatrixAbove(const osg::NodePtr &node, Operation operation)
{
    for (osg::NodePtr parent = node->getParent(); parent; parent = parent->getParent()) {
        const osg::NodeCorePtr core = parent->getCore();
        // A question of types is far cheaper than a cast of objects.
        if (core && core->getType().isDerivedFrom(osg::Transform::getClassType()))
            operation(
                osg::inPrecisionOf<osg::Matrix4d>(static_cast<const osg::Transform &>(*core).getMatrix()));
    }
}

using Position = osg::Point<osg::Real64, 3>;

Position positionOf(const osg::Vec3f &value)
{
    return Position(osg::inPrecisionOf<osg::Vec3d>(value));
}

osg::Vec3f readPosition(const osg::NodePtr &node, bool world, int index, const Component &component)
{
    const osg::Vec3f value = read(node, index, component);
    if (!world || !ksNodeUtils::getTransform3D(node, index))
        return value;
    Position position = positionOf(value);
    forEachMatrixAbove(node, [&](const osg::Matrix4d &matrix) { matrix.multMatrixPnt(position, position); });
    return osg::inPrecisionOf<osg::Vec3f>(position);
}

void writePosition(const osg::NodePtr &node, bool world, int index, const Component &component,
                   const osg::Vec3f &value)
{
    if (!world || !node) {
        write(node, index, component, value);
        return;
    }
    osg::Matrix4d worldToParent;
    forEachMatrixAbove(node, [&](const osg::Matrix4d &matrix) { worldToParent.multLeft(matrix); });
    if (!worldToParent.invert())
        return;
    Position position = positionOf(value);
    worldToParent.multMatrixPnt(position, position);
    write(node, index, component, osg::inPrecisionOf<osg::Vec3f>(position));
}

} // namespace

osg::NodePtr ksNodeUtils::findTransform(osg::NodePtr node)
{
    while (node && !osg::Transform3DPtr::dcast(node->getCore()))
        node = node->getParent();
    return node;
}

bool ksNodeUtils::hasParent(const osg::NodePtr &node, const osg::NodePtr &ancestor)
{
    if (!node || !ancestor)
        return false;
    osg::NodePtr parent = node->getParent();
    while (parent && parent != ancestor)
        parent = parent->getParent();
    return parent == ancestor;
}

osg::Transform3DPtr ksNodeUtils::getTransform3D(const osg::NodePtr &node, int index)
{
    if (!node)
        return osg::NullFC;
    if (index == -1)
        return osg::Transform3DPtr::dcast(node->getCore());
    const osg::TransformVariantPtr variant = variantAt(node, index);
    return variant ? variant->getTransform() : osg::Transform3DPtr();
}

osg::Vec3f ksNodeUtils::getTransformNodeTranslation(const osg::NodePtr &node, bool world, int index)
{
    return readPosition(node, world, index, translationField);
}

void ksNodeUtils::setTransformNodeTranslation(const osg::NodePtr &node, float x, float y, float z, bool world,
                                              int index)
{
    writePosition(node, world, index, translationField, osg::Vec3f(x, y, z));
}

osg::Vec3f ksNodeUtils::getTransformNodeRotation(const osg::NodePtr &node, int index)
{
    return read(node, index, rotationField);
}

void ksNodeUtils::setTransformNodeRotation(const osg::NodePtr &node, float x, float y, float z, int index)
{
    if (const osg::Transform3DPtr transform = getTransform3D(node, index)) {
        const osg::CPEditor edit(transform, Transform3D::RotationsFieldMask);
        transform->setEulerRotation(osg::Vec3f(x, y, z));
        transform->updateRotation();
    }
}

osg::Vec3f ksNodeUtils::getTransformNodeScale(const osg::NodePtr &node, int index)
{
    return read(node, index, scaleField);
}

void ksNodeUtils::setTransformNodeScale(const osg::NodePtr &node, float x, float y, float z, int index)
{
    write(node, index, scaleField, osg::Vec3f(x, y, z));
}

osg::Vec3f ksNodeUtils::getTransformNodeShear(const osg::NodePtr &node)
{
    return read(node, -1, shearField);
}

void ksNodeUtils::setTransformNodeShear(const osg::NodePtr &node, float x, float y, float z)
{
    write(node, -1, shearField, osg::Vec3f(x, y, z));
}

osg::Vec3f ksNodeUtils::getTransformNodeScalePivot(const osg::NodePtr &node, bool world, int index)
{
    return readPosition(node, world, index, scalePivotField);
}

void ksNodeUtils::setTransformNodeScalePivot(const osg::NodePtr &node, float x, float y, float z, bool world,
                                             int index)
{
    writePosition(node, world, index, scalePivotField, osg::Vec3f(x, y, z));
}

osg::Vec3f ksNodeUtils::getTransformNodeRotatePivot(const osg::NodePtr &node, bool world, int index)
{
    return readPosition(node, world, index, rotatePivotField);
}

void ksNodeUtils::setTransformNodeRotatePivot(const osg::NodePtr &node, float x, float y, float z, bool world,
                                              int index)
{
    writePosition(node, world, index, rotatePivotField, osg::Vec3f(x, y, z));
}

osg::Vec3f ksNodeUtils::getTransformNodeScalePivotTranslation(const osg::NodePtr &node, int index)
{
    return read(node, index, scalePivotTranslationField);
}

void ksNodeUtils::setTransformNodeScalePivotTranslation(const osg::NodePtr &node, float x, float y, float z,
                                                        int index)
{
    write(node, index, scalePivotTranslationField, osg::Vec3f(x, y, z));
}

osg::Vec3f ksNodeUtils::getTransformNodeRotatePivotTranslation(const osg::NodePtr &node, int index)
{
    return read(node, index, rotatePivotTranslationField);
}

void ksNodeUtils::setTransformNodeRotatePivotTranslation(const osg::NodePtr &node, float x, float y, float z,
                                                         int index)
{
    write(node, index, rotatePivotTranslationField, osg::Vec3f(x, y, z));
}

osg::Vec3f ksNodeUtils::getTransformNodeRotationOrientation(const osg::NodePtr &node, int index)
{
    return read(node, index, rotationOrientationField);
}

void ksNodeUtils::setTransformNodeRotationOrientation(const osg::NodePtr &node, float x, float y, float z,
                                                      int index)
{
    write(node, index, rotationOrientationField, osg::Vec3f(x, y, z));
}

osg::Vec3f ksNodeUtils::getTransformNodeRotationDirection(const osg::NodePtr &node, int index, int axis)
{
    const osg::Transform3DPtr transform = getTransform3D(node, index);
    if (!transform)
        return {};
    return axis == -1 ? transform->getRotationDirection() : transform->getOrientedAxis(axis);
}

void ksNodeUtils::setTransformNodeRotationDirection(const osg::NodePtr &node, float x, float y, float z,
                                                    int directionAxis, bool directionFlag, int index)
{
    if (const osg::Transform3DPtr transform = getTransform3D(node, index)) {
        const osg::CPEditor edit(transform, Transform3D::RotationDirectionsFieldMask);
        transform->setRotationDirection(osg::Vec3f(x, y, z));
        transform->setRotationDirectionMode(directionAxis);
        transform->setRotationDirectionOn(directionFlag);
    }
}

std::string ksNodeUtils::getTransformNodeEulerRotationOrder(const osg::NodePtr &node, int index)
{
    const osg::Transform3DPtr transform = getTransform3D(node, index);
    return transform ? transform->getEulerRotationOrder() : std::string();
}

void ksNodeUtils::setTransformNodeEulerRotationOrder(const osg::NodePtr &node, std::string order, int index)
{
    if (const osg::Transform3DPtr transform = getTransform3D(node, index)) {
        const osg::CPEditor edit(transform,
                                 Transform3D::EulerRotationOrderFieldMask | Transform3D::RotationFieldMask);
        transform->setEulerRotationOrder(order);
        transform->updateRotation();
    }
}

void ksNodeUtils::setTransformNodeValues(
    const osg::NodePtr &node, const osg::Vec3f &translation, const osg::Vec3f &rotation,
    const osg::Vec3f &scale, const osg::Vec3f &shear, const osg::Vec3f &scalePivot,
    const osg::Vec3f &rotatePivot, const osg::Vec3f &scalePivotTranslation,
    const osg::Vec3f &rotatePivotTranslation, int inheritType, const std::string &eulerRotationOrder,
    bool rotationDirectionOn, const osg::Vec3f &rotationDirection, int rotationDirectionMode, int index)
{
    const osg::Transform3DPtr transform = getTransform3D(node, index);
    if (!transform)
        return;
    constexpr osg::BitVector written =
        (Transform3D::ComponentsFieldMask & ~Transform3D::RotationOrientationFieldMask) |
        Transform3D::InheritTypeFieldMask;
    const osg::CPEditor edit(transform, written);
    transform->setTranslation(translation);
    transform->setEulerRotation(rotation);
    transform->setScale(scale);
    transform->setShear(shear);
    transform->setScalePivot(scalePivot);
    transform->setRotatePivot(rotatePivot);
    transform->setScalePivotTranslation(scalePivotTranslation);
    transform->setRotatePivotTranslation(rotatePivotTranslation);
    transform->setInheritType(inheritType);
    transform->setEulerRotationOrder(eulerRotationOrder);
    transform->updateRotation();
    transform->setRotationDirectionOn(rotationDirectionOn);
    transform->setRotationDirection(rotationDirection);
    transform->setRotationDirectionMode(rotationDirectionMode);
}

osg::TransformVariantsAttachmentPtr ksNodeUtils::getTransformVariantsAttachment(const osg::NodePtr &node)
{
    if (!node)
        return osg::NullFC;
    return osg::TransformVariantsAttachmentPtr::dcast(
        node->findAttachment(osg::TransformVariantsAttachment::getClassType()));
}

osg::TransformVariantsAttachmentPtr ksNodeUtils::createTransformVariantsAttachment(const osg::NodePtr &node)
{
    if (!node)
        return osg::NullFC;
    if (const auto present = getTransformVariantsAttachment(node))
        return present;
    const auto attachment = osg::TransformVariantsAttachment::create();
    setTransformVariantsAttachment(node, attachment);
    return attachment;
}

void ksNodeUtils::setTransformVariantsAttachment(const osg::NodePtr &node,
                                                 const osg::TransformVariantsAttachmentPtr &attachment)
{
    if (!node || !attachment || getTransformVariantsAttachment(node) == attachment)
        return;
    const osg::CPEditor edit(node, osg::Node::AttachmentsFieldMask);
    node->addAttachment(attachment);
}

void ksNodeUtils::removeTransformVariantsAttachment(const osg::NodePtr &node)
{
    if (const auto attachment = getTransformVariantsAttachment(node)) {
        const osg::CPEditor edit(node, osg::Node::AttachmentsFieldMask);
        node->subAttachment(attachment);
    }
}

void ksNodeUtils::insertTransformVariant(const osg::NodePtr &node, unsigned long index,
                                         const osg::TransformVariantPtr &variant)
{
    const auto attachment = getTransformVariantsAttachment(node);
    if (!attachment || !variant)
        return;
    const unsigned long count = attachment->getVariants().size();
    const osg::CPEditor edit(attachment, osg::TransformVariantsAttachment::VariantsFieldMask);
    attachment->insertVariant(static_cast<osg::UInt32>(std::min(index, count)), variant);
}

void ksNodeUtils::removeTransformVariant(const osg::NodePtr &node, int index)
{
    if (!variantAt(node, index))
        return;
    const auto attachment = getTransformVariantsAttachment(node);
    const osg::CPEditor edit(attachment, osg::TransformVariantsAttachment::VariantsFieldMask);
    attachment->removeVariant(static_cast<osg::UInt32>(index));
}

osg::TransformVariantPtr ksNodeUtils::getTransformVariant(const osg::NodePtr &node, unsigned long index)
{
    if (index >= getTransformVariantCount(node))
        return osg::NullFC;
    return getTransformVariantsAttachment(node)->getVariants(static_cast<osg::UInt32>(index));
}

osg::UInt32 ksNodeUtils::getTransformVariantCount(const osg::NodePtr &node)
{
    const auto attachment = getTransformVariantsAttachment(node);
    return attachment ? attachment->getVariants().size() : 0;
}

std::string ksNodeUtils::getTransformVariantName(const osg::NodePtr &node, int index)
{
    const osg::TransformVariantPtr variant = variantAt(node, index);
    return variant ? variant->getName() : std::string();
}
