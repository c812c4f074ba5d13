// SPDX-License-Identifier: MIT
#pragma once

#include <editor/scene/ksMesh.h>
#include <editor/viewport/ksSceneCache.h>
#include <editor/viewport/ksViewMath.h>

/// The boxes around meshes, in the space of each.
class ksMeshBounds : public ksSceneCache<osg::ksMeshPtr, ksBounds>
{
public:
    ksMeshBounds()
        : ksSceneCache(boundsOf, osg::ksMesh::PositionsFieldMask)
    {}

private:
    static ksBounds boundsOf(const osg::ksMeshPtr &mesh)
    {
        ksBounds bounds;
        for (const osg::Pnt3f &position : mesh->getPositions())
            bounds.include(ksToQt(position));
        return bounds;
    }
};
