// SPDX-License-Identifier: MIT
#include <editor/import/ksMeshImporter.h>

#include <assimp/mesh.h>

void ksMeshImporter::read(const aiMesh &source, const osg::ksMeshPtr &mesh)
{
    mesh->getPositions().reserve(source.mNumVertices);
    for (unsigned int i = 0; i < source.mNumVertices; ++i) {
        const aiVector3D &position = source.mVertices[i];
        mesh->getPositions().push_back(osg::Pnt3f(position.x, position.y, position.z));
    }
    for (unsigned int i = 0; source.HasNormals() && i < source.mNumVertices; ++i) {
        const aiVector3D &normal = source.mNormals[i];
        mesh->getNormals().push_back(osg::Vec3f(normal.x, normal.y, normal.z));
    }
    for (unsigned int i = 0; source.HasTextureCoords(0) && i < source.mNumVertices; ++i) {
        const aiVector3D &coordinates = source.mTextureCoords[0][i];
        mesh->getTexCoords().push_back(osg::Vec2f(coordinates.x, coordinates.y));
    }
    for (unsigned int i = 0; i < source.mNumFaces; ++i) {
        const aiFace &face = source.mFaces[i];
        for (unsigned int corner = 0; corner < face.mNumIndices; ++corner)
            mesh->getIndices().push_back(face.mIndices[corner]);
    }
    // The file has been read in such a way that all faces of a mesh are of one kind.
    mesh->setCornersPerFace(static_cast<osg::UInt8>(source.mNumFaces > 0 ? source.mFaces[0].mNumIndices : 1));
}
