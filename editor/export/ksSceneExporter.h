// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGNode.h>

#include <QString>

/// Saves scenes as glTF files, so that opening one gives an equal scene again, see ksSceneImporter.
///
/// A node becomes a node with the same name and children. A transform core becomes its matrix, a mesh its
/// mesh, an osg::UberLight its light; materials are those of meshes, with the opacity that the node's
/// settings say. All else, and all that glTF would keep inexactly, is in the nodes' extras, see
/// ksGltfNames::extras(). Whatever a file consists of, buffers and textures, is within it.
class ksSceneExporter
{
public:
    ksSceneExporter() = delete;

    /// Throws ksOutputError when no scene can be saved under \a path: its suffix is neither "gltf" nor "glb",
    /// there is no such folder, or something else than a file is there.
    static void checkPath(const QString &path);

    /// Saves the scene below \a root in the file \a path, in the binary form if its suffix is "glb". A file
    /// that is there is replaced at once, when all is written. Throws ksOutputError, and leaves it as it was,
    /// when that fails.
    static void save(const osg::NodePtr &root, const QString &path);
};
