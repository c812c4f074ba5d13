// SPDX-License-Identifier: MIT
#include <editor/viewport/ksMeshBounds.h>

const ksBounds &ksMeshBounds::of(const osg::ksMeshPtr &mesh)
{
    const auto [entry, isNew] = known.try_emplace(mesh.getFieldContainerId());
    if (isNew)
        for (const osg::Pnt3f &position : mesh->getPositions())
            entry->second.include(ksToQt(position));
    return entry->second;
}

void ksMeshBounds::follow(const ksSceneChanges &changes)
{
    for (const auto &[id, mask] : changes.fields)
        if ((mask & osg::ksMesh::PositionsFieldMask) != 0)
            known.erase(id);
    for (const osg::UInt32 id : changes.destroyed)
        known.erase(id);
}
