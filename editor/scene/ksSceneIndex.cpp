// SPDX-License-Identifier: MIT
#include <editor/scene/ksSceneIndex.h>

#include <ksundo/core/ksFindContainer.h>

#include <OpenSG/OSGChangeList.h>
#include <OpenSG/OSGFieldContainerFactory.h>
#include <OpenSG/OSGSimpleAttachments.h>
#include <OpenSG/OSGThread.h>

#include <algorithm>

namespace {

bool isCalled(const osg::NodePtr &node, const std::string &name)
{
    const char *own = node == osg::NullFC ? nullptr : osg::getName(node);
    return own != nullptr && name == own;
}

/// The indexes that lead from the root of the tree to \a node.
std::vector<osg::Int32> pathOf(osg::NodePtr node)
{
    std::vector<osg::Int32> path;
    for (osg::NodePtr parent = node->getParent(); parent != osg::NullFC;
         node = parent, parent = node->getParent())
        path.push_back(parent->findChild(node));
    std::reverse(path.begin(), path.end());
    return path;
}

} // namespace

void ksSceneIndex::noteName(const osg::NodePtr &node)
{
    ++visited;
    const char *name = node == osg::NullFC ? nullptr : osg::getName(node);
    if (name == nullptr)
        return;
    Ids &ids = nodes[name];
    const osg::UInt32 id = node.getFieldContainerId();
    const auto place = std::lower_bound(ids.begin(), ids.end(), id);
    if (place == ids.end() || *place != id)
        ids.insert(place, id);
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
        const bool hasNewName = container->getType() == osg::Name::getClassType() ||
                                (container->getType() == osg::Node::getClassType() &&
                                 (change->second & osg::Node::AttachmentsFieldMask) != 0);
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
    const std::vector<osg::NodePtr> all = findAll(name);
    return all.empty() ? osg::NodePtr() : all.front();
}

std::vector<osg::NodePtr> ksSceneIndex::findAll(const std::string &name)
{
    noteNew();
    const auto known = nodes.find(name);
    if (known == nodes.end())
        return {};
    // One that has another name now, or has gone, is not asked again; one that is out of the scene may be
    // back.
    Ids &ids = known->second;
    ids.erase(std::remove_if(
                  ids.begin(), ids.end(),
                  [&name](osg::UInt32 id) { return !isCalled(ksFindContainer<osg::NodePtr>(id), name); }),
              ids.end());
    std::vector<std::pair<std::vector<osg::Int32>, osg::NodePtr>> found;
    for (const osg::UInt32 id : ids) {
        ++visited;
        const auto node = ksFindContainer<osg::NodePtr>(id);
        if (isInScene(node))
            found.emplace_back(std::vector<osg::Int32>(), node);
    }
    if (found.size() > 1) {
        for (auto &[path, node] : found)
            path = pathOf(node);
        std::sort(found.begin(), found.end());
    }
    std::vector<osg::NodePtr> all;
    for (const auto &entry : found)
        all.push_back(entry.second);
    return all;
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
