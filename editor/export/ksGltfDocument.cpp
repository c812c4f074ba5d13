// SPDX-License-Identifier: MIT
#include <editor/export/ksGltfDocument.h>
#include <editor/ksEditorError.h>
#include <editor/scene/ksGltfNames.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QtEndian>
#include <assimp/Exporter.hpp>
#include <assimp/cexport.h>
#include <assimp/scene.h>

#include <cstring>
#include <set>

namespace {

constexpr int Alignment = 4;

void pad(QByteArray &bytes, char filling)
{
    bytes.append((Alignment - bytes.size() % Alignment) % Alignment, filling);
}

void appendNumber(QByteArray &bytes, quint32 number)
{
    char raw[sizeof(number)];
    qToLittleEndian(number, raw);
    bytes.append(raw, sizeof(raw));
}

void appendChunk(QByteArray &bytes, const char *type, const QByteArray &content)
{
    appendNumber(bytes, static_cast<quint32>(content.size()));
    bytes.append(type, Alignment);
    bytes.append(content);
}

/// The names of all extensions in \a value and below.
void collectExtensions(const QJsonValue &value, std::set<QString> &names)
{
    if (value.isArray()) {
        for (const QJsonValue element : value.toArray())
            collectExtensions(element, names);
        return;
    }
    const QJsonObject object = value.toObject();
    for (auto member = object.begin(); member != object.end(); ++member) {
        if (member.key() == QLatin1String("extras"))
            continue;
        if (member.key() == QLatin1String("extensions"))
            for (const QString &name : member.value().toObject().keys())
                names.insert(name);
        collectExtensions(member.value(), names);
    }
}

} // namespace

void ksGltfDocument::refuseSize(std::size_t size)
{
    // As text it takes a third more, and all of it is held in memory several times.
    constexpr std::size_t MostBytes = 512U << 20U;
    if (size > MostBytes)
        throw ksEditorError("the scene is larger than such a file may be");
}

ksGltfDocument::ksGltfDocument(const aiScene &scene)
{
    Assimp::Exporter exporter;
    const aiExportDataBlob *blob = exporter.ExportToBlob(&scene, "gltf2");
    if (blob == nullptr)
        throw ksEditorError(QString::fromUtf8(exporter.GetErrorString()).simplified());
    for (; blob != nullptr; blob = blob->next) {
        refuseSize(blob->size);
        const auto *data = static_cast<const char *>(blob->data);
        // The text has no name, the buffer that of its file.
        if (blob->name.length == 0)
            json =
                QJsonDocument::fromJson(QByteArray::fromRawData(data, static_cast<int>(blob->size))).object();
        else
            buffer = QByteArray(data, static_cast<int>(blob->size));
    }
    if (json.isEmpty())
        throw ksEditorError("the exported document is not sound");
}

int ksGltfDocument::addBytes(const QByteArray &bytes)
{
    refuseSize(static_cast<std::size_t>(buffer.size()) + static_cast<std::size_t>(bytes.size()));
    pad(buffer, '\0');
    QJsonArray views = json.value(QLatin1String("bufferViews")).toArray();
    views.append(QJsonObject{{QStringLiteral("buffer"), 0},
                             {QStringLiteral("byteOffset"), buffer.size()},
                             {QStringLiteral("byteLength"), bytes.size()}});
    json.insert(QStringLiteral("bufferViews"), views);
    buffer.append(bytes);
    return views.size() - 1;
}

void ksGltfDocument::replaceBytes(int index, const void *bytes, std::size_t size)
{
    // Taken away, so that nothing is copied.
    QJsonArray accessors = json.take(QLatin1String("accessors")).toArray();
    QJsonObject accessor = accessors.at(index).toObject();
    const QJsonValue view =
        json.value(QLatin1String("bufferViews"))[accessor[QLatin1String("bufferView")].toInt(-1)];
    const int offset =
        view[QLatin1String("byteOffset")].toInt() + accessor[QLatin1String("byteOffset")].toInt();
    if (!view.isObject() || offset > buffer.size() || static_cast<std::size_t>(buffer.size() - offset) < size)
        throw ksEditorError("the exported document is not sound");
    std::memcpy(buffer.data() + offset, bytes, size);
    // They are those of the bytes that were there.
    accessor.remove(QStringLiteral("min"));
    accessor.remove(QStringLiteral("max"));
    accessors.replace(index, accessor);
    json.insert(QStringLiteral("accessors"), accessors);
}

QByteArray ksGltfDocument::toText()
{
    finish(QStringLiteral("data:application/octet-stream;base64,") + QString::fromLatin1(buffer.toBase64()));
    return QJsonDocument(json).toJson(QJsonDocument::Indented);
}

QByteArray ksGltfDocument::toBinary()
{
    pad(buffer, '\0');
    finish({});
    QByteArray text = QJsonDocument(json).toJson(QJsonDocument::Compact);
    pad(text, ' ');
    QByteArray chunks;
    appendChunk(chunks, "JSON", text);
    if (!buffer.isEmpty())
        appendChunk(chunks, "BIN\0", buffer);
    constexpr int HeaderSize = 12;
    QByteArray file("glTF");
    appendNumber(file, 2);
    appendNumber(file, static_cast<quint32>(HeaderSize + chunks.size()));
    return file + chunks;
}

void ksGltfDocument::finish(const QString &bufferUri)
{
    json.insert(QStringLiteral("asset"),
                QJsonObject{{QStringLiteral("version"), QStringLiteral("2.0")},
                            {QStringLiteral("generator"), ksGltfNames::generator()}});
    json.remove(QStringLiteral("buffers"));
    if (!buffer.isEmpty()) {
        QJsonObject entry{{QStringLiteral("byteLength"), buffer.size()}};
        if (!bufferUri.isEmpty())
            entry.insert(QStringLiteral("uri"), bufferUri);
        json.insert(QStringLiteral("buffers"), QJsonArray{entry});
    }
    // The exporter lists extensions that it does not use.
    std::set<QString> extensions;
    collectExtensions(json, extensions);
    QJsonArray used;
    for (const QString &name : extensions)
        used.append(name);
    json.remove(QStringLiteral("extensionsUsed"));
    if (!used.isEmpty())
        json.insert(QStringLiteral("extensionsUsed"), used);
}
