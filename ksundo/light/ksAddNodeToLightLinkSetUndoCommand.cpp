// SPDX-License-Identifier: MIT
#include <ksundo/core/ksFindContainer.h>
#include <ksundo/light/ksAddNodeToLightLinkSetUndoCommand.h>

#include <ksLights.h>
#include <ksLog.h>
#include <ksMessage.h>
#include <ksNodeUtils.h>
#include <ksOpenSGUtils.h>
#include <ksSceneDataManager.h>

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

} // namespace

ksAddNodeToLightLinkSetUndoCommand::ksAddNodeToLightLinkSetUndoCommand(osg::LightLinkSetPtr set,
                                                                       const std::vector<osg::NodePtr> &nodes,
                                                                       unsigned int list, bool remove,
                                                                       QUndoCommand *parent)
    : ksUndoCommand(QStringLiteral("Add Nodes to Light Link Set"), parent)
    , linkSetId(set.getFieldContainerId())
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
    , linkSetId(set.getFieldContainerId())
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
    message.set("lightlinkset", linkSetId, true);
}

bool ksAddNodeToLightLinkSetUndoCommand::canMergeWith(const QUndoCommand *) const
{
    return false;
}

void ksAddNodeToLightLinkSetUndoCommand::init(const osg::LightLinkSetPtr &set,
                                              const std::vector<osg::NodePtr> &nodes)
{
    const osg::NodePtr root = ksOpenSGUtils::getRoot();
    List::Ids ids;
    for (osg::NodePtr node : nodes) {
        if (node == osg::NullFC)
            continue;
        if (node == root) {
            ksLog::error("Cannot add Root to Light Link Set.");
            continue;
        }
        if (!sceneNodes && isInstance(node))
            node = substituteOf(node);
        if (node != osg::NullFC)
            ids.push_back(node.getFieldContainerId());
    }

    const List::Positions positions = List(set, sceneNodes).positionsOf(ids);
    if (remove) {
        nodeIds = ids;
        insertPositions = positions;
        return;
    }
    for (std::size_t i = 0; i < ids.size(); ++i)
        if (positions[i] == -1)
            nodeIds.push_back(ids[i]);
}

void ksAddNodeToLightLinkSetUndoCommand::apply(bool removing) const
{
    const auto set = ksFindContainer<osg::LightLinkSetPtr>(linkSetId);
    if (set == osg::NullFC)
        return;
    const List list(set, sceneNodes);
    if (removing)
        list.subtract(nodeIds);
    else if (remove)
        list.insert(nodeIds, insertPositions);
    else
        list.add(nodeIds);
}
