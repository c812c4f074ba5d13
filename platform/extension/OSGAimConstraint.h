// SPDX-License-Identifier: MIT
#pragma once

#include "OSGAbstractConstraint.h"

OSG_BEGIN_NAMESPACE

#define OSG_AIM_CONSTRAINT_FIELDS(SF, MF)                       \
    MF(MFConstraintObjectPtr, upVectorSources, UpVectorSources) \
    SF(SFVec3f, aimVector, AimVector, Vec3f(0, 0, -1))          \
    SF(SFVec3f, upVector, UpVector, Vec3f(0, 1, 0))

OSG_CONTAINER_POINTER(AimConstraint, AbstractConstraintPtr)
OSG_CONTAINER_BASE(AimConstraint, AbstractConstraint, OSG_AIM_CONSTRAINT_FIELDS)

/// Constraint that turns its target so that the aim vector, in the target's space, points at the sources and
/// the up vector as far as possible at the up vector sources, or along the world's y axis without any. It
/// holds a reference on each up vector object as well. The edits are up to the caller.
class AimConstraint : public AimConstraintBase
{
    OSG_CONTAINER_MEMBERS(AimConstraint)

public:
    /// The first up vector object for @p node. Null if there is none, and for null.
    ConstraintObjectPtr findUpVectorConstraintObject(const AttachmentContainerPtr &node) const;

    /// Adds an up vector object at the end and takes a reference on it. Null and one that is there already do
    /// nothing.
    void addUpVectorObject(ConstraintObjectPtr object);

    /// Removes an up vector object and releases the reference, which may destroy it. Nothing happens if it is
    /// none.
    void removeUpVectorObject(ConstraintObjectPtr object);

protected:
    AimConstraint(void) = default;

    /// The up vector objects are not copied.
    AimConstraint(const AimConstraint &source);
    ~AimConstraint(void) override;
};

OSG_END_NAMESPACE
