// SPDX-License-Identifier: MIT
#include <editor/import/ksLightImporter.h>
#include <editor/import/ksMaterialImporter.h>
#include <editor/import/ksModelFile.h>
#include <editor/import/ksNodeSettingsImporter.h>
#include <editor/import/ksSceneImporter.h>
#include <editor/import/ksTransformImporter.h>
#include <editor/scene/ksContainers.h>
#include <editor/scene/ksMesh.h>

#include <assimp/scene.h>

#include <map>
#include <string>
#include <utility>
#include <vector>

namespace {

osg::ksMeshPtr createMesh(const aiMesh &source, const osg::MaterialPtr &material)
{
    const osg::ksMeshPtr mesh = osg::ksMesh::create();
    CPEdit(mesh, osg::FieldBits::AllFields);
    mesh->setMaterial(material);

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
    return mesh;
}

/// Builds the scene of one model file.
class SceneBuilder
{
public:
    SceneBuilder(const ksModelFile &model, const ksWarn &reportTo)
        : file(model)
        , warn(reportTo)
        , materials(model, reportTo)
        , meshes(model.scene().mNumMeshes)
    {
        for (unsigned int i = 0; i < file.scene().mNumLights; ++i) {
            const aiLight *light = file.scene().mLights[i];
            if (!lights.emplace(light->mName.C_Str(), light).second)
                warn(QStringLiteral("light '") + QString::fromUtf8(light->mName.C_Str()) +
                     QStringLiteral("' has the name of another one"));
        }
    }

    osg::NodeRefPtr build()
    {
        osg::NodeRefPtr root(buildNode(*file.scene().mRootNode));
        for (const auto &[name, light] : lights)
            warn(QStringLiteral("light '") + QString::fromStdString(name) + QStringLiteral("' has no place"));
        return root;
    }

private:
    osg::NodePtr buildNode(const aiNode &source)
    {
        const std::string name = source.mName.C_Str();
        const osg::NodePtr node = ksContainers::createNode(name, ksTransformImporter::create(source, warn),
                                                           ksNodeSettingsImporter::create(source, warn));
        CPEdit(node, osg::Node::ChildrenFieldMask);
        for (unsigned int i = 0; i < source.mNumChildren; ++i)
            node->addChild(buildNode(*source.mChildren[i]));
        for (unsigned int i = 0; i < source.mNumMeshes; ++i)
            node->addChild(buildMeshNode(name, source.mMeshes[i]));
        if (const auto light = lights.find(name); light != lights.end()) {
            node->addChild(buildLightNode(*light->second));
            // A second node of that name is not where the light is.
            lights.erase(light);
        }
        return node;
    }

    osg::NodePtr buildMeshNode(const std::string &owner, unsigned int index)
    {
        const aiMesh &source = *file.scene().mMeshes[index];
        osg::RefPtr<osg::ksMeshPtr> &mesh = meshes[index];
        if (mesh.get() == osg::NullFC)
            mesh = osg::RefPtr<osg::ksMeshPtr>(createMesh(source, materials.material(source.mMaterialIndex)));
        const osg::ksNodeSettingsPtr settings = osg::ksNodeSettings::create();
        CPEdit(settings, osg::ksNodeSettings::OpacityFieldMask);
        settings->setOpacity(materials.opacity(source.mMaterialIndex));
        return ksContainers::createNode(source.mName.length > 0 ? source.mName.C_Str() : owner + " mesh",
                                        mesh.get(), settings);
    }

    osg::NodePtr buildLightNode(const aiLight &source)
    {
        const std::string name = source.mName.C_Str() + std::string(" light");
        const ksLightValues values = ksLightImporter::values(source, file.format());
        const osg::NodePtr light = ksContainers::createNode(name, ksLightImporter::createCore(values));
        if (values.position == osg::Vec3f(0, 0, 0) && values.direction == osg::Vec3f(0, 0, -1))
            return light;
        const osg::NodePtr place = ksContainers::createNode(
            name + " place", ksTransformImporter::create(values.position, values.direction));
        CPEdit(place, osg::Node::ChildrenFieldMask);
        place->addChild(light);
        return place;
    }

    const ksModelFile &file;
    const ksWarn &warn;
    ksMaterialImporter materials;
    std::vector<osg::RefPtr<osg::ksMeshPtr>> meshes;
    std::map<std::string, const aiLight *> lights;
};

} // namespace

ksSceneImporter::ksSceneImporter(ksWarn reportTo)
    : warn(std::move(reportTo))
{}

osg::NodeRefPtr ksSceneImporter::load(const QString &path) const
{
    const ksModelFile file(path);
    return SceneBuilder(file, warn).build();
}
