// SPDX-License-Identifier: MIT
#include <editor/document/ksSelection.h>

#include <ksundo/core/ksFindContainer.h>

#include <ksNodeUtils.h>

#include <algorithm>

void ksSelection::begin(const osg::NodePtr &scene)
{
    root = scene;
    clear();
}

osg::NodePtr ksSelection::nodeInScene(osg::UInt32 id) const
{
    // What has been removed lives on in the history.
    const auto node = ksFindContainer<osg::NodePtr>(id);
    return node == root || ksNodeUtils::hasParent(node, root) ? node : osg::NodePtr();
}

std::vector<osg::NodePtr> ksSelection::nodes() const
{
    std::vector<osg::NodePtr> found;
    for (const osg::UInt32 id : selected)
        if (const osg::NodePtr node = nodeInScene(id); node != osg::NullFC)
            found.push_back(node);
    return found;
}

osg::NodePtr ksSelection::current() const
{
    osg::NodePtr node;
    for (auto id = selected.rbegin(); id != selected.rend() && node == osg::NullFC; ++id)
        node = nodeInScene(*id);
    return node;
}

bool ksSelection::contains(osg::UInt32 id) const
{
    return std::find(selected.begin(), selected.end(), id) != selected.end();
}

void ksSelection::set(const Ids &ids)
{
    if (ids == selected)
        return;
    selected = ids;
    Q_EMIT changed();
}

void ksSelection::toggle(osg::UInt32 id)
{
    Ids ids = selected;
    const auto known = std::find(ids.begin(), ids.end(), id);
    if (known != ids.end())
        ids.erase(known);
    else
        ids.push_back(id);
    set(ids);
}
