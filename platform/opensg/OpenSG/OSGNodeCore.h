// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGAttachmentContainer.h>
#include <OpenSG/OSGDynamicVolume.h>

OSG_BEGIN_NAMESPACE

#define OSG_NODE_CORE_FIELDS(SF, MF) MF(InternalField<MFNodePtr>, parents, Parents)

OSG_ABSTRACT_CONTAINER_BASE(NodeCore, AttachmentContainer, OSG_NODE_CORE_FIELDS)

/// What a node is: a group, a transform, a light. Several nodes may share one core; each holds a reference.
class NodeCore : public NodeCoreBase
{
    OSG_CONTAINER_MEMBERS(NodeCore)

public:
    /// Changes @p volume, which holds the node's children, to what the core makes of it. This class changes
    /// nothing.
    virtual void adjustVolume(DynamicVolume &volume);

    /// Makes the volumes of all nodes with this core invalid.
    void invalidateVolume(void);

    /// Multiplies @p matrix, which leads to the node's coordinates, by what leads to those of the children.
    /// This class changes nothing.
    virtual void accumulateMatrix(Matrix &matrix);

protected:
    NodeCore(void) = default;
    NodeCore(const NodeCore &source);
    ~NodeCore(void) override = default;

private:
    friend class Node;

    void addParent(const NodePtr &parent);
    void subParent(const NodePtr &parent);
};

OSG_END_NAMESPACE
