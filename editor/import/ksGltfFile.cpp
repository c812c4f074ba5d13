// SPDX-License-Identifier: MIT
#include <editor/import/ksGltfFile.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QUrl>
#include <QtEndian>

#include <algorithm>

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

/// Takes the chunk that \a rest starts with; of one that says it is longer, what there is.
QByteArray takeChunk(QByteArray &rest)
{
    constexpr int HeaderSize = 8;
    if (rest.size() < HeaderSize)
        return {};
    const auto length = qFromLittleEndian<quint32>(rest.constData());
    const int size = static_cast<int>(std::min(length, static_cast<quint32>(rest.size() - HeaderSize)));
    const QByteArray content = rest.mid(HeaderSize, size);
    rest.remove(0, HeaderSize + size);
    return content;
}

} // namespace

ksGltfFile::ksGltfFile(const QString &path)
    : folder(QFileInfo(path).absolutePath())
{
    QByteArray content = readFile(path);
    if (content.startsWith("glTF")) {
        constexpr int HeaderSize = 12;
        content.remove(0, HeaderSize);
        const QByteArray text = takeChunk(content);
        binary = takeChunk(content);
        content = text;
    }
    json = QJsonDocument::fromJson(content).object();
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
