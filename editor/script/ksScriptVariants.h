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

    Q_PROPERTY(int length READ length)
    Q_PROPERTY(QStringList names READ names)

public:
    /// The variants of \a scriptNode, to which the object belongs. \a scriptHost must outlive it.
    ksScriptVariants(ksScriptHost &scriptHost, ksScriptContainer &scriptNode);

    int length() const;
    QStringList names() const;

    /// The variant at \a index, a container.
    Q_INVOKABLE QJSValue at(int index) const;

    /// Adds a variant called \a name, with a transform like the node's own; at the end, or at \a index.
    Q_INVOKABLE void add(const QString &name);
    Q_INVOKABLE void add(const QString &name, int index);

    Q_INVOKABLE void remove(int index);
    Q_INVOKABLE void rename(int index, const QString &name);

    /// Sets which components of the variant apply, bits of osg::TransformVariantFlags: a number, or 64 bits
    /// as text.
    Q_INVOKABLE void options(int index, const QJSValue &flags);

    /// Moves the variant at \a from, or those at its elements if it is an array, to \a to and the places
    /// after it.
    Q_INVOKABLE void move(const QJSValue &from, int to);

private:
    osg::NodePtr node() const;
    osg::TransformVariantPtr variant(int index) const;

    ksScriptHost &host;
    const ksScriptContainer &owner;
};
