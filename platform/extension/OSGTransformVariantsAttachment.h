// SPDX-License-Identifier: MIT
#pragma once

#include "OSGTransformVariant.h"

#include <OpenSG/OSGAttachment.h>

OSG_BEGIN_NAMESPACE

#define OSG_TRANSFORM_VARIANTS_ATTACHMENT_FIELDS(SF, MF) MF(MFTransformVariantPtr, variants, Variants)

OSG_CONTAINER_POINTER(TransformVariantsAttachment, AttachmentPtr)
OSG_CONTAINER_BASE(TransformVariantsAttachment, Attachment, OSG_TRANSFORM_VARIANTS_ATTACHMENT_FIELDS)

/// The transform variants of a node, in order. The list holds one reference on each of them. The edits of the
/// list are up to the caller.
class TransformVariantsAttachment : public TransformVariantsAttachmentBase
{
    OSG_CONTAINER_MEMBERS(TransformVariantsAttachment)

public:
    /// Inserts @p variant before position @p index, at the end when there are not as many, and takes a
    /// reference on it.
    void insertVariant(UInt32 index, const TransformVariantPtr &variant);

    /// Removes the variant at @p index and releases the reference, which may destroy it. Does nothing if
    /// there is none.
    void removeVariant(UInt32 index);

protected:
    TransformVariantsAttachment(void) = default;

    /// The variants belong to @p source and are not copied.
    TransformVariantsAttachment(const TransformVariantsAttachment &source);
    ~TransformVariantsAttachment(void) override;
};

OSG_END_NAMESPACE
