// SPDX-License-Identifier: MIT
#include <ksundo/light/detail/ksLinkSetList.h>
#include <ksundo/light/ksAddNodeToLightLinkSetUndoCommand.h>

#include <ksLog.h>
#include <ksMessage.h>
#include <ksNodeUtils.h>
#include <ksOpenSGUtils.h>
#include <ksPlatform.h>
#include <ksSceneDataManager.h>

#include <map>

namespace {

using List = ksDetail::ksLinkSetList<osg::LightLinkSetPtr>;

constexpr unsigned int lightList = 3;

/// The bit of a node's external flags that marks instances.
constexpr osg::UInt32 instanceFlag = 0x2;

bool isInstance(const osg::NodePtr &node)
{
    return (ksPlatform::externalFlags(node) & instanceFlag) != 0;
}

/// The node that stands for the instances of \a core in the lists of lights; null when there is not exactly
/// one.
osg::NodePtr substituteOf(const osg::NodeCorePtr &core)
{
    if (core == osg::NullFC)
        return osg::NullFC;
    const osg::NodePtr sceneRoot = ksSceneDataManager::getSceneRoot(0);
    osg::NodePtr substitute;
    for (const osg::NodePtr &candidate : core->getParents()) {
        if (candidate == osg::NullFC || ksPlatform::isExcludedFromInstanceSubstitution(candidate) ||
            isInstance(candidate) || !ksNodeUtils::hasParent(candidate, sceneRoot))
            continue;
        if (substitute != osg::NullFC)
            return osg::NullFC;
        substitute = candidate;
    }
    return substitute;
}

/// Makes \a nodes those that the list of scene nodes, or of lights, takes for them.
void select(std::vector<osg::NodePtr> &nodes, bool sceneNodes)
{
    const osg::NodePtr root = ksOpenSGUtils::getRoot();
    std::map<osg::UInt32, osg::NodePtr> substitutes; // by the id of the core
    auto end = nodes.begin();
    for (osg::NodePtr node : nodes) {
        if (node != osg::NullFC && node == root) {
            ksLog::error("Cannot add Root to Light Link Set.");
            continue;
        }
        if (node != osg::NullFC && !sceneNodes && isInstance(node)) {
            const osg::NodeCorePtr core = node->getCore();
            const auto [entry, isNew] = substitutes.try_emplace(ksPlatform::idOf(core));
            if (isNew)
                entry->second = substituteOf(core);
            node = entry->second;
        }
        if (node != osg::NullFC)
            *end++ = node;
    }
    nodes.erase(end, nodes.end());
}

} // namespace

ksAddNodeToLightLinkSetUndoCommand::ksAddNodeToLightLinkSetUndoCommand(const QString &text,
                                                                       const osg::LightLinkSetPtr &set,
                                                                       std::vector<osg::NodePtr> nodes,
                                                                       unsigned int list, bool remove,
                                                                       QUndoCommand *parent)
    : ksContainerUndoCommand(text, set, !remove, remove, parent)
    , sceneNodes(list != lightList)
{
    if (set == osg::NullFC)
        return;
    select(nodes, sceneNodes);
    nodeIds.reserve(nodes.size());
    const auto positionOf = List(set, sceneNodes).positionsOf(nodes);
    for (const osg::NodePtr &node : nodes) {
        const osg::Int32 position = positionOf(node);
        if (remove)
            insertPositions.push_back(position);
        if (remove || position == -1)
            nodeIds.push_back(ksPlatform::idOf(node));
    }
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
