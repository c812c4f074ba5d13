// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGChangeList.h>
#include <OpenSG/OSGFieldContainerBase.h>
#include <OpenSG/OSGFieldContainerPtr.h>
#include <OpenSG/OSGThread.h>
#include <ksPlatform.h>

/// Ends an edit of the fields \a mask of \a container, which have been written directly: records the change
/// in the thread's change list, if it has one, then calls the container's change handler, unless changes are
/// ignored globally. Does nothing on NullFC.
inline void ksEndEdit(const osg::FieldContainerPtr &container, osg::BitVector mask)
{
    if (container == osg::NullFC)
        return;
    if (osg::ChangeList *changes = osg::PThreadBase::getCurrentChangeList())
        changes->addChanged(container, mask);
    if (!ksPlatform::ignoresChanges())
        container->changed(mask, osg::ChangedOrigin::External);
}
