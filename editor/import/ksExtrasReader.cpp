// SPDX-License-Identifier: MIT
#include <editor/export/ksLightExporter.h>
#include <editor/export/ksMaterialExporter.h>
#include <editor/import/ksExtrasReader.h>
#include <editor/import/ksGltfFile.h>
#include <editor/import/ksGltfNodes.h>
#include <editor/import/ksLightImporter.h>
#include <editor/import/ksMeshImporter.h>
#include <editor/import/ksModelFile.h>
#include <editor/import/ksTransformImporter.h>
#include <editor/scene/ksContainers.h>
#include <editor/scene/ksFieldJson.h>
#include <editor/scene/ksGltfNames.h>
#include <editor/scene/ksNodeSettings.h>
#include <editor/scene/ksReferenceCycles.h>
#include <editor/scene/ksSavedFields.h>
#include <editor/scene/ksSoundNumbers.h>

#include <OpenSG/OSGFieldContainerFactory.h>
#include <OpenSG/OSGSimpleAttachments.h>
#include <OpenSG/OSGSimpleTexturedMaterial.h>
#include <OpenSG/OSGTransform.h>
#include <ksTextureManager.h>

#include <QJsonDocument>
#include <assimp/scene.h>

#include <algorithm>
#include <cmath>
#include <string>

namespace {

QJsonValue extrasIn(const QJsonValue &owner)
{
    return owner[QLatin1String("extras")][ksGltfNames::extras()];
}

/// Whether two matrices differ by more than the rounding that other programs may have done.
bool differ(const osg::Matrix &a, const osg::Matrix &b)
{
    constexpr float Rounding = 1e-5F;
    for (osg::UInt32 column = 0; column < 4; ++column) {
        float size = 0;
        float difference = 0;
        // The last row is the same in all.
        for (osg::UInt32 row = 0; row < 3; ++row) {
            size = std::max({size, std::abs(a[column][row]), std::abs(b[column][row])});
            difference = std::max(difference, std::abs(a[column][row] - b[column][row]));
        }
        if (difference > size * Rounding)
            return true;
    }
    return false;
}

/// The matrix as a file holds it.
osg::Matrix asInFiles(const osg::Matrix &matrix)
{
    return ksSoundNumbers::areFinite(matrix.getValues(), osg::Matrix::Size) ? matrix : osg::Matrix();
}

/// Whether \a upper is \a node or above it, or \a node is nested too deeply to tell.
bool isAtOrAbove(const osg::NodePtr &upper, osg::NodePtr node)
{
    for (int level = 0; level < ksContainers::MostLevels && node != osg::NullFC && node != upper; ++level)
        node = node->getParent();
    return node != osg::NullFC;
}

/// Whether two numbers differ by no more than the rounding that other programs may have done.
bool isClose(double a, double b)
{
    constexpr double Rounding = 1e-4;
    constexpr double Nothing = 1e-7;
    return std::abs(a - b) <= Rounding * std::max(std::abs(a), std::abs(b)) + Nothing;
}

/// The same for what JSON holds, of which only what \a expected has counts.
bool isClose(const QJsonValue &actual, const QJsonValue &expected)
{
    if (expected.isDouble())
        return actual.isDouble() && isClose(actual.toDouble(), expected.toDouble());
    const QJsonArray list = expected.toArray();
    for (int i = 0; i < list.size(); ++i)
        if (!isClose(actual[i], list.at(i)))
            return false;
    const QJsonObject members = expected.toObject();
    for (auto member = members.begin(); member != members.end(); ++member)
        if (!isClose(actual[member.key()], member.value()))
            return false;
    return expected.isArray() || expected.isObject() || actual == expected;
}

/// Whether texture coordinates are the same up to the rounding of measuring them from the other side.
bool areClose(const osg::MFVec2f &a, const osg::MFVec2f &b)
{
    constexpr float Rounding = 1e-6F;
    return std::equal(
        a.begin(), a.end(), b.begin(), b.end(), [](const osg::Vec2f &one, const osg::Vec2f &other) {
            return one[0] == other[0] && std::abs(one[1] - other[1]) <= Rounding * (1 + std::abs(other[1]));
        });
}

/// \a object with those of \a defaults that it leaves out.
QJsonObject completed(QJsonObject object, const QJsonObject &defaults)
{
    for (auto member = defaults.begin(); member != defaults.end(); ++member)
        if (!object.contains(member.key()))
            object.insert(member.key(), member.value());
    return object;
}

/// How a texture lies on a surface, as KHR_texture_transform has it, with what goes without saying.
QJsonObject completedTransform(const QJsonObject &transform)
{
    return completed(transform, {{QStringLiteral("scale"), QJsonArray{1, 1}},
                                 {QStringLiteral("rotation"), 0},
                                 {QStringLiteral("offset"), QJsonArray{0, 0}}});
}

/// A light, as KHR_lights_punctual has it, with what goes without saying.
QJsonObject completedLight(const QJsonObject &light)
{
    QJsonObject result =
        completed(light, {{QStringLiteral("color"), QJsonArray{1, 1, 1}}, {QStringLiteral("intensity"), 1}});
    if (result[QLatin1String("type")] == QLatin1String("spot"))
        result[QLatin1String("spot")] =
            completed(result[QLatin1String("spot")].toObject(),
                      {{QStringLiteral("innerConeAngle"), 0}, {QStringLiteral("outerConeAngle"), M_PI_4}});
    return result;
}

/// Whether \a container has what its kind has to have.
bool isSound(const QJsonArray &container)
{
    return container.size() == 3 && container.at(0).toInt() > 0 && container.at(1).isString() &&
           container.at(2).isObject();
}

} // namespace

