// SPDX-License-Identifier: MIT
#pragma once

#include <editor/document/ksSceneChanges.h>
#include <editor/scene/ksMesh.h>
#include <editor/viewport/ksViewMath.h>

#include <unordered_map>

/// The boxes around meshes, in the space of each, which are computed when they are first asked for.
class ksMeshBounds
{
public:
    /// Reads the calling thread's aspect.
    const ksBounds &of(const osg::ksMeshPtr &mesh);

    /// Forgets what \a changes concern, or all.
    void follow(const ksSceneChanges &changes);
    void clear() { known.clear(); }

private:
    std::unordered_map<osg::UInt32, ksBounds> known;
};
