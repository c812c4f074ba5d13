// SPDX-License-Identifier: MIT
#pragma once

#include <OSGAimConstraint.h>
#include <OpenSG/OSGNode.h>

#include <vector>

/// The edits of constraints that the editor offers.
namespace ksConstraintEdits {

/// A new constraint core that aims \a target at \a sources, its up vector coming from \a upVectors.
osg::AimConstraintPtr makeAim(const osg::NodePtr &target, const std::vector<osg::NodePtr> &sources,
                              const std::vector<osg::NodePtr> &upVectors);

} // namespace ksConstraintEdits
