// SPDX-License-Identifier: MIT
#include "ksNodeUtils.h"

#include <OSGTransformVariantsAttachment.h>

std::string ksNodeUtils::getTransformVariantName(const osg::NodePtr &node, int index)
{
    if (node == osg::NullFC)
        return {};
    const auto attachment = osg::TransformVariantsAttachmentPtr::dcast(
        node->findAttachment(osg::TransformVariantsAttachment::getClassType()));
    if (attachment == osg::NullFC || index < 0)
        return {};
    const osg::MFTransformVariantPtr &variants = attachment->getVariants();
    const auto position = static_cast<osg::UInt32>(index);
    if (position >= variants.size() || variants[position] == osg::NullFC)
        return {};
    return variants[position]->getName();
}
