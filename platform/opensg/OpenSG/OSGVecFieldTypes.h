// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGMField.h>
#include <OpenSG/OSGSField.h>
#include <OpenSG/OSGVector.h>

/// @file
/// Fields of vectors and points.

OSG_BEGIN_NAMESPACE

OSG_FIELD_VALUE(FieldDataTraits, 0, Vec2f, Vec2f)
OSG_FIELD_VALUE(FieldDataTraits, 0, Vec3f, Vec3f)
OSG_FIELD_VALUE(FieldDataTraits, 0, Vec4f, Vec4f)
OSG_FIELD_VALUE(FieldDataTraits, 0, Pnt2f, Pnt2f)
OSG_FIELD_VALUE(FieldDataTraits, 0, Pnt3f, Pnt3f)
OSG_FIELD_VALUE(FieldDataTraits, 0, Pnt4f, Pnt4f)

OSG_END_NAMESPACE
