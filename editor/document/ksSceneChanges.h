// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGFieldContainerPtr.h>

#include <unordered_map>
#include <vector>

/// What edits have changed since somebody was last told.
struct ksSceneChanges
{
    /// The containers that are there, by id, with the fields that have changed: all of those that are new.
    std::unordered_map<osg::UInt32, osg::BitVector> fields;

    /// The ids of those that are new and those that have gone.
    std::vector<osg::UInt32> created;
    std::vector<osg::UInt32> destroyed;

    bool isEmpty() const { return fields.empty() && created.empty() && destroyed.empty(); }

    /// Whether one of the fields \a mask of the container with the id \a container has changed.
    bool concern(osg::UInt32 container, osg::BitVector mask) const;
};

/// Carries what the calling thread has recorded over to aspect 1, empties its change list, and returns what
/// it was. Takes as long as there are changes, however large the scene is.
///
/// What is shown is aspect 1, which follows the edited aspect 0 by the change list that edits are recorded
/// in, and by nothing else. Whoever shows it reads it between two calls, see osg::AspectScope.
ksSceneChanges ksTakeSceneChanges();
