// SPDX-License-Identifier: MIT
#include <editor/export/ksExtrasWriter.h>
#include <editor/export/ksGltfDocument.h>
#include <editor/export/ksImageExporter.h>
#include <editor/export/ksLightExporter.h>
#include <editor/export/ksMaterialExporter.h>
#include <editor/export/ksMeshExporter.h>
#include <editor/export/ksSceneExporter.h>
#include <editor/ksEditorError.h>
#include <editor/scene/ksContainers.h>
#include <editor/scene/ksGltfNames.h>
#include <editor/scene/ksSoundNumbers.h>

#include <OpenSG/OSGSimpleAttachments.h>
#include <OpenSG/OSGTransform.h>

#include <QFileInfo>
#include <QJsonArray>
#include <QSaveFile>
#include <assimp/Importer.hpp>
#include <assimp/postprocess.h>
#include <assimp/scene.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <memory>
#include <new>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

namespace {

QString binarySuffix()
{
    return QStringLiteral("glb");
}

bool isSuffixOf(const QString &path, const QString &suffix)
{
    return QFileInfo(path).suffix().compare(suffix, Qt::CaseInsensitive) == 0;
}

/// A scene that Assimp exports as it is. Of one that did not come from an importer, or says that faces share
/// vertices, it would first give every face its own vertices, and then join them in another order.
std::unique_ptr<aiScene> createScene()
{
    constexpr char Triangle[] = "OFF\n3 1 0\n0 0 0\n1 0 0\n0 1 0\n3 0 1 2\n";
    Assimp::Importer importer;
    importer.ReadFileFromMemory(
        Triangle, sizeof(Triangle) - 1,
        aiProcess_Triangulate | aiProcess_SortByPType | aiProcess_JoinIdenticalVertices, "off");
    std::unique_ptr<aiScene> scene(importer.GetOrphanedScene());
    if (scene == nullptr)
        throw ksEditorError("the exporter is missing");
    scene->mFlags &= ~static_cast<unsigned int>(AI_SCENE_FLAGS_NON_VERBOSE_FORMAT);
    return scene;
}

/// Puts \a owned in the place of what the array of an aiScene has.
template <class T>
void replace(T **&array, unsigned int &count, std::vector<std::unique_ptr<T>> &owned)
{
    std::for_each(array, array + count, [](T *element) { delete element; });
    delete[] array;
    array = owned.empty() ? nullptr : new T *[owned.size()];
    count = static_cast<unsigned int>(owned.size());
    std::transform(owned.begin(), owned.end(), array,
                   [](std::unique_ptr<T> &element) { return element.release(); });
    owned.clear();
}

QString nameOf(const osg::AttachmentContainerPtr &container)
{
    return QString::fromStdString(ksContainers::ownNameOf(container));
}

void insertName(QJsonObject &target, const QString &name)
{
    target.remove(QStringLiteral("name"));
    if (!name.isEmpty())
        target.insert(QStringLiteral("name"), name);
}

float opacityOf(const osg::NodePtr &node)
{
    const auto settings =
        osg::ksNodeSettingsPtr::dcast(node->findAttachment(osg::ksNodeSettings::getClassType()));
    return settings != osg::NullFC && std::isfinite(settings->getOpacity()) ? settings->getOpacity() : 1;
}

/// The matrix of a node, column by column; empty for the identity, and for one that files cannot hold.
QJsonArray matrixOf(const osg::NodePtr &node)
{
    const osg::TransformPtr transform = osg::TransformPtr::dcast(node->getCore());
    if (transform == osg::NullFC || transform->getMatrix() == osg::Matrix())
        return {};
    const float *values = transform->getMatrix().getValues();
    QJsonArray numbers;
    for (unsigned int i = 0; ksSoundNumbers::areFinite(values, osg::Matrix::Size) && i < osg::Matrix::Size;
         ++i)
        numbers.append(double(values[i]));
    return numbers;
}

QJsonObject extrasOf(const QJsonValue &content)
{
    return {{ksGltfNames::extras(), content}};
}

/// Makes the document of one scene. The document's nodes, meshes, materials and images are known by their
/// positions, which are also what Assimp gets as their names and paths: where these are equal it takes long
/// to find others.
class DocumentBuilder
{
public:
    explicit DocumentBuilder(const osg::NodePtr &root)
    {
        ksContainers::visitNodes(root, [this](const osg::NodePtr &node) { nodes.push_back(node); });
    }

