// SPDX-License-Identifier: MIT
#include <OpenSG/OSGTransform.h>

OSG_BEGIN_NAMESPACE

OSG_DEFINE_CONTAINER(Transform, Group, "", OSG_TRANSFORM_FIELDS)

void Transform::adjustVolume(DynamicVolume &volume)
{
    volume.transform(getMatrix());
}

void Transform::accumulateMatrix(::osg::Matrix &matrix)
{
    matrix.mult(getMatrix());
}

void Transform::changed(BitVector whichField, UInt32 origin)
{
    if (whichField & MatrixFieldMask) {
        invalidateVolume();
    }
    Inherited::changed(whichField, origin);
}

OSG_END_NAMESPACE