ksExtrasReader::ksExtrasReader(const ksModelFile &model, const ksGltfNodes &sources,
                               ksMaterialImporter &modelMaterials, const ksWarn &reportTo)
    : warn(reportTo)
    , scene(model.scene())
    , file(model.gltf())
    , materials(modelMaterials)
    , images(model, reportTo)
{
    collect(*scene.mRootNode, sources);
    if (entries.empty())
        return;
    for (Entry &entry : entries)
        createContainers(entry);
    for (const Entry &entry : entries)
        readMesh(entry);
    for (const Entry &entry : entries)
        readContainers(entry);
    flatten();
    readImages();
    for (const Entry &entry : entries)
        orderParents(entry);
    for (const auto &[id, container] : containers) {
        CPEdit(container.get(), osg::FieldBits::AllFields);
    }
    for (const Entry &entry : entries)
        adaptToModel(entry);
}

osg::NodePtr ksExtrasReader::node(const aiNode &source) const
{
    const auto found = nodes.find(&source);
    return found != nodes.end() ? found->second : osg::NodePtr();
}

void ksExtrasReader::collect(const aiNode &source, const ksGltfNodes &sources)
{
    const QJsonValue node = sources.sourceOf(source);
    if (const QJsonValue extras = extrasIn(node); !extras.isUndefined()) {
        const QJsonValue mesh = element("meshes", node[QLatin1String("mesh")]);
        const QJsonValue light =
            node[QLatin1String("extensions")][ksGltfNames::lights()][QLatin1String("light")];
        const QJsonValue lights = file.document()[QLatin1String("extensions")][ksGltfNames::lights()];
        entries.push_back(
            {&source, node[QLatin1String("name")].toString(),
             element("materials", mesh[QLatin1String("primitives")][0][QLatin1String("material")]),
             lights[QLatin1String("lights")][light.toInt(-1)],
             QJsonDocument::fromJson(extras.toString().toUtf8()).array()});
    }
    for (unsigned int i = 0; i < source.mNumChildren; ++i)
        collect(*source.mChildren[i], sources);
}

QJsonValue ksExtrasReader::element(const char *list, const QJsonValue &index) const
{
    return file.document()[QLatin1String(list)][index.toInt(-1)];
}

void ksExtrasReader::createContainers(Entry &entry)
{
    std::map<int, osg::RefPtr<osg::FieldContainerPtr>> created;
    for (const QJsonValue &element : entry.containers) {
        const QJsonArray container = element.toArray();
        const QByteArray type = container.at(1).toString().toLatin1();
        const osg::RefPtr<osg::FieldContainerPtr> made(
            osg::FieldContainerFactory::the()->createFieldContainer(type.constData()));
        const int id = container.at(0).toInt();
        if (!isSound(container) || made.get() == osg::NullFC || find(id) != osg::NullFC ||
            !created.emplace(id, made).second)
            break;
    }
    const int nodeId = entry.containers.at(0)[0].toInt();
    const bool isComplete = static_cast<int>(created.size()) == entry.containers.size();
    const auto own = created.find(nodeId);
    const osg::NodePtr node = own == created.end() ? osg::NodePtr() : osg::NodePtr::dcast(own->second.get());
    if (!isComplete || node == osg::NullFC) {
        report(entry, QStringLiteral("its extras are damaged, or those of another node"));
        entry.containers = {};
        return;
    }
    nodes.emplace(entry.source, node);
    nodeIds.insert(node.getFieldContainerId());
    containers.insert(created.begin(), created.end());
}

