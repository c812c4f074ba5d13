// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGBaseFieldTypes.h>
#include <OpenSG/OSGContainerMacros.h>

OSG_BEGIN_NAMESPACE

#define OSG_TRANSFORM_VARIANT_FIELDS(SF, MF) SF(SFString, name, Name, std::string())

OSG_CONTAINER_POINTER(TransformVariant, FieldContainerPtr)
OSG_CONTAINER_BASE(TransformVariant, FieldContainer, OSG_TRANSFORM_VARIANT_FIELDS)

/// A named alternative to the transform of the node whose attachment lists it.
class TransformVariant : public TransformVariantBase
{
    OSG_CONTAINER(TransformVariant)
};

OSG_END_NAMESPACE
