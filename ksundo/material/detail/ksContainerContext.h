// SPDX-License-Identifier: MIT
#pragma once

#include <ksundo/ksExport.h>

#include <OpenSG/OSGFieldContainerPtr.h>
#include <ksPlatform.h>

class ksMessage;

namespace ksDetail {

/// The two containers in whose context a command changes a third one. They are known by their ids; null ones
/// have the id 0.
class KSUNDO_EXPORT ksContainerContext
{
public:
    /// Tells the scene graph that the fields \a mask of the container with the id \a containerId have
    /// changed, as the end of an edit does; no value is changed. Does nothing when there is no such
    /// container.
    void touch(unsigned int containerId, osg::BitVector mask) const;

protected:
    ksContainerContext(const osg::FieldContainerPtr &first, const osg::FieldContainerPtr &second)
        : firstId(ksPlatform::idOf(first))
        , secondId(ksPlatform::idOf(second))
    {}

    bool isSameContext(const ksContainerContext &other) const
    {
        return other.firstId == firstId && other.secondId == secondId;
    }

    /// Adds the ids that are not 0 as unsigned int.
    void addContext(ksMessage &message, const char *firstKey, const char *secondKey) const;

    /// Touches the planar projection of the component settings, which are second, then the colour components
    /// of the material, which is first.
    void touchMaterial() const;

private:
    osg::UInt32 firstId;
    osg::UInt32 secondId;
};

} // namespace ksDetail
