// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGFieldContainerPtr.h>

#include <QtGlobal>

namespace ksDetail {

/// \a container, which the caller must not have given as null.
template <class PtrT>
const PtrT &ksNotNull(const PtrT &container)
{
    Q_ASSERT(container != osg::NullFC);
    return container;
}

} // namespace ksDetail
