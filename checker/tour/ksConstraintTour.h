// SPDX-License-Identifier: MIT
#pragma once

#include <checker/tour/ksTourPart.h>

/// The part of a tour with the command that removes nodes from a constraint: one that it refers to in every
/// way, and several.
class ksConstraintTour : private ksTourPart
{
public:
    using ksTourPart::ksTourPart;

    void run();

private:
    void remove(const std::vector<osg::NodePtr> &nodes);
    void removeFromAllRoles();
    void removeOthers();
};
