// SPDX-License-Identifier: MIT
#include <ksundo/light/detail/ksLinkSetList.h>
#include <ksundo/light/ksAddNodeToLightLinkSetUndoCommand.h>

#include <ksLights.h>
#include <ksLog.h>
#include <ksMessage.h>
#include <ksNodeUtils.h>
#include <ksOpenSGUtils.h>
#include <ksSceneDataManager.h>

#include <cstddef>
#include <utility>

namespace {

using List = ksDetail::ksLinkSetList<osg::LightLinkSetPtr>;

constexpr unsigned int lightList = 3;

/// The bit of a node's external flags that marks instances.
constexpr osg::UInt32 instanceFlag = 0x2;

bool isInstance(const osg::NodePtr &node)
{
    return (node->getExternalFlags() & instanceFlag) != 0;
}

/// The node that stands in the lists of lights for \a instance; null when there is not exactly one.
osg::NodePtr substituteOf(const osg::NodePtr &instance)
{
    const osg::NodeCorePtr core = instance->getCore();
    if (core == osg::NullFC)
        return osg::NullFC;
    const osg::NodePtr sceneRoot = ksSceneDataManager::getSceneRoot(0);
    osg::NodePtr substitute;
    for (const osg::NodePtr &candidate : core->getParents()) {
        if (candidate == osg::NullFC || ksLights::isExcludedFromInstanceSubstitution(candidate) ||
            isInstance(candidate) || !ksNodeUtils::hasParent(candidate, sceneRoot))
            continue;
        if (substitute != osg::NullFC)
            return osg::NullFC;
        substitute = candidate;
    }
    return substitute;
}

/// What the list of lights, or of scene nodes, takes for \a node; null for nothing.
osg::NodePtr listedFor(const osg::NodePtr &node, const osg::NodePtr &root, bool sceneNodes)
{
    if (node == osg::NullFC)
        return node;
    if (node == root) {
        ksLog::error("Cannot add Root to Light Link Set.");
        return osg::NullFC;
    }
    return !sceneNodes && isInstance(node) ? substituteOf(node) : node;
}

} // namespace

ksAddNodeToLightLinkSetUndoCommand::ksAddNodeToLightLinkSetUndoCommand(osg::LightLinkSetPtr set,
                                                                       const std::vector<osg::NodePtr> &nodes,
                                                                       unsigned int list, bool remove,
                                                                       QUndoCommand *parent)
    : ksAddNodeToLightLinkSetUndoCommand(QStringLiteral("Add Nodes to Light Link Set"), set, nodes, list,
                                         remove, parent)
{}

ksAddNodeToLightLinkSetUndoCommand::ksAddNodeToLightLinkSetUndoCommand(osg::LightLinkSetPtr set,
                                                                       osg::NodePtr node, unsigned int list,
                                                                       bool remove, QUndoCommand *parent)
    : ksAddNodeToLightLinkSetUndoCommand(QStringLiteral("Add Node to Light Link Set"), set, {node}, list,
                                         remove, parent)
{}

ksAddNodeToLightLinkSetUndoCommand::ksAddNodeToLightLinkSetUndoCommand(const QString &text,
                                                                       const osg::LightLinkSetPtr &set,
                                                                       const std::vector<osg::NodePtr> &nodes,
                                                                       unsigned int list, bool remove,
                                                                       QUndoCommand *parent)
    : ksContainerUndoCommand(text, set, !remove, remove, parent)
    , sceneNodes(list != lightList)
{
    if (set == osg::NullFC)
        return;
    const osg::NodePtr root = ksOpenSGUtils::getRoot();
    for (const osg::NodePtr &node : nodes)
        if (const osg::NodePtr listed = listedFor(node, root, sceneNodes); listed != osg::NullFC)
            nodeIds.push_back(listed.getFieldContainerId());

    const List::Positions positions = List(set, sceneNodes).positionsOf(nodeIds);
    if (remove) {
        insertPositions = positions;
        return;
    }
    List::Ids added;
    for (std::size_t i = 0; i < nodeIds.size(); ++i)
        if (positions[i] == -1)
            added.push_back(nodeIds[i]);
    nodeIds = std::move(added);
}

void ksAddNodeToLightLinkSetUndoCommand::makeMessage(ksMessage &message) const
{
    ksUndoCommand::makeMessage(message);
    message.set("lightlinkset", containerId, true);
}

void ksAddNodeToLightLinkSetUndoCommand::apply(const osg::LightLinkSetPtr &set, bool, bool removing) const
{
    const List list(set, sceneNodes);
    if (removing)
        list.subtract(nodeIds);
    else if (insertPositions.empty())
        list.add(nodeIds);
    else
        list.insert(nodeIds, insertPositions);
}
