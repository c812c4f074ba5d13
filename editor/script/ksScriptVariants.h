// SPDX-License-Identifier: MIT
#pragma once

#include <OSGTransformVariant.h>
#include <OpenSG/OSGNode.h>

#include <QJSValue>
#include <QObject>
#include <QString>
#include <QStringList>

class ksScriptContainer;
class ksScriptHost;

/// The member "variants" of a node in a script: its transform variants, in order and counted from 0. Indexes
/// that are not of the list are errors in the script.
class ksScriptVariants : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("length", "how many there are")
    Q_CLASSINFO("names", "their names, in order")
    Q_CLASSINFO("at(index)", "one of them, a container")
    Q_CLASSINFO("add(name, [index])",
                "adds one with a transform like the node's own, at the end when there is no index")
    Q_CLASSINFO("remove(index)", "removes it")
    Q_CLASSINFO("rename(index, name)", "renames it")
    Q_CLASSINFO("options(index, flags)",
                "which components of it apply: bits of osg::TransformVariantFlags, as a number or as text")
    Q_CLASSINFO("move(from, to)",
                "moves the one at `from`, or those of an array, to `to` and the places after it")

    Q_PROPERTY(int length READ length)
    Q_PROPERTY(QStringList names READ names)

public:
    /// The variants of \a scriptNode, to which the object belongs. \a scriptHost must outlive it.
    ksScriptVariants(ksScriptHost &scriptHost, ksScriptContainer &scriptNode);

    int length() const;
    QStringList names() const;

    Q_INVOKABLE QJSValue at(int index) const;

    Q_INVOKABLE void add(const QString &name);
    Q_INVOKABLE void add(const QString &name, int index);

    Q_INVOKABLE void remove(int index);
    Q_INVOKABLE void rename(int index, const QString &name);
    Q_INVOKABLE void options(int index, const QJSValue &flags);
    Q_INVOKABLE void move(const QJSValue &from, int to);

private:
    osg::NodePtr node() const;
    osg::TransformVariantPtr variant(int index) const;

    /// The index that \a value is. Throws ksEditorError when it is no whole number or not of the list.
    int indexFrom(const QJSValue &value) const;

    ksScriptHost &host;
    const ksScriptContainer &owner;
};
