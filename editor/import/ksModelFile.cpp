// SPDX-License-Identifier: MIT
#include <editor/import/ksGltfFile.h>
#include <editor/import/ksImportLog.h>
#include <editor/import/ksModelFile.h>
#include <editor/import/ksModelRepair.h>
#include <editor/import/ksQuietStandardError.h>
#include <editor/ksEditorError.h>
#include <editor/scene/ksContainers.h>
#include <editor/scene/ksGltfNames.h>

#include <QFile>
#include <QFileInfo>
#include <QStringList>
#include <QXmlStreamReader>
#include <assimp/Importer.hpp>
#include <assimp/ProgressHandler.hpp>
#include <assimp/commonMetaData.h>
#include <assimp/config.h>
#include <assimp/importerdesc.h>
#include <assimp/postprocess.h>
#include <assimp/scene.h>

#include <algorithm>
#include <cstring>
#include <exception>
#include <new>

namespace {

void checkFile(const QString &path)
{
    const QFileInfo file(path);
    const char *reason = nullptr;
    if (!file.exists())
        reason = "no such file";
    else if (file.isDir())
        reason = "is a folder, not a model file";
    else if (!file.isReadable())
        reason = "may not be read";
    else if (file.size() == 0)
        reason = "is empty";
    if (reason != nullptr)
        throw ksEditorError(path.toStdString() + ": " + reason);
}

constexpr const char *TooDeep = "it is nested too deeply";

/// The first thing that is wrong with \a node or the nodes below it; null when they are sound.
const char *flawOfNodes(const aiScene &scene, const aiNode *node, int level = 1)
{
    if (node == nullptr)
        return "a node is missing";
    if (level > ksContainers::MostLevels)
        return TooDeep;
    const unsigned int *meshes = node->mMeshes;
    if (std::any_of(meshes, meshes + node->mNumMeshes,
                    [&scene](unsigned int mesh) { return mesh >= scene.mNumMeshes; }))
        return "a node has a mesh that does not exist";
    for (unsigned int i = 0; i < node->mNumChildren; ++i) {
        // A missing one can be done without.
        const aiNode *child = node->mChildren[i];
        const char *flaw = child != nullptr ? flawOfNodes(scene, child, level + 1) : nullptr;
        if (flaw != nullptr)
            return flaw;
    }
    return nullptr;
}

bool hasSoundCorners(const aiMesh &mesh, const aiFace &face)
{
    return face.mNumIndices > 0 && face.mIndices != nullptr &&
           std::all_of(face.mIndices, face.mIndices + face.mNumIndices,
                       [&mesh](unsigned int corner) { return corner < mesh.mNumVertices; });
}

const char *flawOfMesh(const aiScene &scene, const aiMesh &mesh)
{
    if (mesh.mNumVertices > 0 && mesh.mVertices == nullptr)
        return "a mesh has no positions";
    if (mesh.mMaterialIndex >= scene.mNumMaterials)
        return "a mesh has a material that does not exist";
    if (!std::all_of(mesh.mFaces, mesh.mFaces + mesh.mNumFaces,
                     [&mesh](const aiFace &face) { return hasSoundCorners(mesh, face); }))
        return "a mesh has a face with corners that do not exist";
    return nullptr;
}

bool hasSuffix(const QString &path, const QStringList &suffixes)
{
    return suffixes.contains(QFileInfo(path).suffix().toLower());
}

bool isXml(const QString &path)
{
    return hasSuffix(path, {QStringLiteral("dae"), QStringLiteral("x3d"), QStringLiteral("xml"),
                            QStringLiteral("irr"), QStringLiteral("irrmesh"), QStringLiteral("amf")});
}

/// Readers go down as deep as a file says, by calls within each other; nodes are nested in elements.
constexpr int MostNestings = 2 * ksContainers::MostLevels;

bool isXmlTooDeep(QFile &file)
{
    QXmlStreamReader reader(&file);
    int depth = 0;
    while (!reader.atEnd() && depth <= MostNestings) {
        const QXmlStreamReader::TokenType token = reader.readNext();
        depth += token == QXmlStreamReader::StartElement ? 1 : token == QXmlStreamReader::EndElement ? -1 : 0;
    }
    return depth > MostNestings;
}

bool areBracesTooDeep(QFile &file)
{
    int depth = 0;
    while (depth <= MostNestings && !file.atEnd())
        for (const char character : file.read(1 << 16)) {
            depth += character == '{' ? 1 : character == '}' ? -1 : 0;
            if (depth > MostNestings)
                break;
        }
    return depth > MostNestings;
}

/// Whether the file \a path, if it is of XML or has its nodes in braces, is nested too deeply to be read.
bool isTextTooDeep(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    if (isXml(path))
        return isXmlTooDeep(file);
    const bool isText = file.peek(16).startsWith("xof ") ? file.peek(12).endsWith("txt ")
                                                         : hasSuffix(path, {QStringLiteral("fbx")}) &&
                                                               !file.peek(8).startsWith("Kaydara ");
    return isText && areBracesTooDeep(file);
}

/// Where the text in the file \a path stops being XML, if that is what it ought to be; empty when it does
/// not.
QString damageOfXml(const QString &path)
{
    QFile file(path);
    if (!isXml(path) || !file.open(QIODevice::ReadOnly))
        return {};
    QXmlStreamReader reader(&file);
    while (!reader.atEnd())
        reader.readNext();
    if (!reader.hasError())
        return {};
    return QStringLiteral("line %1, column %2: %3")
        .arg(reader.lineNumber())
        .arg(reader.columnNumber())
        .arg(reader.errorString());
}

/// Whether the file says so: what other programs write is theirs, even if it was the editor's before.
bool isSavedByEditor(const aiScene &scene)
{
    aiString generator;
    return scene.mMetaData != nullptr && scene.mMetaData->Get(AI_METADATA_SOURCE_GENERATOR, generator) &&
           QString::fromUtf8(generator.C_Str()) == ksGltfNames::generator();
}

const char *flawOf(const aiScene &scene)
{
    if (const char *flaw = flawOfNodes(scene, scene.mRootNode))
        return flaw;
    for (unsigned int i = 0; i < scene.mNumMeshes; ++i)
        if (const char *flaw = flawOfMesh(scene, *scene.mMeshes[i]))
            return flaw;
    return nullptr;
}

} // namespace

