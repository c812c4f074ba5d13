// SPDX-License-Identifier: MIT
#include "OSGTransformVariant.h"

OSG_BEGIN_NAMESPACE

OSG_DEFINE_CONTAINER(TransformVariant, FieldContainer, "", OSG_TRANSFORM_VARIANT_FIELDS)

TransformVariant::TransformVariant(const TransformVariant &source)
    : Inherited(source)
{
    _sfTransform.setValue(NullFC);
}

TransformVariant::~TransformVariant(void)
{
    setTransform(NullFC);
}

void TransformVariant::setTransform(const Transform3DPtr &transform)
{
    setRefdCP(_sfTransform.getValue(), transform);
}

OSG_END_NAMESPACE
