// SPDX-License-Identifier: MIT
#include <editor/import/ksModelFile.h>
#include <editor/import/ksQuietStandardError.h>
#include <editor/ksEditorError.h>
#include <editor/scene/ksGltfNames.h>

#include <QFileInfo>
#include <assimp/Importer.hpp>
#include <assimp/commonMetaData.h>
#include <assimp/config.h>
#include <assimp/importerdesc.h>
#include <assimp/postprocess.h>
#include <assimp/scene.h>

#include <algorithm>
#include <cstring>

namespace {

void checkFile(const QString &path)
{
    const QFileInfo file(path);
    const char *reason = nullptr;
    if (!file.exists())
        reason = "no such file";
    else if (file.isDir())
        reason = "is a folder, not a model file";
    else if (!file.isReadable())
        reason = "may not be read";
    else if (file.size() == 0)
        reason = "is empty";
    if (reason != nullptr)
        throw ksEditorError(path.toStdString() + ": " + reason);
}

/// The first thing that is wrong with \a node or the nodes below it; null when they are sound.
const char *flawOfNodes(const aiScene &scene, const aiNode *node)
{
    if (node == nullptr)
        return "a node is missing";
    const unsigned int *meshes = node->mMeshes;
    if (std::any_of(meshes, meshes + node->mNumMeshes,
                    [&scene](unsigned int mesh) { return mesh >= scene.mNumMeshes; }))
        return "a node has a mesh that does not exist";
    for (unsigned int i = 0; i < node->mNumChildren; ++i)
        if (const char *flaw = flawOfNodes(scene, node->mChildren[i]))
            return flaw;
    return nullptr;
}

bool hasSoundCorners(const aiMesh &mesh, const aiFace &face)
{
    return face.mNumIndices > 0 && face.mIndices != nullptr &&
           std::all_of(face.mIndices, face.mIndices + face.mNumIndices,
                       [&mesh](unsigned int corner) { return corner < mesh.mNumVertices; });
}

const char *flawOfMesh(const aiScene &scene, const aiMesh &mesh)
{
    if (mesh.mNumVertices > 0 && mesh.mVertices == nullptr)
        return "a mesh has no positions";
    if (mesh.mMaterialIndex >= scene.mNumMaterials)
        return "a mesh has a material that does not exist";
    if (!std::all_of(mesh.mFaces, mesh.mFaces + mesh.mNumFaces,
                     [&mesh](const aiFace &face) { return hasSoundCorners(mesh, face); }))
        return "a mesh has a face with corners that do not exist";
    return nullptr;
}

/// Whether the file says so: what other programs write is theirs, even if it was the editor's before.
bool isSavedByEditor(const aiScene &scene)
{
    aiString generator;
    return scene.mMetaData != nullptr && scene.mMetaData->Get(AI_METADATA_SOURCE_GENERATOR, generator) &&
           QString::fromUtf8(generator.C_Str()) == ksGltfNames::generator();
}

const char *flawOf(const aiScene &scene)
{
    if (const char *flaw = flawOfNodes(scene, scene.mRootNode))
        return flaw;
    for (unsigned int i = 0; i < scene.mNumMeshes; ++i)
        if (const char *flaw = flawOfMesh(scene, *scene.mMeshes[i]))
            return flaw;
    return nullptr;
}

} // namespace

class ksModelFile::Reader
{
public:
    explicit Reader(const QString &path)
    {
        const ksQuietStandardError quiet;
        const std::string file = path.toStdString();
        // Later stages rely on sound input, so the file is checked as it comes before they run.
        scene = importer.ReadFile(file, 0);
        if (scene == nullptr)
            throw ksEditorError(file + ": " + readerError());
        if (const char *flaw = flawOf(*scene))
            throw ksEditorError(file + ": malformed: " + flaw);
        if (isSavedByEditor(*scene))
            return;
        scene = importer.ApplyPostProcessing(aiProcess_Triangulate | aiProcess_SortByPType |
                                             aiProcess_JoinIdenticalVertices | aiProcess_GenNormals);
        if (scene == nullptr)
            throw ksEditorError(file + ": " + readerError());
    }

    ksModelFormat format() const
    {
        const int index = importer.GetPropertyInteger("importerIndex", -1);
        const aiImporterDesc *description =
            index < 0 ? nullptr : importer.GetImporterInfo(static_cast<std::size_t>(index));
        if (description == nullptr)
            return ksModelFormat::Other;
        if (std::strstr(description->mFileExtensions, "gltf") != nullptr)
            return ksModelFormat::Gltf;
        if (std::strstr(description->mFileExtensions, "dae") != nullptr)
            return ksModelFormat::Collada;
        return ksModelFormat::Other;
    }

    const aiScene *scene = nullptr;

private:
    std::string readerError() const
    {
        const QString reason = QString::fromUtf8(importer.GetErrorString()).simplified();
        if (reason.startsWith(QLatin1String("No suitable reader found")))
            return "no reader knows this format";
        return reason.isEmpty() ? "cannot be read" : "cannot be read: " + reason.toStdString();
    }

    Assimp::Importer importer;
};

ksModelFile::ksModelFile(const QString &modelPath)
    : path(modelPath)
{
    checkFile(path);
    reader = std::make_unique<Reader>(path);
}

ksModelFile::~ksModelFile() = default;

const aiScene &ksModelFile::scene() const
{
    return *reader->scene;
}

ksModelFormat ksModelFile::format() const
{
    return reader->format();
}

QString ksModelFile::folder() const
{
    return QFileInfo(path).absolutePath();
}
