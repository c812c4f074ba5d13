// SPDX-License-Identifier: MIT
#include "ksTransformVariantUtils.h"

void ksTransformVariantUtils::setApplyFlags(const osg::TransformVariantPtr &variant, unsigned long long flags)
{
    if (variant) {
        const osg::CPEditor edit(variant, osg::TransformVariant::ApplyFlagsFieldMask);
        variant->setApplyFlags(flags);
    }
}

void ksTransformVariantUtils::setName(const osg::TransformVariantPtr &variant, const std::string &name)
{
    if (variant) {
        const osg::CPEditor edit(variant, osg::TransformVariant::NameFieldMask);
        variant->setName(name);
    }
}
