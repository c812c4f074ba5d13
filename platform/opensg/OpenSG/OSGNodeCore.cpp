// SPDX-License-Identifier: MIT
#include <OpenSG/OSGNode.h>
#include <OpenSG/OSGNodeCore.h>

OSG_BEGIN_NAMESPACE

OSG_DEFINE_ABSTRACT_CONTAINER(NodeCore, AttachmentContainer, "", OSG_NODE_CORE_FIELDS)

NodeCore::NodeCore(const NodeCore &source)
    : Inherited(source)
{
    _mfParents.clear();
}

void NodeCore::adjustVolume(DynamicVolume &)
{}

void NodeCore::accumulateMatrix(Matrix &)
{}

void NodeCore::invalidateVolume(void)
{
    for (const NodePtr &parent : _mfParents) {
        parent->invalidateVolume();
    }
}

void NodeCore::addParent(const NodePtr &parent)
{
    _mfParents.push_back(parent);
}

void NodeCore::subParent(const NodePtr &parent)
{
    eraseFirst(_mfParents, parent);
}

OSG_END_NAMESPACE
