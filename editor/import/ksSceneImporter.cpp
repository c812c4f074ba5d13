// SPDX-License-Identifier: MIT
#include <editor/import/ksExtrasReader.h>
#include <editor/import/ksGltfFile.h>
#include <editor/import/ksGltfNodes.h>
#include <editor/import/ksLightImporter.h>
#include <editor/import/ksMaterialImporter.h>
#include <editor/import/ksMeshImporter.h>
#include <editor/import/ksModelFile.h>
#include <editor/import/ksModelText.h>
#include <editor/import/ksNodeSettingsImporter.h>
#include <editor/import/ksSceneImporter.h>
#include <editor/import/ksTransformImporter.h>
#include <editor/scene/ksContainers.h>
#include <editor/scene/ksMesh.h>

#include <QStringList>
#include <assimp/scene.h>

#include <deque>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace {

/// Exactly: Assimp calls small moves the identity, too.
bool isIdentity(const aiMatrix4x4 &matrix)
{
    return matrix == aiMatrix4x4();
}

int countNodes(const aiNode &node)
{
    int count = 1;
    for (unsigned int i = 0; i < node.mNumChildren; ++i)
        count += countNodes(*node.mChildren[i]);
    return count;
}

/// What reading the file is of all the work.
constexpr double ReadingShare = 0.6;

/// Builds the scene of one model file.
class SceneBuilder
{
public:
    SceneBuilder(const ksModelFile &model, const ksWarn &reportTo, const ksProgress &askedFor)
        : file(model)
        , warn(reportTo)
        , progress(askedFor)
        , nodeCount(countNodes(*model.scene().mRootNode))
        , materials(model, reportTo)
        , written(model.gltf().document(), model.scene())
        , saved(model, written, materials, reportTo)
        , meshes(model.scene().mNumMeshes)
    {
        for (unsigned int i = 0; i < file.scene().mNumLights; ++i) {
            const aiLight *light = file.scene().mLights[i];
            lights[ksModelText::whole(light->mName)].push_back(light);
        }
    }

    osg::NodeRefPtr build()
    {
        osg::NodeRefPtr root = buildNode(*file.scene().mRootNode);
        for (const auto &[name, homeless] : lights)
            for (std::size_t i = 0; !written.knowsLights() && i < homeless.size(); ++i)
                warn(QStringLiteral("light '") + QString::fromStdString(name) +
                     QStringLiteral("' has no place"));
        if (const int count = cutNames + materials.cutNames(); count > 0)
            warn(QStringLiteral("%1 of the names are longer than the reader has room for, and cut")
                     .arg(count));
        return root;
    }

private:
    osg::NodeRefPtr buildNode(const aiNode &source)
    {
        ++builtNodes;
        if (progress && !progress(ReadingShare + (1 - ReadingShare) * builtNodes / nodeCount))
            throw ksCancelled(file.filePath() + QStringLiteral(": cancelled"));
        const std::string name = nameOf(source);
        osg::NodeRefPtr kept(saved.node(source));
        if (kept == osg::NullFC)
            kept = ksContainers::createNode(name, ksTransformImporter::create(source, warn),
                                            ksNodeSettingsImporter::create(source, warn));
        const osg::NodePtr node = kept.get();
        CPEdit(node, osg::Node::ChildrenFieldMask);
        for (unsigned int i = 0; i < source.mNumChildren; ++i)
            node->addChild(buildNode(*source.mChildren[i]).get());
        // What the node itself is stands for its first mesh, or its light.
        const bool isMesh = osg::ksMeshPtr::dcast(node->getCore()) != osg::NullFC;
        const bool isLight = osg::UberLightPtr::dcast(node->getCore()) != osg::NullFC;
        for (unsigned int i = isMesh ? 1 : 0; i < source.mNumMeshes; ++i)
            node->addChild(buildMeshNode(meshNameOf(source, i, name), source.mMeshes[i]));
        if (const aiLight *light = lightOf(source); light != nullptr && !isLight)
            node->addChild(buildLightNode(name, *light));
        return placed(node, source, name);
    }

    /// \a node itself, or a new node above it when \a source has a place that the node's core has not.
    osg::NodeRefPtr placed(const osg::NodePtr &node, const aiNode &source, const std::string &name) const
    {
        if (osg::TransformPtr::dcast(node->getCore()) != osg::NullFC || isIdentity(source.mTransformation))
            return osg::NodeRefPtr(node);
        const osg::NodePtr place =
            ksContainers::createNode(name + " place", ksTransformImporter::create(source, warn));
        CPEdit(place, osg::Node::ChildrenFieldMask);
        place->addChild(node);
        return osg::NodeRefPtr(place);
    }

