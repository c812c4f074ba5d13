// SPDX-License-Identifier: MIT
#pragma once

#include <checker/tour/ksCallLog.h>
#include <checker/tour/ksTourPart.h>

struct ksTransformProperty;
struct ksTransformTarget;

/// The part of a tour with the commands on transforms: drags of every value, in parent and world space; the
/// order of the Euler angles; rotations as quaternions; whole transformations. What the commands call back
/// is checked, too.
class ksTransformTour : private ksTourPart
{
public:
    /// From here on, the sync functions of all transform command classes write to the tour's log. There may
    /// be one such tour at a time.
    ksTransformTour(ksCheckedHistory &checkedHistory, const ksTourTargets &chosenTargets,
                    const ksTourExtras &tourExtras);

    /// The sync functions are empty from here on.
    ~ksTransformTour();
    ksTransformTour(const ksTransformTour &) = delete;
    ksTransformTour &operator=(const ksTransformTour &) = delete;

    /// Edits the own transforms of several nodes.
    void run();

    /// Edits the transform of \a node that \a index means: all values, the order and the whole.
    void edit(const osg::NodePtr &node, int index);

private:
    void apply(const osg::NodePtr &node, int index, bool syncs);
    void dragValue(const ksTransformProperty &property, const ksTransformTarget &target);
    void dragOrder(const osg::NodePtr &node, int index);
    void dragQuaternion(const osg::NodePtr &node);

    ksCallLog log;
};
