// SPDX-License-Identifier: MIT
#include <editor/import/ksGltfFile.h>
#include <editor/scene/ksContainers.h>
#include <editor/scene/ksGltfNames.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QUrl>
#include <QtEndian>

#include <algorithm>
#include <set>

namespace {

QByteArray readFile(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

bool isData(const QString &uri)
{
    return uri.startsWith(QLatin1String("data:"));
}

QByteArray dataIn(const QString &uri)
{
    return QByteArray::fromBase64(uri.mid(uri.indexOf(QLatin1Char(',')) + 1).toLatin1());
}

constexpr int FileHeaderSize = 12;
constexpr int ChunkHeaderSize = 8;

/// Takes the chunk that \a rest starts with; of one that says it is longer, what there is.
QByteArray takeChunk(QByteArray &rest)
{
    if (rest.size() < ChunkHeaderSize)
        return {};
    const auto length = qFromLittleEndian<quint32>(rest.constData());
    const int size = static_cast<int>(std::min(length, static_cast<quint32>(rest.size() - ChunkHeaderSize)));
    QByteArray content = rest.mid(ChunkHeaderSize, size);
    rest.remove(0, ChunkHeaderSize + size);
    return content;
}

} // namespace

ksGltfFile::ksGltfFile(const QString &path)
    : folder(QFileInfo(path).absolutePath())
{
    QByteArray content = readFile(path);
    const bool isBinary = content.startsWith("glTF");
    if (!isBinary && path.endsWith(QLatin1String(".glb"), Qt::CaseInsensitive))
        return;
    if (isBinary) {
        content.remove(0, FileHeaderSize);
        const QByteArray text = takeChunk(content);
        binary = takeChunk(content);
        content = text;
    }
    QJsonParseError error;
    json = QJsonDocument::fromJson(content, &error).object();
    isTooDeep = error.error == QJsonParseError::DeepNesting;
    if (error.error == QJsonParseError::NoError || (isBinary && content.isEmpty()))
        return;
    const QByteArray before = content.left(error.offset);
    damage = isBinary ? QStringLiteral("byte %1").arg(FileHeaderSize + ChunkHeaderSize + error.offset)
                      : QStringLiteral("line %1, column %2")
                            .arg(before.count('\n') + 1)
                            .arg(before.size() - before.lastIndexOf('\n'));
    damage += QStringLiteral(": ") + error.errorString();
}

bool ksGltfFile::isNestedTooDeeply() const
{
    const QJsonValue nodes = json[QLatin1String("nodes")];
    std::set<int> level;
    const auto add = [](std::set<int> &target, const QJsonArray &indices) {
        for (const QJsonValue &index : indices)
            target.insert(index.toInt(-1));
    };
    for (const QJsonValue &scene : json[QLatin1String("scenes")].toArray())
        add(level, scene[QLatin1String("nodes")].toArray());
    for (int depth = 0; !level.empty() && depth < ksContainers::MostLevels; ++depth) {
        std::set<int> next;
        for (const int node : level)
            add(next, nodes[node][QLatin1String("children")].toArray());
        level.swap(next);
    }
    return isTooDeep || !level.empty();
}

QImage ksGltfFile::image(int index)
{
    const QJsonValue entry = json.value(QLatin1String("images"))[index];
    const QString uri = entry[QLatin1String("uri")].toString();
    return QImage::fromData(isData(uri) ? dataIn(uri)
                                        : bytesOfView(entry[QLatin1String("bufferView")].toInt(-1)));
}

QByteArray ksGltfFile::bytesOfView(int index)
{
    const QJsonValue view = json.value(QLatin1String("bufferViews"))[index];
    return buffer(view[QLatin1String("buffer")].toInt(-1))
        .mid(view[QLatin1String("byteOffset")].toInt(),
             std::max(view[QLatin1String("byteLength")].toInt(), 0));
}

QByteArray ksGltfFile::buffer(int index)
{
    const auto [known, isNew] = buffers.emplace(index, QByteArray());
    if (isNew) {
        const QString uri = json.value(QLatin1String("buffers"))[index][QLatin1String("uri")].toString();
        if (uri.isEmpty())
            known->second = binary;
        else
            known->second =
                isData(uri)
                    ? dataIn(uri)
                    : readFile(QDir(folder).absoluteFilePath(QUrl::fromPercentEncoding(uri.toUtf8())));
    }
    return known->second;
}
