// SPDX-License-Identifier: MIT
#pragma once

#include <editor/scene/ksMesh.h>

#include <memory>

struct aiMesh;

/// Makes meshes for Assimp of meshes of the scene graph.
namespace ksMeshExporter {

/// Whether model files can hold \a mesh: all numbers finite, as many of each kind as there are vertices, all
/// corners there.
bool isExportable(const osg::ksMeshPtr &mesh);

/// Whether the field \a fieldId of a mesh that is exportable comes back from a glTF file bit by bit. Texture
/// coordinates may not: such files measure them from the top.
bool isKept(const osg::ksMeshPtr &mesh, osg::UInt32 fieldId);

/// The mesh, which must be exportable, with the material at \a materialIndex.
std::unique_ptr<aiMesh> create(const osg::ksMeshPtr &mesh, unsigned int materialIndex);

} // namespace ksMeshExporter
