// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGNode.h>
#include <OpenSG/OSGRefPtr.h>

OSG_BEGIN_NAMESPACE

class DirectionalLight;
class Group;
class PointLight;
class SpotLight;
class Switch;
class Transform;

/// Counting handle of a node with a core of class @a CoreT, which it stands for.
template <class CoreT>
class CoredNodePtr
{
public:
    CoredNodePtr(void) = default;

    /// A node whose core is of another class gives a null handle.
    explicit CoredNodePtr(const NodePtr &node) { setNode(node); }

    static CoredNodePtr create(void) { return CoredNodePtr(makeCoredNode<CoreT>()); }

    CoredNodePtr &operator=(const NodePtr &node)
    {
        setNode(node);
        return *this;
    }
    CoredNodePtr &operator=(const NullFieldContainerPtr &) { return *this = NodePtr(); }

    /// The core may be replaced: the node takes it in an edit of its own.
    CoredNodePtr &operator=(const typename CoreT::Ptr &core)
    {
        if (_node == NullFC) {
            return *this = makeCoredNode(core);
        }
        const CPEditor edit(_node.get(), Node::CoreFieldMask);
        _node->setCore(core);
        _core = core;
        return *this;
    }

    const NodePtr &node(void) const { return _node.get(); }
    const typename CoreT::Ptr &core(void) const { return _core.get(); }
    operator const NodePtr &(void) const { return node(); }

    /// Takes over the core that the node has been given.
    void coreChanged(void) { setNode(NodePtr(node())); }

    CoreT *operator->(void) const { return _core.operator->(); }
    CoreT &operator*(void) const { return *_core; }
    bool operator!(void) const { return !_node; }
    bool operator==(const FieldContainerPtrBase &fc) const { return _node == fc; }
    bool operator!=(const FieldContainerPtrBase &fc) const { return _node != fc; }

private:
    void setNode(const NodePtr &node)
    {
        _core = node != NullFC ? CoreT::Ptr::dcast(node->getCore()) : typename CoreT::Ptr();
        _node = _core != NullFC ? node : NodePtr();
    }

    NodeRefPtr _node;
    RefPtr<typename CoreT::Ptr> _core;
};

typedef CoredNodePtr<DirectionalLight> DirectionalLightNodePtr;
typedef CoredNodePtr<Group> GroupNodePtr;
typedef CoredNodePtr<PointLight> PointLightNodePtr;
typedef CoredNodePtr<SpotLight> SpotLightNodePtr;
typedef CoredNodePtr<Switch> SwitchNodePtr;
typedef CoredNodePtr<Transform> TransformNodePtr;

OSG_END_NAMESPACE
