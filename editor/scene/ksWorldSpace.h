// SPDX-License-Identifier: MIT
#pragma once

#include <OSGPrecision.h>
#include <OpenSG/OSGMatrix.h>
#include <OpenSG/OSGNode.h>

/// Where nodes are in the world.
namespace ksWorldSpace {

/// The matrix that takes positions in the space of \a node's parent to world space.
osg::Matrix4d above(const osg::NodePtr &node);

} // namespace ksWorldSpace
