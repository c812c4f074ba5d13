// SPDX-License-Identifier: MIT
#pragma once

#include <OSGAimConstraint.h>
#include <OpenSG/OSGNode.h>

#include <vector>

class ksCheckedHistory;

/// The edits of constraints that the editor offers.
namespace ksConstraintEdits {

/// A new constraint core that aims \a target at \a sources, its up vector coming from \a upVectors.
osg::AimConstraintPtr makeAim(const osg::NodePtr &target, const std::vector<osg::NodePtr> &sources,
                              const std::vector<osg::NodePtr> &upVectors);

/// Removes \a nodes from \a constraint as one step of \a history, and tells it that the sources come back
/// behind those that stayed.
void remove(ksCheckedHistory &history, const osg::AbstractConstraintPtr &constraint,
            const std::vector<osg::NodePtr> &nodes);

} // namespace ksConstraintEdits
