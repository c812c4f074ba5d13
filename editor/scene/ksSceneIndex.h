// SPDX-License-Identifier: MIT
#pragma once

#include <OSGUberLight.h>
#include <OpenSG/OSGNode.h>

#include <cstddef>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

/// Finds the nodes of a scene by their names, and its lights, without a walk through the scene.
///
/// The index notes every container once, when it is first asked after that was made. A node's new name is
/// told by the change list of the calling thread, so noteChanges() is to be called before that is cleared.
class ksSceneIndex
{
public:
    /// \a sceneRoot is to live as long as the index is asked.
    explicit ksSceneIndex(const osg::NodePtr &sceneRoot)
        : root(sceneRoot)
    {}

    /// Takes note of the names that the change list says have changed, before it is cleared.
    void noteChanges();

    /// The first node of the scene called \a name, parents before their children; NullFC when there is none.
    osg::NodePtr find(const std::string &name);

    /// All of them, in that order.
    std::vector<osg::NodePtr> findAll(const std::string &name);

    /// The lights of the scene, in the order of their ids.
    std::vector<osg::UberLightPtr> lights();

    /// Whether \a node is the root or below it.
    bool isInScene(osg::NodePtr node) const;

    /// The number of containers looked at so far, which is what the index costs.
    std::size_t visitedCount() const { return visited; }

private:
    using Ids = std::vector<osg::UInt32>;

    /// The nodes that have, or had, a name.
    struct Called
    {
        /// All of them.
        Ids ids;

        /// Those of them that were in the scene when their order was found, in that order.
        Ids ordered;

        /// The number of moves then; none when it has to be found anew.
        std::optional<std::size_t> moves;
    };

    void order(Called &called, const std::string &name);

    void noteNew();
    void noteRecorded();
    void note(const osg::FieldContainerPtr &container);
    void noteName(const osg::NodePtr &node);

    osg::NodePtr root;
    std::unordered_map<std::string, Called> nodes;
    Ids lightIds;

    /// The first id of those that have not been noted yet.
    std::size_t next = 0;

    /// How often a node that has been noted came to a place in the tree, which may change the order of nodes;
    /// leaving the tree does not.
    std::size_t moves = 0;

    /// How many changes of the change list have been noted.
    osg::UInt32 recorded = 0;
    std::size_t visited = 0;
};
