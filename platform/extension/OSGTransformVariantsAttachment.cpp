// SPDX-License-Identifier: MIT
#include "OSGTransformVariantsAttachment.h"

#include <algorithm>

OSG_BEGIN_NAMESPACE

OSG_DEFINE_CONTAINER(TransformVariantsAttachment, Attachment, "", OSG_TRANSFORM_VARIANTS_ATTACHMENT_FIELDS)

void TransformVariantsAttachment::insertVariant(UInt32 index, const TransformVariantPtr &variant)
{
    addRefCP(variant);
    const UInt32 position = std::min<UInt32>(index, _mfVariants.size());
    _mfVariants.insert(_mfVariants.begin() + position, variant);
}

TransformVariantsAttachment::TransformVariantsAttachment(const TransformVariantsAttachment &source)
    : Inherited(source)
{
    _mfVariants.clear();
}

TransformVariantsAttachment::~TransformVariantsAttachment()
{
    for (const TransformVariantPtr &variant : _mfVariants)
        subRefCP(variant);
}

OSG_END_NAMESPACE
