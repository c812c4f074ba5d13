// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGNode.h>
#include <OpenSG/OSGRefPtr.h>

/// The application's handle on a node: it keeps the node alive as long as it lives.
class ksNodePtr
{
public:
    /// A null handle.
    ksNodePtr() = default;

    /// Takes a reference on \a node, which may be null.
    explicit ksNodePtr(const osg::NodePtr &node);

    /// The scene graph's handle of the node, or NullFC. It takes no reference of its own.
    osg::NodePtr getNodePtr() const;

private:
    osg::NodeRefPtr node;
};
