// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QJsonObject>

#include <cstddef>

struct aiScene;

/// A glTF file in the making: what Assimp exports, and what is added to it. All that it consists of is in one
/// file.
class ksGltfDocument
{
public:
    /// Exports \a scene. Throws ksEditorError, with the reason, when that fails.
    explicit ksGltfDocument(const aiScene &scene);

    /// The document but for its buffer.
    QJsonObject json;

    /// Adds bytes to the buffer; the index of their buffer view.
    int addBytes(const QByteArray &bytes);

    /// Puts \a bytes in the place of those that the accessor \a index is about, as many as there are. Throws
    /// ksEditorError when there is no such place.
    void replaceBytes(int index, const void *bytes, std::size_t size);

    /// The document as text, with its buffer in base64.
    QByteArray toText();

    /// The document in the binary form of such files.
    QByteArray toBinary();

private:
    /// Throws ksEditorError when a buffer of \a size bytes is too large for a file.
    static void refuseSize(std::size_t size);

    /// Completes what the document says of itself.
    void finish(const QString &bufferUri);

    QByteArray buffer;
};
