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

private:
    osg::NodePtr findNode(const QString &name) const;

    ksScriptHost &host;
};
