// SPDX-License-Identifier: MIT
#include <editor/document/ksSelection.h>

#include <ksundo/core/ksFindContainer.h>

#include <algorithm>

std::vector<osg::NodePtr> ksSelection::nodes() const
{
    std::vector<osg::NodePtr> found;
    for (const osg::UInt32 id : selected)
        if (const auto node = ksFindContainer<osg::NodePtr>(id); node != osg::NullFC)
            found.push_back(node);
    return found;
}

osg::NodePtr ksSelection::current() const
{
    const std::vector<osg::NodePtr> found = nodes();
    return found.empty() ? osg::NodePtr() : found.back();
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