    std::string nameOf(const aiNode &node)
    {
        const std::string name = written.nameOf(node);
        return name.empty() ? nameFrom(node.mName) : name;
    }

    std::string nameFrom(const aiString &text)
    {
        cutNames += ksModelText::mayBeCut(text) ? 1 : 0;
        return ksModelText::whole(text);
    }

    /// The light that is at \a node. Where lights have nothing but names, the first light of a name is at the
    /// first node of that name, and so on.
    const aiLight *lightOf(const aiNode &node)
    {
        if (written.knowsLights())
            return written.lightOf(node);
        const auto found = lights.find(ksModelText::whole(node.mName));
        if (found == lights.end() || found->second.empty())
            return nullptr;
        const aiLight *light = found->second.front();
        found->second.pop_front();
        return light;
    }

    /// The name of the mesh at \a index of \a node, which is called \a owner.
    std::string meshNameOf(const aiNode &node, unsigned int index, const std::string &owner)
    {
        // As the reader names those that one mesh is taken apart into.
        const std::string part = node.mNumMeshes > 1 ? '-' + std::to_string(index) : std::string();
        const std::string name = written.meshNameOf(node) + part;
        if (ksModelText::isTooLong(name))
            return name;
        const aiString &known = file.scene().mMeshes[node.mMeshes[index]]->mName;
        return known.length > 0 ? nameFrom(known) : owner + " mesh";
    }

    osg::NodePtr buildMeshNode(const std::string &name, unsigned int index)
    {
        const aiMesh &source = *file.scene().mMeshes[index];
        osg::RefPtr<osg::ksMeshPtr> &mesh = meshes[index];
        if (mesh.get() == osg::NullFC)
            mesh = osg::RefPtr<osg::ksMeshPtr>(createMesh(source));
        const osg::ksNodeSettingsPtr settings = osg::ksNodeSettings::create();
        CPEdit(settings, osg::ksNodeSettings::OpacityFieldMask);
        settings->setOpacity(materials.opacity(source.mMaterialIndex));
        return ksContainers::createNode(name, mesh.get(), settings);
    }

    osg::ksMeshPtr createMesh(const aiMesh &source)
    {
        const osg::ksMeshPtr mesh = osg::ksMesh::create();
        CPEdit(mesh, osg::FieldBits::AllFields);
        mesh->setMaterial(materials.material(source.mMaterialIndex));
        ksMeshImporter::read(source, mesh);
        return mesh;
    }

    osg::NodePtr buildLightNode(const std::string &owner, const aiLight &source)
    {
        const std::string name = owner + " light";
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
    const ksProgress &progress;
    const int nodeCount;
    int builtNodes = 0;
    ksMaterialImporter materials;
    const ksGltfNodes written;
    const ksExtrasReader saved;
    std::vector<osg::RefPtr<osg::ksMeshPtr>> meshes;

    /// Those that have found no place yet, by name, in the order of the file.
    std::map<std::string, std::deque<const aiLight *>> lights;
    int cutNames = 0;
};

/// What of \a scene has no place in a scene of the scene graph, as a list of counts; empty when nothing.
QString leftOutOf(const aiScene &scene)
{
    std::set<std::string> bones;
    for (unsigned int i = 0; i < scene.mNumMeshes; ++i)
        for (unsigned int bone = 0; bone < scene.mMeshes[i]->mNumBones; ++bone)
            bones.insert(scene.mMeshes[i]->mBones[bone]->mName.C_Str());
    QStringList counts;
    const auto count = [&counts](std::size_t number, const char *what) {
        if (number > 0)
            counts += QString::number(number) + QLatin1Char(' ') + QLatin1String(what) +
                      (number == 1 ? QString() : QStringLiteral("s"));
    };
    count(scene.mNumAnimations, "animation");
    count(scene.mNumCameras, "camera");
    count(bones.size(), "bone");
    return counts.join(QStringLiteral(", "));
}

} // namespace

ksSceneImporter::ksSceneImporter(ksWarn reportTo, ksWarn leftOutTo)
    : warn(std::move(reportTo))
    , tellLeftOut(std::move(leftOutTo))
{}

osg::NodeRefPtr ksSceneImporter::load(const QString &path, const ksProgress &progress) const
{
    ksProgress reading;
    if (progress)
        reading = [&progress](double done) { return progress(ReadingShare * done); };
    const ksModelFile file(path, warn, reading);
    if (const QString leftOut = leftOutOf(file.scene()); !leftOut.isEmpty())
        tellLeftOut(leftOut);
    return SceneBuilder(file, warn, progress).build();
}
