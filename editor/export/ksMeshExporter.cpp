// SPDX-License-Identifier: MIT
#include <editor/export/ksMeshExporter.h>
#include <editor/scene/ksSoundNumbers.h>

#include <assimp/mesh.h>

#include <algorithm>
#include <cstring>

namespace {

template <class FieldT>
bool isFinite(const FieldT &vectors)
{
    return std::all_of(vectors.begin(), vectors.end(), [](const auto &vector) {
        return ksSoundNumbers::areFinite(vector.getValues(), std::decay_t<decltype(vector)>::Size);
    });
}

/// Positions, normals and the like for an aiMesh, which owns them.
template <class FieldT>
aiVector3D *toAssimp(const FieldT &vectors)
{
    if (vectors.empty())
        return nullptr;
    auto *result = new aiVector3D[vectors.size()];
    std::transform(vectors.begin(), vectors.end(), result, [](const auto &vector) {
        if constexpr (std::decay_t<decltype(vector)>::Size == 2)
            return aiVector3D(vector[0], vector[1], 0);
        else
            return aiVector3D(vector[0], vector[1], vector[2]);
    });
    return result;
}

bool isFromTopAndBack(const osg::Vec2f &coordinates)
{
    const float fromTop = 1 - coordinates[1];
    const float back = 1 - fromTop;
    return std::memcmp(&back, &coordinates[1], sizeof(float)) == 0;
}

} // namespace

bool ksMeshExporter::isExportable(const osg::ksMeshPtr &mesh)
{
    const osg::UInt32 vertices = mesh->getPositions().size();
    const auto fits = [vertices](const auto &values) { return values.empty() || values.size() == vertices; };
    const osg::UInt32 corners = mesh->getCornersPerFace();
    const osg::MFUInt32 &indices = mesh->getIndices();
    return vertices > 0 && corners >= 1 && corners <= 3 && !indices.empty() &&
           indices.size() % corners == 0 &&
           std::all_of(indices.begin(), indices.end(),
                       [vertices](osg::UInt32 index) { return index < vertices; }) &&
           fits(mesh->getNormals()) && fits(mesh->getTexCoords()) && isFinite(mesh->getPositions()) &&
           isFinite(mesh->getNormals()) && isFinite(mesh->getTexCoords());
}

bool ksMeshExporter::isKept(const osg::ksMeshPtr &mesh, osg::UInt32 fieldId)
{
    switch (fieldId) {
    case osg::ksMesh::PositionsFieldId:
    case osg::ksMesh::NormalsFieldId:
    case osg::ksMesh::IndicesFieldId:
    case osg::ksMesh::CornersPerFaceFieldId:
        return true;
    case osg::ksMesh::TexCoordsFieldId:
        return std::all_of(mesh->getTexCoords().begin(), mesh->getTexCoords().end(), &isFromTopAndBack);
    default:
        return false;
    }
}

std::unique_ptr<aiMesh> ksMeshExporter::create(const osg::ksMeshPtr &mesh, unsigned int materialIndex)
{
    auto result = std::make_unique<aiMesh>();
    result->mMaterialIndex = materialIndex;
    result->mNumVertices = mesh->getPositions().size();
    result->mVertices = toAssimp(mesh->getPositions());
    result->mNormals = toAssimp(mesh->getNormals());
    result->mTextureCoords[0] = toAssimp(mesh->getTexCoords());
    result->mNumUVComponents[0] = 2;

    const unsigned int corners = mesh->getCornersPerFace();
    constexpr aiPrimitiveType Kinds[] = {aiPrimitiveType_POINT, aiPrimitiveType_LINE,
                                         aiPrimitiveType_TRIANGLE};
    result->mPrimitiveTypes = Kinds[corners - 1];
    result->mNumFaces = mesh->getIndices().size() / corners;
    result->mFaces = new aiFace[result->mNumFaces];
    const osg::UInt32 *index = mesh->getIndices().getValues().data();
    for (unsigned int i = 0; i < result->mNumFaces; ++i, index += corners) {
        result->mFaces[i].mNumIndices = corners;
        result->mFaces[i].mIndices = new unsigned int[corners];
        std::copy_n(index, corners, result->mFaces[i].mIndices);
    }
    return result;
}
