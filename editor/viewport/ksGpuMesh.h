// SPDX-License-Identifier: MIT
#pragma once

#include <editor/scene/ksMesh.h>

#include <QOpenGLBuffer>

/// A mesh as the graphics unit has it: vertices of position, normal and texture coordinates, and indices.
struct ksGpuMesh
{
    QOpenGLBuffer vertices{QOpenGLBuffer::VertexBuffer};
    QOpenGLBuffer indices{QOpenGLBuffer::IndexBuffer};
    int count = 0;
    int cornersPerFace = 3;
    bool hasNormals = false;

    /// The fields of meshes that it is made from.
    static constexpr osg::BitVector Fields = osg::ksMesh::PositionsFieldMask | osg::ksMesh::NormalsFieldMask |
                                             osg::ksMesh::TexCoordsFieldMask | osg::ksMesh::IndicesFieldMask |
                                             osg::ksMesh::CornersPerFaceFieldMask;

    /// Of \a mesh, as the calling thread's aspect has it; faces with vertices that are not there are left
    /// out.
    explicit ksGpuMesh(const osg::ksMesh &mesh);
};
