// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGFieldContainerFactory.h>
#include <OpenSG/OSGFieldContainerPtr.h>

#include <type_traits>

/// The living container with the id \a id, as a handle of type \a PtrT. NullFC when the id was never given
/// out, the container is gone, or it is neither of the handle's type nor of a type derived from it.
///
/// Commands keep ids and call this once at every step, so that they neither keep their targets alive nor
/// touch one that has gone.
///
/// \tparam PtrT osg::FieldContainerPtr, or the handle of a class derived from osg::FieldContainer
template <class PtrT>
inline PtrT ksFindContainer(osg::UInt32 id)
{
    static_assert(std::is_base_of_v<osg::FieldContainerPtr, PtrT>, "PtrT must be a container's handle");
    const osg::FieldContainerPtr container = osg::FieldContainerFactory::the()->getContainer(id);
    if constexpr (std::is_same_v<PtrT, osg::FieldContainerPtr>)
        return container;
    else
        return PtrT::dcast(container);
}
