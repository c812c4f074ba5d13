// SPDX-License-Identifier: MIT
#include <editor/export/ksLightExporter.h>
#include <editor/export/ksMaterialExporter.h>
#include <editor/import/ksExtrasReader.h>
#include <editor/import/ksGltfFile.h>
#include <editor/import/ksLightImporter.h>
#include <editor/import/ksMeshImporter.h>
#include <editor/import/ksModelFile.h>
#include <editor/scene/ksFieldJson.h>
#include <editor/scene/ksGltfNames.h>
#include <editor/scene/ksNodeSettings.h>
#include <editor/scene/ksSavedFields.h>

#include <OpenSG/OSGFieldContainerFactory.h>
#include <OpenSG/OSGSimpleAttachments.h>
#include <OpenSG/OSGSimpleTexturedMaterial.h>
#include <OpenSG/OSGTransform.h>
#include <ksTextureManager.h>

#include <QJsonDocument>
#include <assimp/scene.h>

#include <algorithm>
#include <cmath>

namespace {

bool hasExtras(const aiNode &node)
{
    const QByteArray key = ksGltfNames::extras().toLatin1();
    if (node.mMetaData != nullptr && node.mMetaData->HasKey(key.constData()))
        return true;
    return std::any_of(node.mChildren, node.mChildren + node.mNumChildren,
                       [](const aiNode *child) { return hasExtras(*child); });
}

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

osg::Matrix matrixOf(const aiNode &node)
{
    const aiMatrix4x4 &m = node.mTransformation;
    return osg::Matrix(m.a1, m.a2, m.a3, m.a4, m.b1, m.b2, m.b3, m.b4, m.c1, m.c2, m.c3, m.c4, m.d1, m.d2,
                       m.d3, m.d4);
}

/// Whether a file holds the matrix.
bool isFinite(const osg::Matrix &matrix)
{
    return std::all_of(matrix.getValues(), matrix.getValues() + osg::Matrix::Size,
                       [](float value) { return std::isfinite(value); });
}

bool isAtOrAbove(const osg::NodePtr &upper, osg::NodePtr node)
{
    while (node != osg::NullFC && node != upper)
        node = node->getParent();
    return node != osg::NullFC;
}

/// Whether two numbers differ by no more than the rounding that other programs may have done.
bool isClose(double a, double b)
{
    constexpr double Rounding = 1e-4;
    return std::abs(a - b) <= Rounding * std::max(std::abs(a), std::abs(b));
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

/// Whether \a container has what its kind has to have.
bool isSound(const QJsonArray &container)
{
    return container.size() == 3 && container.at(0).toInt() > 0 && container.at(1).isString() &&
           container.at(2).isObject();
}

} // namespace

ksExtrasReader::ksExtrasReader(const ksModelFile &model, ksMaterialImporter &modelMaterials,
                               const ksWarn &reportTo)
    : warn(reportTo)
    , scene(model.scene())
    , materials(modelMaterials)
    , images(model, reportTo)
{
    const aiNode &root = *scene.mRootNode;
    if (model.format() != ksModelFormat::Gltf || !hasExtras(root))
        return;
    ksGltfFile file(model.filePath());
    const QJsonObject &document = file.document();
    const QJsonValue shown = document[QLatin1String("scenes")][document[QLatin1String("scene")].toInt()];
    const QJsonArray roots = shown[QLatin1String("nodes")].toArray();
    // Several roots have got a common one.
    if (roots.size() == 1)
        collect(root, document, roots.at(0));
    else
        for (int i = 0; i < roots.size() && roots.size() == static_cast<int>(root.mNumChildren); ++i)
            collect(*root.mChildren[i], document, roots.at(i));

    for (Entry &entry : entries)
        createContainers(entry);
    for (const Entry &entry : entries)
        readMesh(entry);
    for (const Entry &entry : entries)
        readContainers(entry);
    readImages(file);
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

void ksExtrasReader::collect(const aiNode &source, const QJsonObject &document, const QJsonValue &index)
{
    const QJsonValue node = document[QLatin1String("nodes")][index.toInt(-1)];
    if (const QJsonValue extras = extrasIn(node); !extras.isUndefined()) {
        const QJsonValue surface = document[QLatin1String("meshes")][node[QLatin1String("mesh")].toInt(-1)]
                                           [QLatin1String("primitives")][0][QLatin1String("material")];
        const QString lights = QStringLiteral("KHR_lights_punctual");
        const QJsonValue light = node[QLatin1String("extensions")][lights][QLatin1String("light")];
        entries.push_back(
            {&source, node[QLatin1String("name")].toString(),
             extrasIn(document[QLatin1String("materials")][surface.toInt(-1)]),
             document[QLatin1String("extensions")][lights][QLatin1String("lights")][light.toInt(-1)],
             QJsonDocument::fromJson(extras.toString().toUtf8()).array()});
    }
    const QJsonArray children = node[QLatin1String("children")].toArray();
    for (int i = 0; i < children.size() && children.size() == static_cast<int>(source.mNumChildren); ++i)
        collect(*source.mChildren[i], document, children.at(i));
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
            isRead = readReferences(field, value, reference == Reference::Counted);
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

bool ksExtrasReader::readReferences(osg::Field &field, const QJsonValue &value, bool areCounted)
{
    const QJsonArray ids = value.isArray() ? value.toArray() : QJsonArray{value};
    std::vector<osg::FieldContainerPtr> found;
    std::string text;
    for (const QJsonValue &id : ids)
        if (const osg::FieldContainerPtr container = find(id);
            container != osg::NullFC || id.toInt(-1) == 0) {
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
    for (const QJsonValue &id : value.toArray()) {
        const osg::NodePtr child = osg::NodePtr::dcast(find(id));
        const bool isFree = child != osg::NullFC && child->getParent() == osg::NullFC &&
                            !isAtOrAbove(child, parent) && nodeIds.count(child.getFieldContainerId()) == 0;
        if (isFree)
            parent->addChild(child);
        areFound = areFound && isFree;
    }
    return areFound;
}

void ksExtrasReader::readImages(ksGltfFile &file)
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
    const char *name = osg::getName(own);
    if (!entry.name.isEmpty() && entry.name != QString::fromUtf8(name))
        osg::setName(own, entry.name.toStdString());
    adaptMaterial(entry, own);
    adaptLight(entry, own);

    const osg::TransformPtr transform = osg::TransformPtr::dcast(own->getCore());
    const osg::Matrix placed = matrixOf(*entry.source);
    if (transform == osg::NullFC ||
        !differ(isFinite(transform->getMatrix()) ? transform->getMatrix() : osg::Matrix(), placed))
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
    auto material = osg::MaterialPtr::dcast(find(entry.materialId));
    const auto made = ksMaterialExporter::create(material, 1, [this](const osg::ImagePtr &image) {
        return std::string(imagesOfModel.count(image.getFieldContainerId()) > 0 ? "there" : "");
    });
    if (!ksMaterialExporter::lookTheSame(*made, *scene.mMaterials[index]))
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

void ksExtrasReader::adaptLight(const Entry &entry, const osg::NodePtr &node) const
{
    const auto light = osg::UberLightPtr::dcast(node->getCore());
    if (light == osg::NullFC || !entry.light.isObject())
        return;
    const QJsonObject there = entry.light.toObject();
    const QJsonObject made = ksLightExporter::toGltf(light, {});
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
