// SPDX-License-Identifier: MIT
#include "OSGPointConstraint.h"

OSG_BEGIN_NAMESPACE

OSG_DEFINE_CONTAINER(PointConstraint, AbstractConstraint, "", OSG_POINT_CONSTRAINT_FIELDS)

OSG_END_NAMESPACE
