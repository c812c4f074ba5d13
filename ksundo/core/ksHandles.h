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

typedef FCPtr<NodeCorePtr, AbstractConstraint> AbstractConstraintPtr;
typedef FCPtr<AttachmentContainerPtr, ConstraintObject> ConstraintObjectPtr;
typedef FCPtr<FieldContainerPtr, TransformVariant> TransformVariantPtr;
typedef FCPtr<AttachmentPtr, TransformVariantsAttachment> TransformVariantsAttachmentPtr;

} // namespace osg
