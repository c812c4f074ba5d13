// SPDX-License-Identifier: MIT
#pragma once

#include "OSGTransformVariant.h"

#include <OpenSG/OSGAttachment.h>

OSG_BEGIN_NAMESPACE

#define OSG_TRANSFORM_VARIANTS_ATTACHMENT_FIELDS(SF, MF) MF(MFTransformVariantPtr, variants, Variants)

OSG_CONTAINER_POINTER(TransformVariantsAttachment, AttachmentPtr)
OSG_CONTAINER_BASE(TransformVariantsAttachment, Attachment, OSG_TRANSFORM_VARIANTS_ATTACHMENT_FIELDS)

/// The transform variants of a node, in order. The list holds one reference on each of them.
class TransformVariantsAttachment : public TransformVariantsAttachmentBase
{
    OSG_CONTAINER_MEMBERS(TransformVariantsAttachment)

public:
    /// Inserts \a variant before position \a index, at the end when there are not as many, and takes a
    /// reference on it. The edit of this attachment is up to the caller.
    void insertVariant(UInt32 index, const TransformVariantPtr &variant);

protected:
    TransformVariantsAttachment() = default;

    /// The variants belong to \a source and are not copied.
    TransformVariantsAttachment(const TransformVariantsAttachment &source);
    ~TransformVariantsAttachment() override;
};

OSG_END_NAMESPACE
