// SPDX-License-Identifier: MIT
#include <editor/edits/ksConstraintEdits.h>
#include <editor/edits/ksTreeEdits.h>
#include <editor/export/ksSceneExporter.h>
#include <editor/ksEditorError.h>
#include <editor/scene/ksContainers.h>
#include <editor/scene/ksNodePaths.h>
#include <editor/script/ksScriptHost.h>
#include <editor/script/ksScriptRegistry.h>
#include <editor/script/ksScriptScene.h>
#include <editor/script/ksScriptValues.h>

#include <ksundo/tag/ksTagUndoCommands.h>

#include <OSGLightLinkSet.h>
#include <OpenSG/OSGFieldContainerFactory.h>

namespace {

const ksScriptRegistry::Global<ksScriptScene> global("scene");

} // namespace

ksScriptScene::ksScriptScene(ksScriptHost &scriptHost)
    : host(scriptHost)
{}

QJSValue ksScriptScene::root() const
{
    return host.object(host.history().root());
}

QJSValue ksScriptScene::find(const QString &name) const
{
    QJSValue found;
    host.guard([&] {
        const osg::NodePtr node = host.index().find(name.toStdString());
        if (node == osg::NullFC)
            throw ksEditorError(QStringLiteral("there is no node '") + name + QLatin1Char('\''));
        found = host.object(node);
    });
    return found;
}

QJSValue ksScriptScene::findAll(const QString &name) const
{
    QJSValue list = host.engine().newArray();
    quint32 count = 0;
    host.guard([&] {
        for (const osg::NodePtr &node : host.index().findAll(name.toStdString()))
            list.setProperty(count++, host.object(node));
    });
    return list;
}

bool ksScriptScene::has(const QString &name) const
{
    bool isThere = false;
    host.guard([&] { isThere = host.index().find(name.toStdString()) != osg::NullFC; });
    return isThere;
}

QJSValue ksScriptScene::at(const QString &path) const
{
    QJSValue found;
    host.guard([&] {
        const osg::NodePtr node = ksNodePaths::find(host.history().root(), path.toStdString());
        if (node == osg::NullFC)
            throw ksEditorError(QStringLiteral("there is no node at '") + path + QLatin1Char('\''));
        found = host.object(node);
    });
    return found;
}

QJSValue ksScriptScene::byId(int id) const
{
    QJSValue found;
    host.guard([&] {
        const osg::FieldContainerPtr container =
            id > 0 ? osg::FieldContainerFactory::the()->getContainer(static_cast<osg::UInt32>(id))
                   : osg::FieldContainerPtr();
        if (container == osg::NullFC)
            throw ksEditorError(QStringLiteral("there is no container %1").arg(id));
        found = host.object(container);
    });
    return found;
}

QJSValue ksScriptScene::nodes() const
{
    QJSValue list = host.engine().newArray();
    quint32 count = 0;
    host.guard([&] {
        ksContainers::visitNodes(host.history().root(), [&](const osg::NodePtr &node) {
            list.setProperty(count++, host.object(node));
        });
    });
    return list;
}

QJSValue ksScriptScene::addLinkSet(const QString &name)
{
    QJSValue added;
    host.guard([&] { added = addNode(name, osg::LightLinkSet::create()); });
    return added;
}

QJSValue ksScriptScene::addAim(const QString &name, const QJSValue &target, const QJSValue &sources,
                               const QJSValue &upVectors)
{
    QJSValue added;
    host.guard([&] {
        const auto aimed = ksScriptValues::containerFrom<osg::NodePtr>(target, "node");
        added = addNode(name, ksConstraintEdits::makeAim(aimed, ksScriptValues::nodesFrom(sources),
                                                         ksScriptValues::nodesFrom(upVectors)));
    });
    return added;
}

void ksScriptScene::save(const QString &path) const
{
    host.guard([this, &path] { ksSceneExporter::save(host.history().root(), host.pathFrom(path)); });
}

void ksScriptScene::recordTag(const QString &tag, bool added, bool layer)
{
    host.guard([&] {
        const auto type = layer ? ksTagUndoCommand::LAYER_TAG : ksTagUndoCommand::USER_TAG;
        const QString text = (added ? QStringLiteral("Add tag '") : QStringLiteral("Remove tag '")) + tag +
                             (added ? QStringLiteral("' to nothing") : QStringLiteral("' from nothing"));
        const std::string name = tag.toStdString();
        if (added)
            host.add(new ksAddEmptyTagUndoCommand(text, name, type));
        else
            host.add(new ksSubEmptyTagUndoCommand(text, name, type));
    });
}

QJSValue ksScriptScene::addNode(const QString &name, const osg::NodeCorePtr &core)
{
    const osg::NodePtr node = ksContainers::createNode(name.toStdString(), core);
    host.add(ksTreeEdits::makeAdd(host.history().root(), node));
    return host.object(core);
}
