// SPDX-License-Identifier: MIT
#include <editor/import/ksModelRepair.h>
#include <editor/import/ksModelText.h>
#include <editor/scene/ksSoundNumbers.h>

#include <assimp/scene.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <initializer_list>
#include <vector>

namespace {

QString quoted(const char *what, const aiString &name)
{
    return QLatin1String(what) + QStringLiteral(" '") + ksModelText::shown(name) + QLatin1Char('\'');
}

/// Removes the missing nodes below \a node and returns how many there were.
unsigned int removeMissing(aiNode &node)
{
    aiNode **end = std::remove(node.mChildren, node.mChildren + node.mNumChildren, nullptr);
    const auto left = static_cast<unsigned int>(end - node.mChildren);
    unsigned int missing = node.mNumChildren - left;
    node.mNumChildren = left;
    for (unsigned int i = 0; i < left; ++i)
        missing += removeMissing(*node.mChildren[i]);
    return missing;
}

void markMeshes(const aiNode &node, std::vector<bool> &placed)
{
    for (unsigned int i = 0; i < node.mNumMeshes; ++i)
        if (node.mMeshes[i] < placed.size())
            placed[node.mMeshes[i]] = true;
    for (unsigned int i = 0; i < node.mNumChildren; ++i)
        markMeshes(*node.mChildren[i], placed);
}

/// Gives the meshes that no node has to the root.
void placeMeshes(aiScene &scene)
{
    std::vector<bool> placed(scene.mNumMeshes, false);
    markMeshes(*scene.mRootNode, placed);
    aiNode &root = *scene.mRootNode;
    std::vector<unsigned int> meshes(root.mMeshes, root.mMeshes + root.mNumMeshes);
    for (unsigned int i = 0; i < scene.mNumMeshes; ++i)
        if (!placed[i])
            meshes.push_back(i);
    delete[] root.mMeshes;
    root.mMeshes = new unsigned int[meshes.size()];
    std::copy(meshes.begin(), meshes.end(), root.mMeshes);
    root.mNumMeshes = static_cast<unsigned int>(meshes.size());
}

bool isFinite(const aiMatrix4x4 &matrix)
{
    for (unsigned int row = 0; row < 4; ++row)
        if (!ksSoundNumbers::areFinite(matrix[row], 4))
            return false;
    return true;
}

void repairMatrices(aiNode &node, const ksWarn &warn)
{
    if (!isFinite(node.mTransformation)) {
        warn(quoted("node", node.mName) + QStringLiteral(": its matrix has numbers that are not finite"));
        node.mTransformation = aiMatrix4x4();
    }
    for (unsigned int i = 0; i < node.mNumChildren; ++i)
        repairMatrices(*node.mChildren[i], warn);
}

/// Makes the numbers of \a vectors finite, which may be null, and returns how many vectors had others.
unsigned int makeFinite(aiVector3D *vectors, unsigned int count)
{
    unsigned int repaired = 0;
    for (unsigned int i = 0; vectors != nullptr && i < count; ++i) {
        aiVector3D &vector = vectors[i];
        const aiVector3D before = vector;
        for (ai_real *number : {&vector.x, &vector.y, &vector.z})
            *number = std::isfinite(*number) ? *number : 0;
        repaired += std::memcmp(&before, &vector, sizeof(before)) != 0 ? 1 : 0;
    }
    return repaired;
}

void repairMesh(aiMesh &mesh, const ksWarn &warn)
{
    const auto repair = [&mesh, &warn](aiVector3D *vectors, const char *what) {
        if (const unsigned int repaired = makeFinite(vectors, mesh.mNumVertices))
            warn(quoted("mesh", mesh.mName) +
                 QStringLiteral(": numbers that are not finite count as 0, in %1 %2")
                     .arg(repaired)
                     .arg(QLatin1String(what)));
    };
    repair(mesh.mVertices, "positions");
    repair(mesh.mNormals, "normals");
    repair(mesh.mTextureCoords[0], "texture coordinates");
}

/// Whether all of the numbers of type T that \a property consists of are finite.
template <class T>
bool isFinite(const aiMaterialProperty &property)
{
    std::vector<T> numbers(property.mDataLength / sizeof(T));
    std::memcpy(numbers.data(), property.mData, numbers.size() * sizeof(T));
    return ksSoundNumbers::areFinite(numbers.data(), static_cast<unsigned int>(numbers.size()));
}

void repairMaterial(aiMaterial &material, const ksWarn &warn)
{
    for (unsigned int i = material.mNumProperties; i-- > 0;) {
        const aiMaterialProperty &property = *material.mProperties[i];
        if (property.mType == aiPTI_Double ? isFinite<double>(property)
                                           : property.mType != aiPTI_Float || isFinite<float>(property))
            continue;
        const aiString key = property.mKey;
        warn(quoted("material", material.GetName()) + QStringLiteral(": ") + ksModelText::shown(key) +
             QStringLiteral(" has numbers that are not finite, and is left out"));
        material.RemoveProperty(key.C_Str(), property.mSemantic, property.mIndex);
    }
}

/// Lights are made finite by their importer.
void checkLight(const aiLight &light, const ksWarn &warn)
{
    for (const ai_real number :
         {light.mPosition.x,          light.mPosition.y,        light.mPosition.z,
          light.mDirection.x,         light.mDirection.y,       light.mDirection.z,
          light.mAttenuationConstant, light.mAttenuationLinear, light.mAttenuationQuadratic,
          light.mColorDiffuse.r,      light.mColorDiffuse.g,    light.mColorDiffuse.b,
          light.mColorSpecular.r,     light.mColorSpecular.g,   light.mColorSpecular.b,
          light.mColorAmbient.r,      light.mColorAmbient.g,    light.mColorAmbient.b,
          light.mAngleInnerCone,      light.mAngleOuterCone})
        if (!std::isfinite(number)) {
            warn(quoted("light", light.mName) +
                 QStringLiteral(" has numbers that are not finite, which count as 0"));
            return;
        }
}

} // namespace

void ksModelRepair::repair(aiScene &scene, const ksWarn &warn)
{
    if (const unsigned int missing = removeMissing(*scene.mRootNode); missing > 0) {
        placeMeshes(scene);
        warn(QStringLiteral("the reader has lost %1 of the nodes; what they show is at the root")
                 .arg(missing));
    }
    repairMatrices(*scene.mRootNode, warn);
    for (unsigned int i = 0; i < scene.mNumMeshes; ++i)
        repairMesh(*scene.mMeshes[i], warn);
    for (unsigned int i = 0; i < scene.mNumMaterials; ++i)
        repairMaterial(*scene.mMaterials[i], warn);
    for (unsigned int i = 0; i < scene.mNumLights; ++i)
        checkLight(*scene.mLights[i], warn);
}
