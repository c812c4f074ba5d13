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

    /// The node at the top.
    Q_PROPERTY(QJSValue root READ root CONSTANT)

public:
    /// \a scriptHost must outlive the object.
    explicit ksScriptScene(ksScriptHost &scriptHost);

    QJSValue root() const;

    /// The first node called \a name, parents before their children. An error in the script when there is
    /// none.
    Q_INVOKABLE QJSValue find(const QString &name) const;

    /// Whether there is a node called \a name.
    Q_INVOKABLE bool has(const QString &name) const;

    /// All nodes, parents before their children.
    Q_INVOKABLE QJSValue nodes() const;

    /// Adds a node called \a name, with a link set as its core, below the root, as one step. Returns the link
    /// set.
    Q_INVOKABLE QJSValue addLinkSet(const QString &name);

    /// The same with a constraint that aims the node \a target at \a sources, its up vector coming from \a
    /// upVectors; both are a node or an array of nodes. Returns the constraint.
    Q_INVOKABLE QJSValue addAim(const QString &name, const QJSValue &target, const QJSValue &sources,
                                const QJSValue &upVectors);

    /// Saves the scene in the file \a path, .gltf or .glb. A relative path starts where the editor was
    /// started. An error in the script when that fails; then a file that is there stays as it is.
    Q_INVOKABLE void save(const QString &path) const;

private:
    osg::NodePtr findNode(const QString &name) const;
    QJSValue addNode(const QString &name, const osg::NodeCorePtr &core);

    ksScriptHost &host;
};
