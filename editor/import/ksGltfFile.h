// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QImage>
#include <QJsonObject>
#include <QString>

#include <map>

/// A glTF file as it stands there, text or binary, for what Assimp does not hand on.
class ksGltfFile
{
public:
    /// Reads the file \a path. When that cannot be done there is an empty document.
    explicit ksGltfFile(const QString &path);

    const QJsonObject &document() const { return json; }

    /// The image at the position \a index when it is within the file; null when it is not, or cannot be read.
    QImage image(int index);

private:
    QByteArray bytesOfView(int index);
    QByteArray buffer(int index);

    QString folder;
    QJsonObject json;

    /// What follows the document in a binary file.
    QByteArray binary;

    /// Those that somebody has asked for.
    std::map<int, QByteArray> buffers;
};
