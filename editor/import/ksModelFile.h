// SPDX-License-Identifier: MIT
#pragma once

#include <editor/import/ksProgress.h>
#include <editor/import/ksWarn.h>

#include <QString>

#include <memory>

struct aiScene;
class ksGltfFile;

/// The formats whose readers hand over their content by conventions of their own.
enum class ksModelFormat
{
    Gltf,
    Collada,
    Other
};

/// Model files give angles in radians, scenes in degrees.
constexpr float ksDegreesPerRadian = 57.29577951F;

/// A model file, read and checked.
class ksModelFile
{
public:
    /// Reads the model in the file \a filePath: meshes made of triangles, lines or points, each mesh of one
    /// kind, with normals unless the reader gives meshes that cannot have them. What the editor has saved
    /// stays as it is. What the reader complains about, and what has been repaired, see ksModelRepair, is
    /// reported to \a warn. Throws ksEditorError when there is no such file, no reader knows its format, the
    /// file is damaged, or what it holds is not a scene: no root, nodes nested too deeply, faces without
    /// corners or with corners that do not exist. Throws ksCancelled when \a progress, which may be empty,
    /// says no.
    explicit ksModelFile(
        const QString &filePath, const ksWarn &warn = [](const QString &) {},
        const ksProgress &progress = {});
    ~ksModelFile();
    ksModelFile(const ksModelFile &) = delete;
    ksModelFile &operator=(const ksModelFile &) = delete;

    /// What the file holds. It belongs to the model file.
    const aiScene &scene() const;

    ksModelFormat format() const;

    /// The file as it stands there; without a document unless it is glTF.
    ksGltfFile &gltf() const;

    /// The path that it has been read from.
    const QString &filePath() const { return path; }

    /// The folder that the file is in; relative paths in the file start there.
    QString folder() const;

private:
    class Reader;

    QString path;
    std::unique_ptr<Reader> reader;
};
