// SPDX-License-Identifier: MIT
#pragma once

#include <OSGTransform3D.h>

/// Gives \a transform a value of its own in every component.
inline void ksFillTransform(const osg::Transform3DPtr &transform, float seed)
{
    const osg::CPEditor edit(transform, osg::FieldBits::AllFields);
    transform->setTranslation(osg::Vec3f(seed, -2, 0.5f));
    transform->setEulerRotation(osg::Vec3f(10 * seed, -20, 30));
    transform->setEulerRotationOrder("YZX");
    transform->updateRotation();
    transform->setScale(osg::Vec3f(1 + seed / 4, 1.5f, 0.75f));
    transform->setShear(osg::Vec3f(0.25f, seed / 8, -0.5f));
    transform->setScalePivot(osg::Vec3f(0.1f, seed, 0.3f));
    transform->setScalePivotTranslation(osg::Vec3f(0.4f, 0.5f, seed));
    transform->setRotatePivot(osg::Vec3f(seed, 0.7f, 0.8f));
    transform->setRotatePivotTranslation(osg::Vec3f(0.9f, seed, 1.1f));
    transform->setRotationOrientation(osg::Vec3f(5, 6 * seed, 7));
    transform->setRotationDirection(osg::Vec3f(seed, 1, 2));
    transform->setRotationDirectionMode(1);
    transform->setInheritType(static_cast<int>(seed));
}

/// The fields that an edit of a whole transformation names.
inline constexpr osg::BitVector ksTransformationMask =
    (osg::Transform3D::ComponentsFieldMask & ~osg::Transform3D::RotationOrientationFieldMask) |
    osg::Transform3D::InheritTypeFieldMask;
