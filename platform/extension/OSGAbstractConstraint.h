// SPDX-License-Identifier: MIT
#pragma once

#include "OSGConstraintObject.h"

#include <OpenSG/OSGNodeCore.h>

OSG_BEGIN_NAMESPACE

#define OSG_ABSTRACT_CONSTRAINT_FIELDS(SF, MF)  \
    MF(MFConstraintObjectPtr, sources, Sources) \
    SF(SFAttachmentContainerPtr, target, Target, NullFC)

OSG_CONTAINER_POINTER(AbstractConstraint, NodeCorePtr)
OSG_ABSTRACT_CONTAINER_BASE(AbstractConstraint, NodeCore, OSG_ABSTRACT_CONSTRAINT_FIELDS)

/// Core of a node that makes one container, the target, follow others, the sources; how is up to the derived
/// class. It holds a reference on each source object and on the target, so a constraint that is below its own
/// target has to let go of it before both can go. The edits are up to the caller.
class AbstractConstraint : public AbstractConstraintBase
{
    OSG_CONTAINER_MEMBERS(AbstractConstraint)

public:
    /// The first source object for @p node. Null if there is none, and for null.
    ConstraintObjectPtr findSourceConstraintObject(const AttachmentContainerPtr &node) const;

    /// Adds a source object at the end and takes a reference on it. Null and one that is there already do
    /// nothing.
    void addSourceObject(ConstraintObjectPtr object);

    /// Removes a source object and releases the reference, which may destroy it. Nothing happens if it is
    /// none.
    void removeSourceObject(ConstraintObjectPtr object);

    /// False for null, also while there is no target.
    bool hasTarget(const AttachmentContainerPtr &node) const;

    /// Replaces the target; null takes it away. Releases the old one, which may destroy it, and takes a
    /// reference on the new one.
    void setTarget(const AttachmentContainerPtr &target);

protected:
    AbstractConstraint(void) = default;

    /// Source objects and target are not copied.
    AbstractConstraint(const AbstractConstraint &source);
    ~AbstractConstraint(void) override;

    /// The same for any list of constraint objects.
    static ConstraintObjectPtr findObject(const MFConstraintObjectPtr &objects,
                                          const AttachmentContainerPtr &node);
    static void addObject(MFConstraintObjectPtr &objects, const ConstraintObjectPtr &object);
    static void removeObject(MFConstraintObjectPtr &objects, const ConstraintObjectPtr &object);

    /// Releases the references of a list that goes away.
    static void releaseObjects(const MFConstraintObjectPtr &objects);
};

OSG_END_NAMESPACE
