// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGNode.h>

#include <string>

/// Where nodes are in their tree, as text: the names of the nodes on the way from below the root, with
/// slashes between them. A child whose name does not tell which it is, as it is empty, has a slash, begins
/// with "#" or is that of a child before it, is "#" and its index. The root's path is empty.
namespace ksNodePaths {

std::string of(const osg::NodePtr &node);

/// The node at \a path below \a root; NullFC when there is none.
osg::NodePtr find(const osg::NodePtr &root, const std::string &path);

} // namespace ksNodePaths
