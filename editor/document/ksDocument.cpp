// SPDX-License-Identifier: MIT
#include <editor/document/ksDocument.h>
#include <editor/document/ksDocumentHistory.h>
#include <editor/export/ksSceneExporter.h>
#include <editor/import/ksSceneImporter.h>
#include <editor/scene/ksContainers.h>
#include <editor/session/ksMemory.h>
#include <editor/session/ksOpenScene.h>

#include <OSGTransform3D.h>

#include <QFileInfo>
#include <QUndoCommand>

ksDocument::ksDocument(QObject *parent)
    : QObject(parent)
{
    // An empty history is clean, whatever was done before.
    connect(ksUndoStack::get(0), &ksUndoStack::cleared, this,
            [this] { hasForgottenEdits = hasForgottenEdits || wasModified; });
    connect(ksUndoStack::get(0), &ksUndoStack::undoneForgotten, this, &ksDocument::stateChanged);
    clear();
}

ksDocument::~ksDocument()
{
    editHistory.reset();
    openScene.reset();
    ksTakeSceneChanges();
}

bool ksDocument::open(const QString &path, const ksProgress &progress)
{
    QStringList warnings;
    const ksSceneImporter importer([&warnings](const QString &text) { warnings += text; },
                                   [&warnings](const QString &what) {
                                       if (!what.isEmpty())
                                           warnings += tr("Left out: %1").arg(what);
                                   });
    osg::NodeRefPtr scene;
    try {
        const ksMemoryGuard guard(ksMemory::limit(0, QFileInfo(path).size()));
        scene = importer.load(path, progress);
    } catch (const ksCancelled &) {
        ksTakeSceneChanges();
        return false;
    } catch (...) {
        ksTakeSceneChanges();
        throw;
    }
    importWarnings = warnings;
    show(scene, path);
    return true;
}

void ksDocument::clear()
{
    importWarnings.clear();
    show(osg::NodeRefPtr(ksContainers::createNode("Scene", osg::Transform3D::create())), QString());
}

void ksDocument::save(const QString &path)
{
    ksSceneExporter::save(root(), path);
    file = path;
    hasForgottenEdits = false;
    stack().setClean();
    wasModified = false;
    Q_EMIT stateChanged();
}

QString ksDocument::title() const
{
    return file.isEmpty() ? tr("Untitled") : QFileInfo(file).fileName();
}

bool ksDocument::isModified() const
{
    return hasForgottenEdits || !stack().isClean();
}

osg::NodePtr ksDocument::root() const
{
    return editHistory->root();
}

ksUndoStack &ksDocument::stack() const
{
    return *editHistory->stack();
}

void ksDocument::add(QUndoCommand *command)
{
    if (command != nullptr)
        editHistory->add(command);
}

void ksDocument::finishStep(bool isReturn)
{
    if (!editHistory->isInMacro()) {
        if (const ksSceneChanges changes = ksTakeSceneChanges(); !changes.isEmpty())
            Q_EMIT changed(changes);
        // A history that is being cleared tells of its index first.
        wasModified = isModified() || (wasModified && stack().isEmpty());
        Q_EMIT stateChanged();
    }
    Q_EMIT stepped(isReturn);
}

void ksDocument::show(osg::NodeRefPtr scene, const QString &path)
{
    Q_EMIT aboutToBeReplaced();
    editHistory.reset();
    openScene = nullptr;
    openScene = std::make_unique<ksOpenScene>(scene.get());
    editHistory = std::make_unique<ksDocumentHistory>(scene.get());
    scene = osg::NodeRefPtr();
    ksTakeSceneChanges();
    stack().setClean();
    hasForgottenEdits = false;
    wasModified = false;
    file = path;
    selected.begin(root());
    connect(editHistory.get(), &ksDocumentHistory::stepped, this, &ksDocument::finishStep);
    Q_EMIT replaced();
    Q_EMIT stateChanged();
}
