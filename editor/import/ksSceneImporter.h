// SPDX-License-Identifier: MIT
#pragma once

#include <editor/import/ksProgress.h>
#include <editor/import/ksWarn.h>

#include <OpenSG/OSGNode.h>
#include <OpenSG/OSGRefPtr.h>

/// Loads model files of every format that Assimp reads into the scene graph.
///
/// A node of the model becomes a node with the same name, a Transform3D core and the same children in the
/// same order. Its meshes and its light become further children behind those, which have the mesh or light as
/// their core. Between a node and a light that is not at the node's place, or does not shine along its
/// negative z axis, there is a node whose transform takes it there. Meshes, materials and images that the
/// model uses several times are shared. Every node has settings, see osg::ksNodeSettings; those of a mesh's
/// node hold the opacity of its material.
class ksSceneImporter
{
public:
    /// What is wrong with a model is reported to \a reportTo: what its reader complains about and what has
    /// been repaired, see ksModelFile; textures that cannot be read, lights without a place, settings with
    /// unfit values, matrices that no transform gives, names that the reader has cut. What scenes have no
    /// place for is told to \a leftOutTo in one line, as in "2 animations, 1 camera, 31 bones".
    explicit ksSceneImporter(
        ksWarn reportTo, ksWarn leftOutTo = [](const QString &) {});

    /// The root of the scene in the file \a path. Throws ksEditorError when the file cannot be read, and
    /// ksCancelled when \a progress, which may be empty, says no while it is, or at one of the nodes that are
    /// built then.
    osg::NodeRefPtr load(const QString &path, const ksProgress &progress = {}) const;

private:
    ksWarn warn;
    ksWarn tellLeftOut;
};
