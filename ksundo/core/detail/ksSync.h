// SPDX-License-Identifier: MIT
#pragma once

#include <ksundo/core/ksFindContainer.h>

#include <OpenSG/OSGNode.h>

namespace ksDetail {

/// Calls \a function, the sync function of a class, with the node \a id and \a arguments. Nothing when that
/// has gone, as it may have by what was called before.
template <class Function, class... Arguments>
void ksSync(const Function &function, osg::UInt32 id, const Arguments &...arguments)
{
    const auto node = ksFindContainer<osg::NodePtr>(id);
    if (node != osg::NullFC)
        function(node, arguments...);
}

} // namespace ksDetail
