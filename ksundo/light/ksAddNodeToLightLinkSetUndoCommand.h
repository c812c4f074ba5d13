// SPDX-License-Identifier: MIT
#pragma once

#include <ksundo/core/ksContainerUndoCommand.h>

#include <OSGLightLinkSet.h>
#include <OpenSG/OSGNode.h>

#include <vector>

/// Adds nodes to one of the two lists of a light link set, its lights or its scene nodes, or removes them:
/// "Add Nodes to Light Link Set". It never merges.
///
/// Nodes are removed wherever they stand then. Undo does the opposite; nodes that were removed come back at
/// the positions that they had when the command was built, whoever stands there then, and those that were not
/// in the list at -1. Which nodes the command acts on is settled when it is built, too:
///  - null nodes are left out;
///  - so is the root of the scene graph, with "Cannot add Root to Light Link Set." in the log;
///  - in the list of lights, a node that is an instance is replaced by the one node below the scene root that
///    shares its core and is neither an instance nor excluded from the substitution; without such a node, or
///    with several, it is left out;
///  - when adding, so is a node that the list already holds.
///
/// Up to eight nodes are changed one after the other, each change an edit; more are removed or put back in
/// one edit when the link set can do that.
///
/// A link set that has gone, or was null, makes a step a silent no-op; a node that has gone is passed over.
class KSUNDO_EXPORT ksAddNodeToLightLinkSetUndoCommand
    : public ksContainerUndoCommand<ksAddNodeToLightLinkSetUndoCommand, osg::LightLinkSetPtr, bool>
{
    KS_UNDO_COMMAND(ksAddNodeToLightLinkSetUndoCommand)

public:
    /// Redo adds the nodes or, with \a remove, removes them. \a list is 3 for the lights, any other number
    /// for the scene nodes.
    ksAddNodeToLightLinkSetUndoCommand(osg::LightLinkSetPtr set, const std::vector<osg::NodePtr> &nodes,
                                       unsigned int list, bool remove, QUndoCommand *parent = nullptr)
        : ksAddNodeToLightLinkSetUndoCommand(QStringLiteral("Add Nodes to Light Link Set"), set, nodes, list,
                                             remove, parent)
    {}

    /// The same for one node: "Add Node to Light Link Set".
    ksAddNodeToLightLinkSetUndoCommand(osg::LightLinkSetPtr set, osg::NodePtr node, unsigned int list,
                                       bool remove, QUndoCommand *parent = nullptr)
        : ksAddNodeToLightLinkSetUndoCommand(QStringLiteral("Add Node to Light Link Set"), set, {node}, list,
                                             remove, parent)
    {}

    /// Adds "id", then "lightlinkset", the link set's id as unsigned int, 0 for none.
    void makeMessage(ksMessage &message) const override;

private:
    friend ksContainerUndoCommand;

    ksAddNodeToLightLinkSetUndoCommand(const QString &text, const osg::LightLinkSetPtr &set,
                                       std::vector<osg::NodePtr> nodes, unsigned int list, bool remove,
                                       QUndoCommand *parent);

    void apply(const osg::LightLinkSetPtr &set, bool, bool removing) const;

    std::vector<osg::UInt32> nodeIds;
    /// One per node when redo removes, -1 for a node that was not in the list; none when it adds.
    std::vector<osg::Int32> insertPositions;
    bool sceneNodes;
};
