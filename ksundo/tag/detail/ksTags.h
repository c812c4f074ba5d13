// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGMFBaseTypes.h>
#include <OpenSG/OSGMFSysTypes.h>

#include <string>

namespace ksDetail {

/// A list of tags and the values that go with them.
struct ksTags
{
    osg::MField<std::string> strings;
    osg::MField<osg::UInt64> values;
};

} // namespace ksDetail
