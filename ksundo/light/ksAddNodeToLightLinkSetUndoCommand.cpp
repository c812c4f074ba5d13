// SPDX-License-Identifier: MIT
#include <ksundo/core/ksFindContainer.h>
#include <ksundo/light/ksAddNodeToLightLinkSetUndoCommand.h>

#include <ksLights.h>
#include <ksLog.h>
#include <ksMessage.h>
#include <ksNodeUtils.h>
#include <ksOpenSGUtils.h>
#include <ksSceneDataManager.h>

#include <unordered_map>

namespace {

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

/// Where each node is first found in \a list, by id.
std::unordered_map<osg::UInt32, int> positionsIn(const osg::MFNodePtr &list)
{
    std::unordered_map<osg::UInt32, int> positions;
    positions.reserve(list.size());
    int position = 0;
    for (const osg::NodePtr &node : list)
        positions.emplace(node.getFieldContainerId(), position++);
    return positions;
}

} // namespace

ksAddNodeToLightLinkSetUndoCommand::ksAddNodeToLightLinkSetUndoCommand(osg::LightLinkSetPtr set,
                                                                       const std::vector<osg::NodePtr> &nodes,
                                                                       unsigned int list, bool remove,
                                                                       QUndoCommand *parent)
    : ksUndoCommand(QStringLiteral("Add Nodes to Light Link Set"), parent)
    , setId(set.getFieldContainerId())
    , remove(remove)
    , sceneNodes(list != lightList)
{
    if (set != osg::NullFC)
        init(set, nodes);
}

ksAddNodeToLightLinkSetUndoCommand::ksAddNodeToLightLinkSetUndoCommand(osg::LightLinkSetPtr set,
                                                                       osg::NodePtr node, unsigned int list,
                                                                       bool remove, QUndoCommand *parent)
    : ksUndoCommand(QStringLiteral("Add Node to Light Link Set"), parent)
    , setId(set.getFieldContainerId())
    , remove(remove)
    , sceneNodes(list != lightList)
{
    if (set != osg::NullFC && node != osg::NullFC)
        init(set, {node});
}

void ksAddNodeToLightLinkSetUndoCommand::undo()
{
    apply(!remove);
}

void ksAddNodeToLightLinkSetUndoCommand::redo()
{
    apply(remove);
}

void ksAddNodeToLightLinkSetUndoCommand::makeMessage(ksMessage &message) const
{
    ksUndoCommand::makeMessage(message);
    message.set("lightlinkset", setId, true);
}

bool ksAddNodeToLightLinkSetUndoCommand::canMergeWith(const QUndoCommand *) const
{
    return false;
}

void ksAddNodeToLightLinkSetUndoCommand::init(const osg::LightLinkSetPtr &set,
                                              const std::vector<osg::NodePtr> &nodes)
{
    const osg::NodePtr root = ksOpenSGUtils::getRoot();
    const auto positions = positionsIn(ksLinkSetList(set, sceneNodes).nodes());
    for (osg::NodePtr node : nodes) {
        if (node == osg::NullFC)
            continue;
        if (node == root) {
            ksLog::error("Cannot add Root to Light Link Set.");
            continue;
        }
        if (!sceneNodes && isInstance(node))
            node = substituteOf(node);
        if (node == osg::NullFC)
            continue;
        const osg::UInt32 id = node.getFieldContainerId();
        const auto found = positions.find(id);
        const bool isListed = found != positions.end();
        if (!remove && isListed)
            continue;
        if (remove)
            insertPositions.push_back(isListed ? found->second : -1);
        nodeIds.push_back(id);
    }
}

void ksAddNodeToLightLinkSetUndoCommand::apply(bool removing) const
{
    const auto set = ksFindContainer<osg::LightLinkSetPtr>(setId);
    if (set == osg::NullFC)
        return;
    const ksLinkSetList list(set, sceneNodes);
    if (removing)
        list.subtract(livingNodes());
    else if (remove)
        list.insert(removedNodes());
    else
        list.add(livingNodes());
}

ksAddNodeToLightLinkSetUndoCommand::List::Nodes ksAddNodeToLightLinkSetUndoCommand::livingNodes() const
{
    List::Nodes nodes;
    nodes.reserve(nodeIds.size());
    for (const osg::UInt32 id : nodeIds) {
        const auto node = ksFindContainer<osg::NodePtr>(id);
        if (node != osg::NullFC)
            nodes.push_back(node);
    }
    return nodes;
}

ksAddNodeToLightLinkSetUndoCommand::List::PlacedNodes ksAddNodeToLightLinkSetUndoCommand::removedNodes() const
{
    List::PlacedNodes nodes;
    nodes.reserve(nodeIds.size());
    for (std::size_t i = 0; i < nodeIds.size(); ++i) {
        const auto node = ksFindContainer<osg::NodePtr>(nodeIds[i]);
        if (node != osg::NullFC)
            nodes.emplace_back(node, insertPositions[i]);
    }
    return nodes;
}
