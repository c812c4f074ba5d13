// SPDX-License-Identifier: MIT
#pragma once

#include <OSGTagAttachment.h>

#include <QObject>
#include <QString>
#include <QStringList>

class ksScriptContainer;
class ksScriptHost;

/// The member "tags" of a node in a script: those of the user, and the layers that the node is on.
class ksScriptTags : public QObject
{
    Q_OBJECT

    Q_PROPERTY(QStringList user READ user)
    Q_PROPERTY(QStringList layers READ layers)

public:
    /// The tags of \a scriptNode, to which the object belongs. \a scriptHost must outlive it.
    ksScriptTags(ksScriptHost &scriptHost, ksScriptContainer &scriptNode);

    QStringList user() const;
    QStringList layers() const;

    /// Adds a tag. The first one of a node attaches the node's tags, which is a step of its own. A tag that
    /// the node has already is an error in the script.
    Q_INVOKABLE void add(const QString &tag);
    Q_INVOKABLE void addLayer(const QString &tag);

    /// Removes a tag. One that the node does not have is an error in the script.
    Q_INVOKABLE void remove(const QString &tag);
    Q_INVOKABLE void removeLayer(const QString &tag);

private:
    osg::TagAttachmentPtr attachment() const;
    QStringList list(osg::UInt32 field) const;
    void edit(osg::UInt32 field, const QString &tag, bool adding);

    ksScriptHost &host;
    const ksScriptContainer &owner;
};