    ksGltfDocument build()
    {
        ksGltfDocument document(*createAssimpScene());
        completeMeshes(document);
        ksExtrasWriter extras(nodes, [this](const osg::FieldContainerPtr &container, osg::UInt32 fieldId) {
            return isElsewhere(container, fieldId);
        });
        completeNodes(document, extras);
        completeMaterials(document, extras);
        completeImages(document, extras);
        return document;
    }

private:
    struct Material
    {
        osg::MaterialPtr source;
        float opacity;
    };

    struct Image
    {
        osg::ImagePtr source;
        QByteArray file;
    };

    std::unique_ptr<aiScene> createAssimpScene()
    {
        std::unique_ptr<aiScene> scene = createScene();
        delete std::exchange(scene->mRootNode, nullptr);
        std::size_t next = 0;
        scene->mRootNode = createAssimpNode(next).release();
        replace(scene->mMeshes, scene->mNumMeshes, assimpMeshes);
        replace(scene->mMaterials, scene->mNumMaterials, assimpMaterials);
        return scene;
    }

    /// The node at the position \a next, and those below it.
    std::unique_ptr<aiNode> createAssimpNode(std::size_t &next, int level = 1)
    {
        if (level > ksContainers::MostLevels)
            throw ksEditorError("its nodes are nested too deeply");
        const osg::NodePtr node = nodes[next];
        auto result = std::make_unique<aiNode>(std::to_string(next++));
        const auto mesh = osg::ksMeshPtr::dcast(node->getCore());
        if (mesh != osg::NullFC && ksMeshExporter::isExportable(mesh)) {
            result->mNumMeshes = 1;
            result->mMeshes = new unsigned int[1]{meshIndex(mesh, opacityOf(node))};
        }
        result->mChildren = node->getNChildren() > 0 ? new aiNode *[node->getNChildren()] : nullptr;
        for (osg::UInt32 i = 0; i < node->getNChildren(); ++i) {
            result->mChildren[i] = createAssimpNode(next, level + 1).release();
            result->mChildren[i]->mParent = result.get();
            result->mNumChildren = i + 1;
        }
        return result;
    }

    unsigned int meshIndex(const osg::ksMeshPtr &mesh, float opacity)
    {
        const unsigned int material = materialIndex(mesh->getMaterial(), opacity);
        const auto [found, isNew] = meshIndices.emplace(std::pair(mesh.getFieldContainerId(), material),
                                                        static_cast<unsigned int>(meshes.size()));
        if (isNew) {
            meshes.push_back(mesh);
            exportedMeshes.insert(mesh.getFieldContainerId());
            assimpMeshes.push_back(ksMeshExporter::create(mesh, material));
            assimpMeshes.back()->mName = aiString(QStringLiteral("mesh %1").arg(found->second).toStdString());
        }
        return found->second;
    }

    unsigned int materialIndex(const osg::MaterialPtr &material, float opacity)
    {
        const auto [found, isNew] = materialIndices.emplace(
            std::pair(material.getFieldContainerId(), opacity), static_cast<unsigned int>(materials.size()));
        if (isNew) {
            materials.push_back({material, opacity});
            assimpMaterials.push_back(createAssimpMaterial(materials.back()));
            const aiString name(QStringLiteral("material %1").arg(found->second).toStdString());
            assimpMaterials.back()->AddProperty(&name, AI_MATKEY_NAME);
        }
        return found->second;
    }

    std::unique_ptr<aiMaterial> createAssimpMaterial(const Material &material)
    {
        return ksMaterialExporter::create(material.source, material.opacity,
                                          [this](const osg::ImagePtr &image) {
                                              const int index = imageIndex(image);
                                              return index < 0 ? std::string() : std::to_string(index);
                                          });
    }

    /// -1 for an image that does not become an image of the document.
    int imageIndex(const osg::ImagePtr &image)
    {
        const auto [found, isNew] = imageIndices.emplace(image.getFieldContainerId(), -1);
        if (isNew) {
            QByteArray file = ksImageExporter::toPng(image);
            if (!file.isEmpty()) {
                found->second = static_cast<int>(images.size());
                images.push_back({image, std::move(file)});
            }
        }
        return found->second;
    }

