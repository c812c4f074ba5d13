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
    /// None: its document is empty.
    ksGltfFile() = default;

    /// Reads the file \a path. When that cannot be done there is an empty document.
    explicit ksGltfFile(const QString &path);

    const QJsonObject &document() const { return json; }

    /// Where the document stops being JSON, and why; empty when it does not, or there is none.
    const QString &damageOfDocument() const { return damage; }

    /// Whether the document, or its nodes, are nested deeper than any scene is.
    bool isNestedTooDeeply() const;

    /// The image at the position \a index when it is within the file; null when it is not, or cannot be read.
    QImage image(int index);

private:
    QByteArray bytesOfView(int index);
    QByteArray buffer(int index);

    QString folder;
    QJsonObject json;
    QString damage;
    bool isTooDeep = false;

    /// What follows the document in a binary file.
    QByteArray binary;

    /// Those that somebody has asked for.
    std::map<int, QByteArray> buffers;
};
