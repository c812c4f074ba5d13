// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGContainerMacros.h>
#include <OpenSG/OSGMFSysTypes.h>
#include <OpenSG/OSGMFVecTypes.h>
#include <OpenSG/OSGMaterial.h>
#include <OpenSG/OSGNodeCore.h>
#include <OpenSG/OSGSFSysTypes.h>

OSG_BEGIN_NAMESPACE

OSG_CONTAINER_POINTER(ksMesh, NodeCorePtr)

// positions       one per vertex
// normals         one per vertex, of length 1; empty for points and lines
// texCoords       one per vertex, (0, 0) being the lower left of the texture; empty without a texture
// indices         the vertices of the faces' corners, face after face
// cornersPerFace  1 for points, 2 for lines, 3 for triangles
// material        what the faces look like; may be null
#define KS_MESH_FIELDS(SF, MF)                     \
    MF(MFPnt3f, positions, Positions)              \
    MF(MFVec3f, normals, Normals)                  \
    MF(MFVec2f, texCoords, TexCoords)              \
    MF(MFUInt32, indices, Indices)                 \
    SF(SFUInt8, cornersPerFace, CornersPerFace, 3) \
    SF(SFMaterialPtr, material, Material, NullFC)

OSG_CONTAINER_BASE(ksMesh, NodeCore, KS_MESH_FIELDS)

/// The editor's geometry: faces of one kind and one material. Nodes may share it. It keeps a reference on its
/// material.
class ksMesh : public ksMeshBase
{
    OSG_CONTAINER_MEMBERS(ksMesh)

public:
    /// Replaces the material and moves the reference. As with all setters, the caller brackets the edit.
    void setMaterial(const MaterialPtr &material);

protected:
    ksMesh() = default;
    ksMesh(const ksMesh &source);
    ~ksMesh() override;
};

OSG_END_NAMESPACE
