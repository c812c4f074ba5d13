// SPDX-License-Identifier: MIT
#pragma once

#include "OSGAbstractConstraint.h"

OSG_BEGIN_NAMESPACE

#define OSG_POINT_CONSTRAINT_FIELDS(SF, MF) SF(SFVec3f, offset, Offset, Vec3f(0, 0, 0))

OSG_CONTAINER_POINTER(PointConstraint, AbstractConstraintPtr)
OSG_CONTAINER_BASE(PointConstraint, AbstractConstraint, OSG_POINT_CONSTRAINT_FIELDS)

/// Constraint that places its target at the mean of its sources' positions, by their weights, plus an offset.
class PointConstraint : public PointConstraintBase
{
    OSG_CONTAINER(PointConstraint)
};

OSG_END_NAMESPACE
