// SPDX-License-Identifier: MIT
#include <ksundo/transform/ksTransformation.h>

ksTransformation ksTransformation::of(const osg::Transform3DPtr &transform)
{
    ksTransformation values;
    if (transform == osg::NullFC)
        return values;
    values.translation = transform->getTranslation();
    values.rotation = transform->getEulerRotation();
    values.scale = transform->getScale();
    values.shear = transform->getShear();
    values.scalePivot = transform->getScalePivot();
    values.rotatePivot = transform->getRotatePivot();
    values.scalePivotTranslation = transform->getScalePivotTranslation();
    values.rotatePivotTranslation = transform->getRotatePivotTranslation();
    values.inheritType = transform->getInheritType();
    values.eulerRotationOrder = transform->getEulerRotationOrder();
    values.rotationDirectionOn =
        transform->getRotationDirectionValues(values.rotationDirection, values.rotationDirectionMode);
    return values;
}
