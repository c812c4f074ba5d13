// SPDX-License-Identifier: MIT
#include "OSGTransformVariantsAttachment.h"

#include <algorithm>

OSG_BEGIN_NAMESPACE

OSG_DEFINE_CONTAINER(TransformVariantsAttachment, Attachment, "", OSG_TRANSFORM_VARIANTS_ATTACHMENT_FIELDS)

void TransformVariantsAttachment::insertVariant(UInt32 index, const TransformVariantPtr &variant)
{
    addRefCP(variant);
    _mfVariants.insert(_mfVariants.begin() + std::min(index, _mfVariants.size()), variant);
}

void TransformVariantsAttachment::removeVariant(UInt32 index)
{
    if (index >= _mfVariants.size()) {
        return;
    }
    const TransformVariantPtr leaving = _mfVariants[index];
    _mfVariants.erase(_mfVariants.begin() + index);
    subRefCP(leaving);
}

TransformVariantsAttachment::TransformVariantsAttachment(const TransformVariantsAttachment &source)
    : Inherited(source)
{
    _mfVariants.clear();
}

TransformVariantsAttachment::~TransformVariantsAttachment(void)
{
    for (const TransformVariantPtr &variant : _mfVariants) {
        subRefCP(variant);
    }
}

OSG_END_NAMESPACE
