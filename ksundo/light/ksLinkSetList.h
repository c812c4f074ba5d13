// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGNode.h>

#include <type_traits>
#include <utility>
#include <vector>

/// Whether link sets of the class \a Set can remove several nodes, or put them back, at once.
template <class Set, class = void>
inline constexpr bool ksTakesManyNodes = false;

template <class Set>
inline constexpr bool ksTakesManyNodes<
    Set, std::void_t<decltype(std::declval<Set &>().subSceneNodes(std::vector<osg::NodePtr>()))>> = true;

/// One of the two lists of a light link set, its scene nodes or its lights, as commands change it.
///
/// Several nodes are removed or put back in one pass over the list when the set can do that, and one after
/// the other when it cannot, which gives the same list.
///
/// \tparam SetPtr the handle of the link set
template <class SetPtr>
class ksLinkSetList
{
public:
    using Nodes = std::vector<osg::NodePtr>;

    /// Nodes with the positions at which they are to be put.
    using PlacedNodes = std::vector<std::pair<osg::NodePtr, osg::Int32>>;

    /// \a set must not be null.
    ksLinkSetList(const SetPtr &set, bool sceneNodes)
        : set(set)
        , sceneNodes(sceneNodes)
    {}

    const osg::MFNodePtr &nodes() const { return sceneNodes ? *set->getMFSceneNodes() : *set->getMFLights(); }

    /// Appends nodes.
    void add(const Nodes &nodes) const
    {
        for (const osg::NodePtr &node : nodes)
            sceneNodes ? set->addSceneNode(node) : set->addLight(node);
    }

    /// Inserts nodes one after the other.
    void insert(const PlacedNodes &nodes) const
    {
        if constexpr (ksTakesManyNodes<typename SetPtr::ObjectType>) {
            sceneNodes ? set->insertSceneNodes(nodes) : set->insertLights(nodes);
        } else {
            for (const auto &[node, position] : nodes)
                sceneNodes ? set->insertSceneNode(node, position) : set->insertLight(node, position);
        }
    }

    /// Removes nodes.
    void subtract(const Nodes &nodes) const
    {
        if constexpr (ksTakesManyNodes<typename SetPtr::ObjectType>) {
            sceneNodes ? set->subSceneNodes(nodes) : set->subLights(nodes);
        } else {
            for (const osg::NodePtr &node : nodes)
                sceneNodes ? set->subSceneNode(node) : set->subLight(node);
        }
    }

private:
    SetPtr set;
    bool sceneNodes;
};
