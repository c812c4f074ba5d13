// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QImage>
#include <QJsonObject>
#include <QString>

#include <vector>

/// A glTF file as it stands there, text or binary, for what Assimp does not hand on.
class ksGltfFile
{
public:
    /// Reads the file \a path. When that cannot be done there is an empty document.
    explicit ksGltfFile(const QString &path);

    const QJsonObject &document() const { return json; }

    /// The image at the position \a index when it is within the file; null when it is not, or cannot be read.
    QImage image(int index) const;

private:
    QByteArray bytesOfView(int index) const;

    QJsonObject json;
    std::vector<QByteArray> buffers;
};
