// SPDX-License-Identifier: MIT
#pragma once

#include <checker/tour/ksTourPart.h>

class ksTourExtras;

/// The part of a tour with the command that removes nodes from a constraint: one that it refers to in every
/// way, and several.
class ksConstraintTour : private ksTourPart
{
public:
    /// The extras, which must be in the scene, must outlive the part.
    ksConstraintTour(ksCheckedHistory &checkedHistory, const ksTourTargets &chosenTargets,
                     const ksTourExtras &tourExtras);

    void run();

private:
    void remove(const std::vector<osg::NodePtr> &nodes);
    void removeFromAllRoles();
    void removeOthers();

    const ksTourExtras &extras;
};