void ksExtrasReader::readMesh(const Entry &entry)
{
    const QJsonValue coreId = entry.containers.at(0)[2][QLatin1String("core")];
    const auto mesh = osg::ksMeshPtr::dcast(find(coreId));
    // A mesh that nodes share is the same in each.
    if (mesh != osg::NullFC && mesh->getPositions().empty() && entry.source->mNumMeshes > 0) {
        ksMeshImporter::read(*scene.mMeshes[entry.source->mMeshes[0]], mesh);
        meshesOfModel.insert(mesh.getFieldContainerId());
    }
}

void ksExtrasReader::readContainers(const Entry &entry)
{
    for (const QJsonValue &element : entry.containers) {
        const osg::FieldContainerPtr container = find(element[0]);
        const QJsonObject fields = element[2].toObject();
        for (auto field = fields.begin(); field != fields.end(); ++field)
            readField(entry, container, field.key(), field.value());
    }
}

void ksExtrasReader::readField(const Entry &entry, const osg::FieldContainerPtr &container,
                               const QString &name, const QJsonValue &value)
{
    using Reference = ksSavedFields::Reference;
    const osg::FieldDescription *description =
        container->getType().findFieldDescription(name.toLatin1().constData());
    bool isRead = description != nullptr && ksSavedFields::isSaved(container, *description);
    if (isRead) {
        osg::Field &field = *container->getField(description->getFieldId());
        const Reference reference = ksSavedFields::referenceOf(container, *description);
        switch (reference) {
        case Reference::None:
            isRead = readValue(container, field, value);
            break;
        case Reference::Id:
            isRead = ksFieldJson::readFieldText(field, std::to_string(find(value).getFieldContainerId()));
            break;
        case Reference::Attachments:
            isRead = readAttachments(container, value);
            break;
        case Reference::Core:
            osg::NodePtr::dcast(container)->setCore(osg::NodeCorePtr::dcast(find(value)));
            isRead = osg::NodePtr::dcast(container)->getCore() != osg::NullFC;
            break;
        case Reference::Children:
            isRead = readChildren(container, value);
            break;
        case Reference::Texture:
            osg::SimpleTexturedMaterialPtr::dcast(container)->setImage(osg::ImagePtr::dcast(find(value)));
            isRead = osg::SimpleTexturedMaterialPtr::dcast(container)->getImage() != osg::NullFC;
            break;
        case Reference::Parents:
            isRead = value.isArray();
            break;
        case Reference::Counted:
        case Reference::Uncounted:
            isRead = readReferences(container, field, value, reference == Reference::Counted);
            break;
        }
    }
    if (!isRead)
        report(entry, QStringLiteral("its extras are not sound in %1.%2")
                          .arg(QString::fromLatin1(container->getTypeName()), name));
}

bool ksExtrasReader::readValue(const osg::FieldContainerPtr &container, osg::Field &field,
                               const QJsonValue &value) const
{
    if (meshesOfModel.count(container.getFieldContainerId()) == 0)
        return ksFieldJson::read(field, value);
    // The extras know the model's texture coordinates more exactly, but only as long as they are the same.
    auto *coordinates = dynamic_cast<osg::MFVec2f *>(&field);
    if (coordinates == nullptr)
        return true;
    osg::MFVec2f exact;
    const bool isRead = ksFieldJson::read(exact, value);
    if (isRead && areClose(exact, *coordinates))
        coordinates->swap(exact);
    return isRead;
}

bool ksExtrasReader::readReferences(const osg::FieldContainerPtr &holder, osg::Field &field,
                                    const QJsonValue &value, bool areCounted)
{
    // Of materials nothing would ever release a circle.
    const auto isCircle = [&holder](const osg::FieldContainerPtr &held) {
        return osg::MaterialPtr::dcast(holder) != osg::NullFC && ksReferenceCycles::wouldClose(holder, held);
    };
    const QJsonArray ids = value.isArray() ? value.toArray() : QJsonArray{value};
    // What a container consists of is there.
    const bool mayBeNull = !(value.isArray() && areCounted);
    std::vector<osg::FieldContainerPtr> found;
    std::string text;
    for (const QJsonValue &id : ids)
        if (const osg::FieldContainerPtr container = find(id);
            (container != osg::NullFC && !isCircle(container)) || (mayBeNull && id.toInt(-1) == 0)) {
            text += (found.empty() ? "" : ", ") + std::to_string(container.getFieldContainerId());
            found.push_back(container);
        }
    if (!ksFieldJson::readFieldText(field, text))
        return false;
    if (areCounted)
        std::for_each(found.begin(), found.end(),
                      [](const osg::FieldContainerPtr &container) { osg::addRefCP(container); });
    return static_cast<int>(found.size()) == ids.size();
}

