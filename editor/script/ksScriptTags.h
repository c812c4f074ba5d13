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
    Q_CLASSINFO("user", "the tags of the user, an array of texts")
    Q_CLASSINFO("layers", "the layers that the node is on")
    Q_CLASSINFO("add(tag)", "adds a tag; one that is there already is an error")
    Q_CLASSINFO("addLayer(tag)", "adds a layer, likewise")
    Q_CLASSINFO("remove(tag)", "removes a tag; that it is not there is an error")
    Q_CLASSINFO("removeLayer(tag)", "removes a layer, likewise")

    Q_PROPERTY(QStringList user READ user)
    Q_PROPERTY(QStringList layers READ layers)

public:
    /// The tags of \a scriptNode, to which the object belongs. \a scriptHost must outlive it.
    ksScriptTags(ksScriptHost &scriptHost, ksScriptContainer &scriptNode);

    QStringList user() const;
    QStringList layers() const;

    Q_INVOKABLE void add(const QString &tag);
    Q_INVOKABLE void addLayer(const QString &tag);

    Q_INVOKABLE void remove(const QString &tag);
    Q_INVOKABLE void removeLayer(const QString &tag);

private:
    osg::TagAttachmentPtr attachment() const;
    QStringList list(osg::UInt32 field) const;
    void edit(osg::UInt32 field, const QString &tag, bool adding);

    ksScriptHost &host;
    const ksScriptContainer &owner;
};
