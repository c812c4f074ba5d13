// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGNode.h>

#include <QJSValue>
#include <QObject>
#include <QString>

class ksScriptHost;

/// The scene in a script: the global object "scene".
class ksScriptScene : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("root", "the node at the top")
    Q_CLASSINFO("find(name)",
                "the first node of that name, parents before their children; an error when there is none")
    Q_CLASSINFO("findAll(name)", "an array of all nodes of that name")
    Q_CLASSINFO("has(name)", "whether there is such a node")
    Q_CLASSINFO("at(path)", "the node at a path, such as a node's `path`; an error when there is none")
    Q_CLASSINFO("byId(id)", "the container with that number; an error when there is none")
    Q_CLASSINFO("nodes()", "an array of all nodes, parents before their children")
    Q_CLASSINFO("save(path)",
                "saves the scene in a file, `.gltf` or `.glb`, whose path starts at the script's "
                "folder; when that fails, a file that is there stays as it is")
    Q_CLASSINFO("addLinkSet(name)",
                "adds a node with a light link set as its core below the root; returns the link set")
    Q_CLASSINFO("addAim(name, target, sources, upVectors)",
                "the same with a constraint that aims the node `target` at `sources`, its up vector coming "
                "from `upVectors`; both are a node or an array of nodes")
    Q_CLASSINFO("recordTag(tag, added, [layer])", "records that a tag, or a layer, was added to nothing, or "
                                                  "removed from nothing, as a step that changes nothing")

    Q_PROPERTY(QJSValue root READ root CONSTANT)

public:
    /// \a scriptHost must outlive the object.
    explicit ksScriptScene(ksScriptHost &scriptHost);

    QJSValue root() const;

    Q_INVOKABLE QJSValue find(const QString &name) const;
    Q_INVOKABLE QJSValue findAll(const QString &name) const;
    Q_INVOKABLE bool has(const QString &name) const;

    /// See ksNodePaths.
    Q_INVOKABLE QJSValue at(const QString &path) const;
    Q_INVOKABLE QJSValue byId(int id) const;
    Q_INVOKABLE QJSValue nodes() const;

    Q_INVOKABLE QJSValue addLinkSet(const QString &name);
    Q_INVOKABLE QJSValue addAim(const QString &name, const QJSValue &target, const QJSValue &sources,
                                const QJSValue &upVectors);
    Q_INVOKABLE void recordTag(const QString &tag, bool added, bool layer = false);

    /// Saves the scene in the file \a path, .gltf or .glb, see ksScriptHost::pathFrom(). An error in the
    /// script when that fails; then a file that is there stays as it is.
    Q_INVOKABLE void save(const QString &path) const;

private:
    QJSValue addNode(const QString &name, const osg::NodeCorePtr &core);

    ksScriptHost &host;
};
