// SPDX-License-Identifier: MIT
#include <editor/edits/ksAddChildUndoCommand.h>
#include <editor/edits/ksConstraintEdits.h>
#include <editor/export/ksSceneExporter.h>
#include <editor/ksEditorError.h>
#include <editor/scene/ksContainers.h>
#include <editor/script/ksScriptHost.h>
#include <editor/script/ksScriptRegistry.h>
#include <editor/script/ksScriptScene.h>
#include <editor/script/ksScriptValues.h>

#include <OSGLightLinkSet.h>
#include <OpenSG/OSGSimpleAttachments.h>

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

osg::NodePtr ksScriptScene::findNode(const QString &name) const
{
    osg::NodePtr found;
    ksContainers::visitNodes(host.history().root(), [&name, &found](const osg::NodePtr &node) {
        const char *nodeName = osg::getName(node);
        if (found == osg::NullFC && nodeName != nullptr && name == QString::fromUtf8(nodeName))
            found = node;
    });
    return found;
}

QJSValue ksScriptScene::find(const QString &name) const
{
    const osg::NodePtr node = findNode(name);
    host.guard([&node, &name] {
        if (node == osg::NullFC)
            throw ksEditorError(QStringLiteral("there is no node '") + name + QLatin1Char('\''));
    });
    return host.object(node);
}

bool ksScriptScene::has(const QString &name) const
{
    return findNode(name) != osg::NullFC;
}

QJSValue ksScriptScene::nodes() const
{
    QJSValue list = host.engine().newArray();
    quint32 count = 0;
    ksContainers::visitNodes(host.history().root(), [this, &list, &count](const osg::NodePtr &node) {
        list.setProperty(count++, host.object(node));
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
        added = addNode(name, ksConstraintEdits::makeAim(
                                  ksScriptValues::containerFrom<osg::NodePtr>(target, "node"),
                                  ksScriptValues::nodesFrom(sources), ksScriptValues::nodesFrom(upVectors)));
    });
    return added;
}

void ksScriptScene::save(const QString &path) const
{
    host.guard([this, &path] { ksSceneExporter::save(host.history().root(), path); });
}

QJSValue ksScriptScene::addNode(const QString &name, const osg::NodeCorePtr &core)
{
    const osg::NodePtr node = ksContainers::createNode(name.toStdString(), core);
    host.history().add(new ksAddChildUndoCommand(host.history().root(), node));
    return host.object(core);
}