    /// Whether the document holds that field of \a container outside of the extras.
    bool isElsewhere(const osg::FieldContainerPtr &container, osg::UInt32 fieldId)
    {
        if (fieldId == osg::Image::PixelFieldId)
            if (const osg::ImagePtr image = osg::ImagePtr::dcast(container))
                return imageIndex(image) >= 0;
        if (const osg::ksMeshPtr mesh = osg::ksMeshPtr::dcast(container))
            return exportedMeshes.count(mesh.getFieldContainerId()) > 0 &&
                   ksMeshExporter::isKept(mesh, fieldId);
        return false;
    }

    void completeMeshes(ksGltfDocument &document) const
    {
        QJsonArray all = document.json.value(QLatin1String("meshes")).toArray();
        for (std::size_t i = 0; i < meshes.size(); ++i) {
            const int position = static_cast<int>(i);
            QJsonObject entry = all.at(position).toObject();
            insertName(entry, ksContainers::nameOf(meshes[i]));
            // The exporter would give every normal the length 1.
            const QJsonValue normal = entry.value(
                QLatin1String("primitives"))[0][QLatin1String("attributes")][QLatin1String("NORMAL")];
            const osg::MFVec3f::StorageType &normals = meshes[i]->getNormals().getValues();
            if (!normals.empty())
                document.replaceBytes(normal.toInt(-1), normals.data(), normals.size() * sizeof(osg::Vec3f));
            all.replace(position, entry);
        }
        if (!all.isEmpty())
            document.json.insert(QStringLiteral("meshes"), all);
    }

    void completeNodes(ksGltfDocument &document, ksExtrasWriter &extras) const
    {
        QJsonArray all = document.json.value(QLatin1String("nodes")).toArray();
        QJsonArray lights;
        std::vector<int> positions(nodes.size());
        for (int i = 0; i < all.size(); ++i)
            positions.at(all.at(i)[QLatin1String("name")].toString().toUInt()) = i;
        for (std::size_t i = 0; i < nodes.size(); ++i) {
            QJsonObject entry = all.at(positions[i]).toObject();
            insertName(entry, nameOf(nodes[i]));
            entry.remove(QStringLiteral("matrix"));
            if (const QJsonArray matrix = matrixOf(nodes[i]); !matrix.isEmpty())
                entry.insert(QStringLiteral("matrix"), matrix);
            if (const auto light = osg::UberLightPtr::dcast(nodes[i]->getCore())) {
                const QJsonObject reference{{QStringLiteral("light"), lights.size()}};
                entry.insert(QStringLiteral("extensions"), QJsonObject{{ksGltfNames::lights(), reference}});
                lights.append(ksLightExporter::toGltf(light, nameOf(nodes[i])));
            }
            entry.insert(QStringLiteral("extras"), extrasOf(extras.textOf(nodes[i])));
            all.replace(positions[i], entry);
        }
        document.json.insert(QStringLiteral("nodes"), all);
        if (!lights.isEmpty()) {
            const QJsonObject content{{QStringLiteral("lights"), lights}};
            document.json.insert(QStringLiteral("extensions"), QJsonObject{{ksGltfNames::lights(), content}});
        }
    }

    void completeMaterials(ksGltfDocument &document, ksExtrasWriter &extras) const
    {
        QJsonArray all = document.json.value(QLatin1String("materials")).toArray();
        for (std::size_t i = 0; i < materials.size(); ++i) {
            const int position = static_cast<int>(i);
            QJsonObject entry = all.at(position).toObject();
            insertName(entry, nameOf(materials[i].source));
            if (const int id = extras.idOf(materials[i].source))
                entry.insert(QStringLiteral("extras"), extrasOf(id));
            transformTextures(entry, ksMaterialExporter::textureTransform(materials[i].source));
            all.replace(position, entry);
        }
        if (!all.isEmpty())
            document.json.insert(QStringLiteral("materials"), all);
    }

