// SPDX-License-Identifier: MIT
#include <editor/import/ksExtrasReader.h>
#include <editor/import/ksLightImporter.h>
#include <editor/import/ksMaterialImporter.h>
#include <editor/import/ksMeshImporter.h>
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

/// Exactly: Assimp calls small moves the identity, too.
bool isIdentity(const aiMatrix4x4 &matrix)
{
    return matrix == aiMatrix4x4();
}

/// Builds the scene of one model file.
class SceneBuilder
{
public:
    SceneBuilder(const ksModelFile &model, const ksWarn &reportTo)
        : file(model)
        , warn(reportTo)
        , materials(model, reportTo)
        , saved(model, materials, reportTo)
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
        osg::NodePtr node = saved.node(source);
        if (node == osg::NullFC)
            node = ksContainers::createNode(name, ksTransformImporter::create(source, warn),
                                            ksNodeSettingsImporter::create(source, warn));
        CPEdit(node, osg::Node::ChildrenFieldMask);
        for (unsigned int i = 0; i < source.mNumChildren; ++i)
            node->addChild(buildNode(*source.mChildren[i]));
        // What the node itself is stands for its first mesh, or its light.
        const bool isMesh = osg::ksMeshPtr::dcast(node->getCore()) != osg::NullFC;
        const bool isLight = osg::UberLightPtr::dcast(node->getCore()) != osg::NullFC;
        for (unsigned int i = isMesh ? 1 : 0; i < source.mNumMeshes; ++i)
            node->addChild(buildMeshNode(name, source.mMeshes[i]));
        if (const auto light = lights.find(name); light != lights.end()) {
            if (!isLight)
                node->addChild(buildLightNode(*light->second));
            // A second node of that name is not where the light is.
            lights.erase(light);
        }
        return placed(node, source);
    }

    /// \a node itself, or a new node above it when \a source has a place that the node's core has not.
    osg::NodePtr placed(const osg::NodePtr &node, const aiNode &source) const
    {
        if (osg::TransformPtr::dcast(node->getCore()) != osg::NullFC || isIdentity(source.mTransformation))
            return node;
        const osg::NodePtr place = ksContainers::createNode(source.mName.C_Str() + std::string(" place"),
                                                            ksTransformImporter::create(source, warn));
        CPEdit(place, osg::Node::ChildrenFieldMask);
        place->addChild(node);
        return place;
    }

    osg::NodePtr buildMeshNode(const std::string &owner, unsigned int index)
    {
        const aiMesh &source = *file.scene().mMeshes[index];
        osg::RefPtr<osg::ksMeshPtr> &mesh = meshes[index];
        if (mesh.get() == osg::NullFC)
            mesh = osg::RefPtr<osg::ksMeshPtr>(createMesh(source));
        const osg::ksNodeSettingsPtr settings = osg::ksNodeSettings::create();
        CPEdit(settings, osg::ksNodeSettings::OpacityFieldMask);
        settings->setOpacity(materials.opacity(source.mMaterialIndex));
        return ksContainers::createNode(source.mName.length > 0 ? source.mName.C_Str() : owner + " mesh",
                                        mesh.get(), settings);
    }

    osg::ksMeshPtr createMesh(const aiMesh &source)
    {
        const osg::ksMeshPtr mesh = osg::ksMesh::create();
        CPEdit(mesh, osg::FieldBits::AllFields);
        mesh->setMaterial(materials.material(source.mMaterialIndex));
        ksMeshImporter::read(source, mesh);
        return mesh;
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
    ksExtrasReader saved;
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