class ksModelFile::Reader
{
public:
    Reader(const QString &filePath, const ksWarn &warn, const ksProgress &progress)
        : path(filePath)
    {
        if (progress) {
            handler = new Handler(progress, path);
            importer.SetProgressHandler(handler);
        }
        const ksImportLog log;
        QStringList repairs;
        load(repairs);
        // A file that is refused gives one line.
        log.report(warn);
        for (const QString &text : qAsConst(repairs))
            warn(text);
    }

    ksModelFormat format() const
    {
        const int index = importer.GetPropertyInteger("importerIndex", -1);
        const aiImporterDesc *description =
            index < 0 ? nullptr : importer.GetImporterInfo(static_cast<std::size_t>(index));
        if (description == nullptr)
            return ksModelFormat::Other;
        if (std::strstr(description->mFileExtensions, "gltf") != nullptr)
            return ksModelFormat::Gltf;
        if (std::strstr(description->mFileExtensions, "dae") != nullptr)
            return ksModelFormat::Collada;
        return ksModelFormat::Other;
    }

    const aiScene *scene = nullptr;
    ksGltfFile gltf;

private:
    /// Asks \a progress what the reader asks its handler. Readers need not heed the answer, so that it is
    /// kept.
    class Handler : public Assimp::ProgressHandler
    {
    public:
        Handler(const ksProgress &progress, const QString &path)
            : ask(progress)
            , file(path)
        {}

        bool Update(float done) override
        {
            isCancelled = isCancelled || !ask(std::clamp(static_cast<double>(done), 0.0, 1.0));
            return !isCancelled;
        }

        /// Throws ksCancelled when the answer was no.
        void refuseCancelled() const
        {
            if (isCancelled)
                throw ksCancelled(file + QStringLiteral(": cancelled"));
        }

    private:
        const ksProgress ask;
        const QString file;
        bool isCancelled = false;
    };

