// SPDX-License-Identifier: MIT
#pragma once

#include <OSGTransformVariant.h>

#include <string>

/// Operations on transform variants. Each is one edit of the field that it sets, also when the value was
/// there before; for a null variant nothing happens.
class ksTransformVariantUtils
{
public:
    ksTransformVariantUtils() = delete;

    /// Sets which components of the variant's transform apply, bits of osg::TransformVariantFlags.
    static void setApplyFlags(const osg::TransformVariantPtr &variant, unsigned long long flags);

    static void setName(const osg::TransformVariantPtr &variant, const std::string &name);
};
