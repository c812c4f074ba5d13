// SPDX-License-Identifier: MIT
#pragma once

#include <editor/document/ksSceneChanges.h>
#include <editor/scene/ksMesh.h>

#include <QOpenGLBuffer>

#include <memory>
#include <unordered_map>
#include <vector>

/// A mesh as the graphics unit has it: vertices of position, normal and texture coordinates, and indices.
struct ksGpuMesh
{
    QOpenGLBuffer vertices{QOpenGLBuffer::VertexBuffer};
    QOpenGLBuffer indices{QOpenGLBuffer::IndexBuffer};
    int count = 0;
    int cornersPerFace = 3;
    bool hasNormals = false;

    /// Of \a mesh, as the calling thread's aspect has it; faces with vertices that are not there are left
    /// out.
    explicit ksGpuMesh(const osg::ksMesh &mesh);
};

/// What is drawn of the scene's meshes, made when it is drawn first. Each call needs the context that all
/// others had, but follow().
class ksGpuMeshes
{
public:
    ksGpuMesh &of(const osg::ksMeshPtr &mesh);

    /// Notes what \a changes concern, which release() lets go of, as clear() does of all.
    void follow(const ksSceneChanges &changes);
    void release();
    void clear();

private:
    std::unordered_map<osg::UInt32, std::unique_ptr<ksGpuMesh>> known;
    std::vector<std::unique_ptr<ksGpuMesh>> stale;
};
