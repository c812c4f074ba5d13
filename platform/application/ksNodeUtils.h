// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGNode.h>

#include <string>

/// Operations on the nodes of the application's scene.
class ksNodeUtils
{
public:
    ksNodeUtils() = delete;

    /// The name of \a node's transform variant \a index, counted from 0. Empty for a null node, a node
    /// without a variants attachment, and an index that is not one of its variants (-1, the node's own
    /// transform, included).
    static std::string getTransformVariantName(const osg::NodePtr &node, int index);
};
