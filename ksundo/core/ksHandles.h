// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGAttachment.h>
#include <OpenSG/OSGNodeCore.h>

/// The handles of the application's own containers that stand in the library's signatures. Where the
/// application names them too, they are the same.
namespace osg {

class AbstractConstraint;
class ConstraintObject;
class TransformVariant;
class TransformVariantsAttachment;

/// A constraint, a node core.
typedef FCPtr<NodeCorePtr, AbstractConstraint> AbstractConstraintPtr;
/// What a constraint refers to a node by.
typedef FCPtr<AttachmentContainerPtr, ConstraintObject> ConstraintObjectPtr;
/// A variant of a node's transform.
typedef FCPtr<FieldContainerPtr, TransformVariant> TransformVariantPtr;
/// The list of a node's transform variants.
typedef FCPtr<AttachmentPtr, TransformVariantsAttachment> TransformVariantsAttachmentPtr;

} // namespace osg
