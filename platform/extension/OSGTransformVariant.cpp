// SPDX-License-Identifier: MIT
#include "OSGTransformVariant.h"

OSG_BEGIN_NAMESPACE

OSG_DEFINE_CONTAINER(TransformVariant, FieldContainer, "", OSG_TRANSFORM_VARIANT_FIELDS)

OSG_END_NAMESPACE
