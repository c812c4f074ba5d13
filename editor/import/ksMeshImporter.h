// SPDX-License-Identifier: MIT
#pragma once

#include <editor/scene/ksMesh.h>

struct aiMesh;

/// Reads meshes of a model file.
namespace ksMeshImporter {

/// Gives \a mesh, which has none, the vertices and faces of \a source. The edit of the mesh is up to the
/// caller.
void read(const aiMesh &source, const osg::ksMeshPtr &mesh);

} // namespace ksMeshImporter
