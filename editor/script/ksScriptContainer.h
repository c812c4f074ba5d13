// SPDX-License-Identifier: MIT
#pragma once

#include <editor/edits/ksMerging.h>
#include <editor/script/ksScriptHost.h>

#include <OpenSG/OSGFieldContainerPtr.h>

#include <QJSValue>
#include <QObject>
#include <QString>
#include <QStringList>

#include <functional>

/// A container of the scene in a script.
///
/// It knows its container by id. Using it after the container has gone is an error in the script. Properties
/// that do not apply to the container's class are null, lists are empty.
class ksScriptContainer : public QObject
{
    Q_OBJECT

    /// The container's id and class.
    Q_PROPERTY(quint32 id READ id CONSTANT)
    Q_PROPERTY(QString type READ type)

    /// The container's name, else that of the node that it belongs to, else an empty text.
    Q_PROPERTY(QString name READ name)

    /// The names of the fields, in the order of their ids.
    Q_PROPERTY(QStringList fields READ fields)

    /// Of a node: the node above it and the nodes below it, its core, what is attached to it.
    Q_PROPERTY(QJSValue parent READ parent)
    Q_PROPERTY(QJSValue children READ children)
    Q_PROPERTY(QJSValue core READ core)
    Q_PROPERTY(QJSValue attachments READ attachments)

    /// The material of a mesh, and of a node whose core, or whose first child with one, is a mesh.
    Q_PROPERTY(QJSValue material READ material)

    /// The light of a node: its core, or that of its first child with one.
    Q_PROPERTY(QJSValue light READ light)

    /// The image of a colour component, the first one of a material, and of anything that has a material.
    Q_PROPERTY(QJSValue image READ image)

public:
    /// \a scriptHost must outlive the object.
    ksScriptContainer(ksScriptHost &scriptHost, osg::UInt32 id);

    /// The container. Throws ksEditorError when it has gone.
    osg::FieldContainerPtr container() const;

    quint32 id() const { return containerId; }
    QString type() const;
    QString name() const;
    QStringList fields() const;
    QJSValue parent() const;
    QJSValue children() const;
    QJSValue core() const;
    QJSValue attachments() const;
    QJSValue material() const;
    QJSValue light() const;
    QJSValue image() const;

    /// The attachment of the class \a type; null when there is none.
    Q_INVOKABLE QJSValue attachment(const QString &type) const;

    /// What the field called \a field holds, see ksScriptHost::value().
    Q_INVOKABLE QJSValue get(const QString &field) const;

    /// Sets the field called \a field to \a value as one step that is called \a text.
    Q_INVOKABLE void set(const QString &field, const QJSValue &value, const QString &text = QString());

    /// Sets the field called \a field to each of \a values, an array, as a drag does: the edits merge into
    /// one, which is called \a text.
    Q_INVOKABLE virtual void drag(const QString &field, const QJSValue &values,
                                  const QJSValue &text = QJSValue());

protected:
    /// What \a read answers, or undefined with an error in the script when it throws ksEditorError.
    template <class Read>
    auto guarded(const Read &read) const
    {
        decltype(read(container())) result{};
        host.guard([this, &read, &result] { result = read(container()); });
        return result;
    }

    /// What a script gives as the text of a step; empty when it gives none.
    static QString titleFrom(const QJSValue &text)
    {
        return text.isUndefined() ? QString() : text.toString();
    }

    /// Adds the commands that \a make gives for each of \a values, an array, as a drag. Throws ksEditorError
    /// when it is no array.
    void addDrag(const QJSValue &values,
                 const std::function<QUndoCommand *(const QJSValue &value, ksMerging merging)> &make);

    ksScriptHost &host;

private:
    QJSValue fieldValue(const char *name) const;
    QUndoCommand *make(const QString &field, const QJSValue &value, const QString &text,
                       ksMerging merging) const;

    const osg::UInt32 containerId;
};
