// SPDX-License-Identifier: MIT
#include <editor/scene/ksContainers.h>
#include <editor/scene/ksSceneIndex.h>

#include <ksundo/core/ksFindContainer.h>

#include <OpenSG/OSGChangeList.h>
#include <OpenSG/OSGFieldContainerFactory.h>
#include <OpenSG/OSGSimpleAttachments.h>
#include <OpenSG/OSGThread.h>

#include <algorithm>
#include <unordered_set>

namespace {

bool isCalled(const osg::NodePtr &node, const std::string &name)
{
    return node != osg::NullFC && ksContainers::ownNameOf(node) == name;
}

} // namespace

void ksSceneIndex::noteName(const osg::NodePtr &node)
{
    ++visited;
    const char *name = node == osg::NullFC ? nullptr : osg::getName(node);
    if (name == nullptr)
        return;
    Called &called = nodes[name];
    const osg::UInt32 id = node.getFieldContainerId();
    const auto place = std::lower_bound(called.ids.begin(), called.ids.end(), id);
    if (place != called.ids.end() && *place == id)
        return;
    called.ids.insert(place, id);
    called.moves.reset();
}

void ksSceneIndex::note(const osg::FieldContainerPtr &container)
{
    if (container == osg::NullFC)
        return;
    if (const osg::NodePtr node = osg::NodePtr::dcast(container))
        noteName(node);
    else if (container->getType() == osg::Name::getClassType())
        for (const osg::FieldContainerPtr &parent : osg::AttachmentPtr::dcast(container)->getParents())
            noteName(osg::NodePtr::dcast(parent));
    else if (osg::UberLightPtr::dcast(container) != osg::NullFC)
        lightIds.push_back(container.getFieldContainerId());
}

void ksSceneIndex::noteChanges()
{
    noteRecorded();
    recorded = 0;
}

void ksSceneIndex::noteRecorded()
{
    const osg::ChangeList &changes = *osg::Thread::getCurrentChangeList();
    if (recorded > changes.sizeChanged())
        recorded = 0;
    auto change = changes.beginChanged() + recorded;
    recorded = changes.sizeChanged();
    for (; change != changes.endChanged(); ++change) {
        const osg::FieldContainerPtr container = ksFindContainer<osg::FieldContainerPtr>(change->first);
        if (container == osg::NullFC || change->first >= next)
            continue;
        const osg::NodePtr node = osg::NodePtr::dcast(container);
        if (node != osg::NullFC && (change->second & osg::Node::ParentFieldMask) != 0 &&
            node->getParent() != osg::NullFC)
            ++moves;
        const bool hasNewName =
            container->getType() == osg::Name::getClassType() ||
            (node != osg::NullFC && (change->second & osg::Node::AttachmentsFieldMask) != 0);
        if (hasNewName)
            note(container);
    }
}

void ksSceneIndex::noteNew()
{
    noteRecorded();
    const auto &store = *osg::FieldContainerFactory::the()->getFieldContainerStore();
    for (; next < store.size(); ++next) {
        ++visited;
        note(store[next]);
    }
}

bool ksSceneIndex::isInScene(osg::NodePtr node) const
{
    while (node != osg::NullFC && node != root)
        node = node->getParent();
    return node != osg::NullFC;
}

osg::NodePtr ksSceneIndex::find(const std::string &name)
{
    noteNew();
    const auto known = nodes.find(name);
    if (known == nodes.end())
        return osg::NullFC;
    Called &called = known->second;
    if (called.moves != moves)
        order(called, name);
    for (const osg::UInt32 id : called.ordered) {
        ++visited;
        const auto node = ksFindContainer<osg::NodePtr>(id);
        if (isCalled(node, name) && isInScene(node))
            return node;
    }
    return osg::NullFC;
}

std::vector<osg::NodePtr> ksSceneIndex::findAll(const std::string &name)
{
    noteNew();
    std::vector<osg::NodePtr> all;
    if (const auto known = nodes.find(name); known != nodes.end()) {
        order(known->second, name);
        for (const osg::UInt32 id : known->second.ordered)
            all.push_back(ksFindContainer<osg::NodePtr>(id));
    }
    return all;
}

void ksSceneIndex::order(Called &called, const std::string &name)
{
    // One that has another name now, or has gone, is not asked again; one that is out of the scene may be
    // back.
    Ids &ids = called.ids;
    visited += ids.size();
    ids.erase(std::remove_if(
                  ids.begin(), ids.end(),
                  [&name](osg::UInt32 id) { return !isCalled(ksFindContainer<osg::NodePtr>(id), name); }),
              ids.end());
    if (ids.size() <= 1) {
        called.ordered = !ids.empty() && isInScene(ksFindContainer<osg::NodePtr>(ids[0])) ? ids : Ids();
        called.moves = moves;
        return;
    }
    // The nodes above them, and of their children those on the way, in order.
    std::unordered_set<osg::UInt32> onTheWay;
    std::unordered_map<osg::UInt32, std::vector<osg::NodePtr>> below;
    for (const osg::UInt32 id : ids)
        for (auto node = ksFindContainer<osg::NodePtr>(id);
             node != osg::NullFC && onTheWay.insert(node.getFieldContainerId()).second;
             node = node->getParent())
            if (node->getParent() != osg::NullFC)
                below[node->getParent().getFieldContainerId()];
    for (auto &[parent, children] : below)
        for (const osg::NodePtr &each : ksFindContainer<osg::NodePtr>(parent)->getChildren())
            if (onTheWay.count(each.getFieldContainerId()) > 0)
                children.push_back(each);
    called.ordered.clear();
    called.moves = moves;
    std::vector<osg::NodePtr> open = {root};
    while (!open.empty()) {
        const osg::UInt32 id = open.back().getFieldContainerId();
        open.pop_back();
        if (std::binary_search(ids.begin(), ids.end(), id))
            called.ordered.push_back(id);
        if (const auto children = below.find(id); children != below.end())
            open.insert(open.end(), children->second.rbegin(), children->second.rend());
    }
}

std::vector<osg::UberLightPtr> ksSceneIndex::lights()
{
    noteNew();
    std::vector<osg::UberLightPtr> all;
    for (const osg::UInt32 id : lightIds) {
        ++visited;
        const auto light = ksFindContainer<osg::UberLightPtr>(id);
        if (light == osg::NullFC)
            continue;
        const osg::MFNodePtr &parents = light->getParents();
        if (std::any_of(parents.begin(), parents.end(),
                        [this](const osg::NodePtr &parent) { return isInScene(parent); }))
            all.push_back(light);
    }
    return all;
}