    void load(QStringList &repairs)
    {
        const ksQuietStandardError quiet;
        // The reader of these would go down as deep as they say.
        if (hasSuffix(path, {QStringLiteral("gltf"), QStringLiteral("glb")})) {
            gltf = ksGltfFile(path);
        }
        if (gltf.isNestedTooDeeply() || isTextTooDeep(path))
            throw ksEditorError(path + QStringLiteral(": is damaged: ") + QLatin1String(TooDeep));
        // Meshes that are made up where there are bones only.
        importer.SetPropertyBool(AI_CONFIG_IMPORT_NO_SKELETON_MESHES, true);
        // Later stages rely on sound input, so the file is checked as it comes before they run.
        scene = importer.ReadFile(path.toStdString(), 0);
        check();
        if (const char *flaw = flawOf(*scene))
            throw ksEditorError(path + QStringLiteral(": is damaged: ") + QLatin1String(flaw));
        if (format() != ksModelFormat::Gltf)
            gltf = {};
        else if (gltf.document().isEmpty())
            gltf = ksGltfFile(path);
        // What importers hand over is theirs, but it is not constant.
        ksModelRepair::repair(const_cast<aiScene &>(*scene),
                              [&repairs](const QString &text) { repairs += text; });
        // Without any face the sorting of these would refuse the file.
        const bool hasFaces = std::any_of(scene->mMeshes, scene->mMeshes + scene->mNumMeshes,
                                          [](const aiMesh *mesh) { return mesh->mNumFaces > 0; });
        if (!hasFaces || (format() == ksModelFormat::Gltf && isSavedByEditor(*scene)))
            return;
        // Where faces share vertices already, the last two steps would refuse the file.
        const bool isShared = (scene->mFlags & AI_SCENE_FLAGS_NON_VERBOSE_FORMAT) != 0;
        process(aiProcess_Triangulate | aiProcess_SortByPType |
                (isShared ? 0U : aiProcess_JoinIdenticalVertices | aiProcess_GenNormals));
    }

    void process(unsigned int steps)
    {
        scene = importer.ApplyPostProcessing(steps);
        check();
    }

    /// Whether that is what the last stage ended by, which gives no such reason.
    bool isOutOfMemory() const
    {
        try {
            if (importer.GetException() != nullptr)
                std::rethrow_exception(importer.GetException());
        } catch (const std::bad_alloc &) {
            return true;
        } catch (...) {
            return false;
        }
        return false;
    }

    /// What each stage is followed by.
    void check() const
    {
        if (handler != nullptr)
            handler->refuseCancelled();
        if (scene == nullptr)
            fail();
    }

    [[noreturn]] void fail() const
    {
        const QString reason = QString::fromUtf8(importer.GetErrorString()).simplified();
        const bool isUnknown = reason.startsWith(QLatin1String("No suitable reader found"));
        const std::string suffix = '.' + QFileInfo(path).suffix().toStdString();
        QString text;
        if (isOutOfMemory() || reason.contains(QLatin1String("bad_alloc")))
            text = QStringLiteral("takes more memory than it is given");
        else if (const QString damage = gltf.damageOfDocument() + damageOfXml(path); !damage.isEmpty())
            text = QStringLiteral("is damaged, ") + damage;
        else if (!isUnknown && isXml(path))
            text = QStringLiteral("is damaged, although it is sound XML: ") + reason;
        else if (!isUnknown)
            text = QStringLiteral("is damaged: ") +
                   (reason.isEmpty() ? QStringLiteral("its reader gives no reason") : reason);
        else if (suffix.size() > 1 && importer.IsExtensionSupported(suffix))
            text = QStringLiteral("is damaged: it does not begin like a file of its format, ") +
                   QString::fromStdString(suffix);
        else
            text = QStringLiteral("no reader knows this format");
        throw ksEditorError(path + QStringLiteral(": ") + text);
    }

    const QString path;
    Assimp::Importer importer;

    /// The importer's; null without one.
    Handler *handler = nullptr;
};

ksModelFile::ksModelFile(const QString &modelPath, const ksWarn &warn, const ksProgress &progress)
    : path(modelPath)
{
    checkFile(path);
    reader = std::make_unique<Reader>(path, warn, progress);
}

ksModelFile::~ksModelFile() = default;

const aiScene &ksModelFile::scene() const
{
    return *reader->scene;
}

ksModelFormat ksModelFile::format() const
{
    return reader->format();
}

ksGltfFile &ksModelFile::gltf() const
{
    return reader->gltf;
}

QString ksModelFile::folder() const
{
    return QFileInfo(path).absolutePath();
}