bool ksExtrasReader::readAttachments(const osg::FieldContainerPtr &container, const QJsonValue &value) const
{
    bool areFound = value.isArray();
    for (const QJsonValue &element : value.toArray()) {
        const auto attachment = osg::AttachmentPtr::dcast(find(element[0]));
        const auto binding = static_cast<osg::UInt16>(element[1].toInt());
        osg::AttachmentContainerPtr::dcast(container)->addAttachment(attachment, binding);
        areFound = areFound && attachment != osg::NullFC;
    }
    return areFound;
}

bool ksExtrasReader::readChildren(const osg::FieldContainerPtr &container, const QJsonValue &value) const
{
    const osg::NodePtr parent = osg::NodePtr::dcast(container);
    bool areFound = value.isArray();
    for (const QJsonValue id : value.toArray()) {
        const osg::NodePtr child = osg::NodePtr::dcast(find(id));
        const bool isFree = child != osg::NullFC && child->getParent() == osg::NullFC &&
                            !isAtOrAbove(child, parent) && nodeIds.count(child.getFieldContainerId()) == 0;
        if (isFree)
            parent->addChild(child);
        areFound = areFound && isFree;
    }
    return areFound;
}

void ksExtrasReader::flatten()
{
    bool isFlat = true;
    for (const auto &[id, container] : containers) {
        const osg::NodePtr node = osg::NodePtr::dcast(container.get());
        if (node == osg::NullFC || node->getParent() == osg::NullFC ||
            !isAtOrAbove(osg::NodePtr(), node->getParent()))
            continue;
        isFlat = false;
        const osg::NodePtr parent = node->getParent();
        parent->subChild(node);
    }
    if (!isFlat)
        warn(QStringLiteral("nodes outside of the scene are nested too deeply, and taken apart"));
}

void ksExtrasReader::readImages()
{
    const QJsonArray all = file.document().value(QLatin1String("images")).toArray();
    for (int i = 0; i < all.size(); ++i) {
        const auto image = osg::ImagePtr::dcast(find(extrasIn(all.at(i))));
        if (image == osg::NullFC)
            continue;
        imagesOfModel.insert(image.getFieldContainerId());
        // Other programs may have put it in a file of its own.
        QImage source = file.image(i);
        if (source.isNull())
            source = images.read(all.at(i)[QLatin1String("uri")].toString().toStdString());
        if (!source.isNull())
            ksImageImporter::setPixels(image, source);
    }
    for (const auto &[id, container] : containers)
        if (const auto image = osg::ImagePtr::dcast(container.get())) {
            if (!image->getPixel().empty() && image->getPixel().size() != image->getSize()) {
                warn(QStringLiteral("image '%1' has not the pixels that its size asks for")
                         .arg(QString::fromStdString(image->getName())));
                image->clearData();
            }
            ksTextureManager::the()->getImage(image, false);
        }
}

void ksExtrasReader::orderParents(const Entry &entry)
{
    for (const QJsonValue &element : entry.containers) {
        std::unordered_map<osg::UInt32, int> order;
        for (const QJsonValue &id : element[2][QLatin1String("parents")].toArray())
            order.emplace(find(id).getFieldContainerId(), static_cast<int>(order.size()));
        const auto sort = [&order](auto &parents) {
            std::stable_sort(parents.begin(), parents.end(), [&order](const auto &one, const auto &other) {
                return order[one.getFieldContainerId()] < order[other.getFieldContainerId()];
            });
        };
        if (order.empty())
            continue;
        if (const auto core = osg::NodeCorePtr::dcast(find(element[0])))
            sort(core->getParents());
        else if (const auto attachment = osg::AttachmentPtr::dcast(find(element[0])))
            sort(attachment->getParents());
    }
}

