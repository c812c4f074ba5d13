// SPDX-License-Identifier: MIT
#include "ksNodePtr.h"

ksNodePtr::ksNodePtr(const osg::NodePtr &node)
    : node(node)
{}

osg::NodePtr ksNodePtr::getNodePtr() const
{
    return node.get();
}
