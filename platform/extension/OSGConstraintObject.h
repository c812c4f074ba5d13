// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGAttachmentContainer.h>
#include <OpenSG/OSGSysFieldTypes.h>
#include <OpenSG/OSGVecFieldTypes.h>

OSG_BEGIN_NAMESPACE

#define OSG_CONSTRAINT_OBJECT_FIELDS(SF, MF)                          \
    SF(SFUInt32, nodeId, NodeId, 0)                                   \
    SF(SFReal32, weight, Weight, 1)                                   \
    SF(SFVec3f, translationOffset, TranslationOffset, Vec3f(0, 0, 0)) \
    SF(SFVec3f, rotationOffset, RotationOffset, Vec3f(0, 0, 0))

OSG_CONTAINER_POINTER(ConstraintObject, AttachmentContainerPtr)
OSG_CONTAINER_BASE(ConstraintObject, AttachmentContainer, OSG_CONSTRAINT_OBJECT_FIELDS)

/// A node that a constraint depends on, with its weight among the others and what is added to its translation
/// and its rotation (degrees, about x, y and z in this order).
///
/// The node is kept as a container id: a constraint does not keep the scene alive, and ids are never used
/// again, so when the node has gone, the object has none.
class ConstraintObject : public ConstraintObjectBase
{
    OSG_CONTAINER(ConstraintObject)

public:
    /// Null if there is none or it has gone.
    AttachmentContainerPtr getNode(void) const;

    /// Null takes the node away. The edit of the node id is up to the caller.
    void setNode(const AttachmentContainerPtr &node);
};

OSG_END_NAMESPACE
