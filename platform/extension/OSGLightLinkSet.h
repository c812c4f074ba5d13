// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGNodeCore.h>

#include <utility>
#include <vector>

OSG_BEGIN_NAMESPACE

#define OSG_LIGHT_LINK_SET_FIELDS(SF, MF) \
    MF(MFNodePtr, lights, Lights)         \
    MF(MFNodePtr, sceneNodes, SceneNodes)

OSG_CONTAINER_POINTER(LightLinkSet, NodeCorePtr)
OSG_CONTAINER_BASE(LightLinkSet, NodeCore, OSG_LIGHT_LINK_SET_FIELDS)

/// Core that says which lights shine on which nodes: each of the lights on each of the scene nodes. Two lists
/// in an order that the application chooses. A node may be listed more than once; each entry holds a
/// reference on it, so a set that lists a node above itself has to be emptied before both can go.
///
/// Each operation on a list is one edit of that list, which it ends. Without anything to do (null nodes,
/// nodes that are not listed) there is no edit.
///
/// A position is the index that the node is to have. Negative ones and those beyond the end mean the end.
///
/// The operations on one node look through the list; those on many look through it once, whatever the number
/// of nodes, and have the result that the former would have one after the other.
class LightLinkSet : public LightLinkSetBase
{
    OSG_CONTAINER_MEMBERS(LightLinkSet)

public:
    typedef std::vector<NodePtr> Nodes;
    typedef std::vector<std::pair<NodePtr, Int32>> PlacedNodes;

    bool containsLight(const NodePtr &node) const { return contains(_mfLights, node); }
    bool containsSceneNode(const NodePtr &node) const { return contains(_mfSceneNodes, node); }

    /// Adds an entry at the end and takes a reference.
    void addLight(const NodePtr &node) { insert(_mfLights, LightsFieldMask, node, -1); }
    void addSceneNode(const NodePtr &node) { insert(_mfSceneNodes, SceneNodesFieldMask, node, -1); }

    /// Adds an entry at @p position and takes a reference.
    void insertLight(const NodePtr &node, Int32 position)
    {
        insert(_mfLights, LightsFieldMask, node, position);
    }
    void insertSceneNode(const NodePtr &node, Int32 position)
    {
        insert(_mfSceneNodes, SceneNodesFieldMask, node, position);
    }

    /// Inserts the nodes one after the other, each at its position in the list with those before it.
    void insertLights(const PlacedNodes &nodes) { insert(_mfLights, LightsFieldMask, nodes); }
    void insertSceneNodes(const PlacedNodes &nodes) { insert(_mfSceneNodes, SceneNodesFieldMask, nodes); }

    /// Removes the first entry of the node and releases its reference, which may destroy the node.
    void subLight(const NodePtr &node) { remove(_mfLights, LightsFieldMask, node); }
    void subSceneNode(const NodePtr &node) { remove(_mfSceneNodes, SceneNodesFieldMask, node); }

    /// Removes as many entries of each node as it is given times, the first ones, and then releases their
    /// references in the order given.
    void subLights(const Nodes &nodes) { remove(_mfLights, LightsFieldMask, nodes); }
    void subSceneNodes(const Nodes &nodes) { remove(_mfSceneNodes, SceneNodesFieldMask, nodes); }

protected:
    LightLinkSet(void) = default;

    /// The lists are not copied.
    LightLinkSet(const LightLinkSet &source);
    ~LightLinkSet(void) override;

private:
    static bool contains(const MFNodePtr &list, const NodePtr &node);

    void insert(MFNodePtr &list, BitVector mask, const NodePtr &node, Int32 position);
    void insert(MFNodePtr &list, BitVector mask, const PlacedNodes &nodes);
    void remove(MFNodePtr &list, BitVector mask, const NodePtr &node);
    void remove(MFNodePtr &list, BitVector mask, const Nodes &nodes);
};

OSG_END_NAMESPACE
