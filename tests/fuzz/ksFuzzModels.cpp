// SPDX-License-Identifier: MIT
#include "ksFuzzTarget.h"
#include <editor/export/ksSceneExporter.h>
#include <editor/import/ksSceneImporter.h>
#include <editor/scene/ksGltfNames.h>
#include <editor/scene/ksReferenceCycles.h>
#include <tests/editor/export/ksEverythingEdited.h>
#include <tests/editor/export/ksSceneText.h>
#include <tests/editor/ksEditorFixture.h>

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <map>
#include <string>
#include <vector>

namespace {

const ksTestFolder &folder()
{
    static const ksTestFolder files;
    return files;
}

/// The scene in the file \a path; null when it is refused, which says why in a line that begins with the
/// path.
osg::NodeRefPtr open(const QString &path)
{
    try {
        return ksSceneImporter([](const QString &) {}).load(path);
    } catch (const ksEditorError &error) {
        const std::string reason = error.what();
        ksRequire(reason.rfind(path.toStdString() + ": ", 0) == 0 && reason.find('\n') == std::string::npos,
                  "a file is refused by " + reason);
        return osg::NullFC;
    }
}

void requireAspectsInStep(const osg::NodePtr &root)
{
    ksSyncAspects();
    const std::vector<std::string> texts = ksSceneText::of(root);
    const osg::AspectScope scope(1);
    ksRequireEqual(ksDifference(texts, ksSceneText::of(root)), "", "aspect 1 differs");
}

/// A file is refused, or gives a scene that is the same after it has been saved and opened. Nothing is left
/// of either.
void openAndSave(const QString &path)
{
    const std::ptrdiff_t living = ksLivingContainers();
    if (const osg::NodeRefPtr root = open(path); root != osg::NullFC) {
        requireAspectsInStep(root);
        const QString saved = folder().path("saved.gltf");
        ksSceneExporter::save(root, saved);
        const osg::NodeRefPtr again = open(saved);
        ksRequire(again != osg::NullFC, "what has been saved is refused");
        ksRequireEqual(ksDifference(ksSceneText::of(root), ksSceneText::of(again)), "",
                       "what has been saved differs");
        // As a history does when it lets go of a scene.
        ksReferenceCycles::release(root);
        ksReferenceCycles::release(again);
    }
    ksRequire(ksLivingContainers() == living, "containers are left");
}

/// The first line of an input is the suffix of a file, the rest is the file. Readers of other formats, such
/// as PLY, crash on files that are damaged.
void openModel(std::string_view text)
{
    static const std::map<std::string, int> suffixes = {
        {"gltf", 0}, {"glb", 0}, {"obj", 0}, {"stl", 0}, {"dae", 0}};
    ksFuzzInput input(text);
    const std::string suffix = ksFuzzChoice(suffixes, input.line()).first;
    openAndSave(folder().write("model." + suffix, input.rest()));
}

/// A saved scene with something of every kind.
QJsonObject savedScene()
{
    const osg::NodeRefPtr root(ksContainers::createNode("Root", osg::Transform3D::create()));
    const ksEverythingEdited edited(root.get());
    const QString path = folder().path("base.gltf");
    ksSceneExporter::save(root, path);
    QFile file(path);
    ksRequire(file.open(QIODevice::ReadOnly), "nothing has been saved");
    return QJsonDocument::fromJson(file.readAll()).object();
}

/// The first line of an input is the number of a node of a saved scene, the rest is its extras.
void openExtras(std::string_view text)
{
    static const QJsonObject base = savedScene();
    ksFuzzInput input(text);
    QJsonObject document = base;
    QJsonArray nodes = document.value(QLatin1String("nodes")).toArray();
    const int number =
        static_cast<int>(QString::fromStdString(input.line()).toUInt() % static_cast<unsigned>(nodes.size()));
    QJsonObject node = nodes.at(number).toObject();
    node.insert(QLatin1String("extras"),
                QJsonObject{{ksGltfNames::extras(), QString::fromStdString(input.rest())}});
    nodes.replace(number, node);
    document.insert(QLatin1String("nodes"), nodes);
    openAndSave(folder().write("saved-before.gltf", QJsonDocument(document).toJson().toStdString()));
}

const ksFuzzTarget models("models", &openModel);
const ksFuzzTarget extras("extras", &openExtras);

} // namespace