void ksExtrasReader::adaptToModel(const Entry &entry)
{
    const osg::NodePtr own = node(*entry.source);
    if (own == osg::NullFC)
        return;
    if (!entry.name.isEmpty() && entry.name != QString::fromStdString(ksContainers::ownNameOf(own)))
        osg::setName(own, entry.name.toStdString());
    adaptMaterial(entry, own);
    adaptLight(entry, own);

    const osg::TransformPtr transform = osg::TransformPtr::dcast(own->getCore());
    const osg::Matrix placed = ksTransformImporter::matrix(*entry.source);
    if (transform == osg::NullFC || !differ(asInFiles(transform->getMatrix()), placed))
        return;
    CPEdit(transform, osg::Transform::MatrixFieldMask);
    transform->setMatrix(placed);
}

void ksExtrasReader::adaptMaterial(const Entry &entry, const osg::NodePtr &node)
{
    const auto mesh = osg::ksMeshPtr::dcast(node->getCore());
    if (mesh == osg::NullFC || meshesOfModel.count(mesh.getFieldContainerId()) == 0 ||
        entry.source->mNumMeshes == 0)
        return;
    const unsigned int index = scene.mMeshes[entry.source->mMeshes[0]]->mMaterialIndex;
    auto material = osg::MaterialPtr::dcast(find(extrasIn(entry.material)));
    if (!looksLike(material, entry.material, *scene.mMaterials[index]))
        material = materials.material(index);
    if (material != mesh->getMaterial()) {
        CPEdit(mesh, osg::ksMesh::MaterialFieldMask);
        mesh->setMaterial(material);
    }
    const auto settings =
        osg::ksNodeSettingsPtr::dcast(node->findAttachment(osg::ksNodeSettings::getClassType()));
    if (settings != osg::NullFC && std::isfinite(settings->getOpacity()) &&
        !isClose(std::clamp(settings->getOpacity(), 0.0F, 1.0F), materials.opacity(index))) {
        CPEdit(settings, osg::ksNodeSettings::OpacityFieldMask);
        settings->setOpacity(materials.opacity(index));
    }
}

bool ksExtrasReader::looksLike(const osg::MaterialPtr &material, const QJsonValue &source,
                               const aiMaterial &read) const
{
    const auto made = ksMaterialExporter::create(material, 1, [this](const osg::ImagePtr &image) {
        const osg::UInt32 id = image.getFieldContainerId();
        return imagesOfModel.count(id) > 0 ? std::to_string(id) : std::string();
    });
    const QJsonObject transform = completedTransform(ksMaterialExporter::textureTransform(material));
    const auto isLaidOn = [&](aiTextureType type, const QJsonValue &texture) {
        aiString id;
        if (made->GetTexture(type, 0, &id) != aiReturn_SUCCESS)
            return true;
        const QJsonValue image =
            element("images", element("textures", texture[QLatin1String("index")])[QLatin1String("source")]);
        const QJsonValue there = texture[QLatin1String("extensions")][ksGltfNames::textureTransform()];
        return std::to_string(find(extrasIn(image)).getFieldContainerId()) == id.C_Str() &&
               isClose(completedTransform(there.toObject()), transform);
    };
    const QJsonValue surface = source[QLatin1String("pbrMetallicRoughness")];
    return ksMaterialExporter::lookTheSame(*made, read) &&
           isLaidOn(aiTextureType_BASE_COLOR, surface[QLatin1String("baseColorTexture")]) &&
           isLaidOn(aiTextureType_EMISSIVE, source[QLatin1String("emissiveTexture")]);
}

void ksExtrasReader::adaptLight(const Entry &entry, const osg::NodePtr &node) const
{
    const auto light = osg::UberLightPtr::dcast(node->getCore());
    if (light == osg::NullFC || !entry.light.isObject())
        return;
    const QJsonObject there = completedLight(entry.light.toObject());
    const QJsonObject made = completedLight(ksLightExporter::toGltf(light, {}));
    for (const char *member : {"type", "color", "intensity", "spot"})
        if (!isClose(there[QLatin1String(member)], made[QLatin1String(member)])) {
            ksLightImporter::apply(ksLightImporter::values(there), light);
            return;
        }
}

osg::FieldContainerPtr ksExtrasReader::find(const QJsonValue &id) const
{
    const auto found = containers.find(id.toInt());
    return found != containers.end() ? found->second.get() : osg::FieldContainerPtr();
}

void ksExtrasReader::report(const Entry &entry, const QString &text) const
{
    warn(QStringLiteral("node '") + entry.name + QStringLiteral("': ") + text);
}
