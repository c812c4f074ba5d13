// SPDX-License-Identifier: MIT
#pragma once

#include <ksundo/core/ksFindContainer.h>

#include <OpenSG/OSGNode.h>
#include <ksPlatform.h>

#include <algorithm>
#include <cstddef>
#include <optional>
#include <type_traits>
#include <unordered_map>
#include <utility>
#include <vector>

namespace ksDetail {

/// Whether link sets of the class \a Set can remove several nodes, or put them back, at once.
template <class Set, class = void>
inline constexpr bool ksTakesManyNodes = false;

template <class Set>
inline constexpr bool ksTakesManyNodes<
    Set, std::void_t<decltype(std::declval<Set &>().subLights(std::vector<osg::NodePtr>())),
                     decltype(std::declval<Set &>().subSceneNodes(std::vector<osg::NodePtr>())),
                     decltype(std::declval<Set &>().insertLights(
                         std::vector<std::pair<osg::NodePtr, osg::Int32>>())),
                     decltype(std::declval<Set &>().insertSceneNodes(
                         std::vector<std::pair<osg::NodePtr, osg::Int32>>()))>> = true;

/// One of the two lists of a light link set, its scene nodes or its lights, as commands change it.
///
/// Nodes that have gone when it is their turn are passed over. A handful of nodes is changed one after the
/// other; more are removed or put back in one pass over the list when the set can do that, which gives the
/// same list.
///
/// \tparam SetPtr the handle of the link set
template <class SetPtr>
class ksLinkSetList
{
public:
    using Ids = std::vector<osg::UInt32>;
    using Positions = std::vector<osg::Int32>;

    /// Up to how many nodes it is cheaper to look through the list for each of them.
    static constexpr std::size_t handful = 8;

    /// \a set must not be null.
    ksLinkSetList(const SetPtr &set, bool sceneNodes)
        : set(set)
        , sceneNodes(sceneNodes)
    {}

    const osg::MFNodePtr &nodes() const { return sceneNodes ? *set->getMFSceneNodes() : *set->getMFLights(); }

    /// A function that answers with the position of the first entry of one of \a wanted, -1 when it is not in
    /// the list. It is valid until the list changes.
    auto positionsOf(const std::vector<osg::NodePtr> &wanted) const
    {
        const osg::MFNodePtr &list = nodes();
        std::optional<std::unordered_map<osg::UInt32, osg::Int32>> found;
        if (wanted.size() > handful) {
            found.emplace();
            for (const osg::NodePtr &node : wanted)
                found->emplace(ksPlatform::idOf(node), -1);
            osg::Int32 position = 0;
            for (const osg::NodePtr &node : list) {
                const auto entry = found->find(ksPlatform::idOf(node));
                if (entry != found->end() && entry->second == -1)
                    entry->second = position;
                ++position;
            }
        }
        return [&list, found = std::move(found)](const osg::NodePtr &node) {
            if (found)
                return found->at(ksPlatform::idOf(node));
            const auto entry = std::find(list.begin(), list.end(), node);
            return entry == list.end() ? -1 : static_cast<osg::Int32>(entry - list.begin());
        };
    }

    /// Appends nodes.
    void add(const Ids &ids) const
    {
        forEachNode(ids, [this](const osg::NodePtr &node, std::size_t) {
            if (sceneNodes)
                set->addSceneNode(node);
            else
                set->addLight(node);
        });
    }

    /// Inserts nodes one after the other, each at its position.
    void insert(const Ids &ids, const Positions &positions) const
    {
        if constexpr (ksTakesManyNodes<Set>) {
            if (ids.size() > handful) {
                std::vector<std::pair<osg::NodePtr, osg::Int32>> nodes;
                nodes.reserve(ids.size());
                forEachNode(ids, [&](const osg::NodePtr &node, std::size_t i) {
                    nodes.emplace_back(node, positions[i]);
                });
                if (sceneNodes)
                    set->insertSceneNodes(nodes);
                else
                    set->insertLights(nodes);
                return;
            }
        }
        forEachNode(ids, [&](const osg::NodePtr &node, std::size_t i) {
            if (sceneNodes)
                set->insertSceneNode(node, positions[i]);
            else
                set->insertLight(node, positions[i]);
        });
    }

    /// Removes nodes.
    void subtract(const Ids &ids) const
    {
        if constexpr (ksTakesManyNodes<Set>) {
            if (ids.size() > handful) {
                std::vector<osg::NodePtr> nodes;
                nodes.reserve(ids.size());
                forEachNode(ids, [&](const osg::NodePtr &node, std::size_t) { nodes.push_back(node); });
                if (sceneNodes)
                    set->subSceneNodes(nodes);
                else
                    set->subLights(nodes);
                return;
            }
        }
        forEachNode(ids, [this](const osg::NodePtr &node, std::size_t) {
            if (sceneNodes)
                set->subSceneNode(node);
            else
                set->subLight(node);
        });
    }

private:
    using Set = std::remove_reference_t<decltype(*std::declval<const SetPtr &>())>;

    /// Calls \a operation with each node and its place among \a ids.
    template <class Operation>
    static void forEachNode(const Ids &ids, Operation operation)
    {
        for (std::size_t i = 0; i < ids.size(); ++i) {
            const auto node = ksFindContainer<osg::NodePtr>(ids[i]);
            if (node != osg::NullFC)
                operation(node, i);
        }
    }

    SetPtr set;
    bool sceneNodes;
};

} // namespace ksDetail