    /// Gives the textures of \a material the transform, unless that is empty.
    static void transformTextures(QJsonObject &material, const QJsonObject &transform)
    {
        const auto apply = [&transform](QJsonObject &owner, const QString &texture) {
            QJsonObject info = owner.value(texture).toObject();
            if (info.isEmpty() || transform.isEmpty())
                return;
            info.insert(QStringLiteral("extensions"),
                        QJsonObject{{ksGltfNames::textureTransform(), transform}});
            owner.insert(texture, info);
        };
        const QString physicallyBased = QStringLiteral("pbrMetallicRoughness");
        QJsonObject surface = material.value(physicallyBased).toObject();
        apply(surface, QStringLiteral("baseColorTexture"));
        material.insert(physicallyBased, surface);
        apply(material, QStringLiteral("emissiveTexture"));
    }

    void completeImages(ksGltfDocument &document, ksExtrasWriter &extras) const
    {
        QJsonArray ordered;
        std::vector<bool> isDone(images.size());
        const auto append = [&](std::size_t index) {
            ordered.append(createImage(document, extras, index));
            isDone[index] = true;
        };
        // The exporter has made those that materials show, and knows them by the path that it was given.
        for (const QJsonValue entry : document.json.value(QLatin1String("images")).toArray())
            append(entry[QLatin1String("uri")].toString().toUInt());
        for (std::size_t i = 0; i < images.size(); ++i)
            if (!isDone[i])
                append(i);
        if (!ordered.isEmpty())
            document.json.insert(QStringLiteral("images"), ordered);
    }

    QJsonObject createImage(ksGltfDocument &document, ksExtrasWriter &extras, std::size_t index) const
    {
        const Image &image = images.at(index);
        QJsonObject entry{{QStringLiteral("bufferView"), document.addBytes(image.file)},
                          {QStringLiteral("mimeType"), QStringLiteral("image/png")},
                          {QStringLiteral("extras"), extrasOf(extras.idOf(image.source))}};
        insertName(entry, QString::fromStdString(image.source->getName()));
        return entry;
    }

    std::vector<osg::NodePtr> nodes;

    std::vector<osg::ksMeshPtr> meshes;
    std::unordered_set<osg::UInt32> exportedMeshes;
    std::map<std::pair<osg::UInt32, unsigned int>, unsigned int> meshIndices;
    std::vector<std::unique_ptr<aiMesh>> assimpMeshes;

    std::vector<Material> materials;
    std::map<std::pair<osg::UInt32, float>, unsigned int> materialIndices;
    std::vector<std::unique_ptr<aiMaterial>> assimpMaterials;

    std::vector<Image> images;
    std::unordered_map<osg::UInt32, int> imageIndices;
};

void write(const QByteArray &content, const QString &path)
{
    QSaveFile file(path);
    // Without a buffer, and asked again, the file knows why it took less.
    bool isOpen = file.open(QIODevice::WriteOnly | QIODevice::Unbuffered);
    for (qint64 done = 0; isOpen && done < content.size();) {
        const qint64 written = file.write(content.constData() + done, content.size() - done);
        isOpen = written > 0;
        done += written;
    }
    if (!isOpen || !file.commit())
        throw ksEditorError(file.errorString());
}

} // namespace

void ksSceneExporter::checkPath(const QString &path)
{
    const QFileInfo file(path);
    QString reason;
    if (!isSuffixOf(path, QStringLiteral("gltf")) && !isSuffixOf(path, binarySuffix()))
        reason = QStringLiteral("scenes are saved as .gltf or .glb");
    else if (!QFileInfo(file.absolutePath()).isDir())
        reason = QStringLiteral("there is no such folder");
    else if (file.exists() && !file.isFile())
        reason = QStringLiteral("is no file");
    if (!reason.isEmpty())
        throw ksOutputError(path + QStringLiteral(": ") + reason);
}

void ksSceneExporter::save(const osg::NodePtr &root, const QString &path)
{
    checkPath(path);
    const auto fail = [&path](const QString &reason) {
        throw ksOutputError(path + QStringLiteral(": cannot be saved: ") + reason);
    };
    try {
        ksGltfDocument document = DocumentBuilder(root).build();
        write(isSuffixOf(path, binarySuffix()) ? document.toBinary() : document.toText(), path);
    } catch (const ksEditorError &error) {
        fail(QString::fromUtf8(error.what()));
    } catch (const std::bad_alloc &) {
        fail(QStringLiteral("out of memory"));
    }
}
