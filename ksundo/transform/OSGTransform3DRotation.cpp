// SPDX-License-Identifier: MIT
#include <ksundo/core/ksEndEdit.h>

#include <OSGTransform3D.h>

/// Both forms of the rotation are written in one edit, so that observers never see them apart.
void osg::Transform3D::setRotationAsQuaternion(const QuaternionBase<float> &q)
{
    setRotation(q);
    setEulerRotation(convertQuatToEuler(q, true));
    ksEndEdit(Transform3DPtr(*this), RotationFieldMask | EulerRotationFieldMask);
}
