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

/// What a script wants to be the value of something.
struct ksScriptEdit
{
    /// The name of a field, or of a value that the object's class knows.
    QString name;

    QJSValue value;

    /// See ksScriptNode; undefined for none.
    QJSValue options;

    /// The text of the step; empty for the usual one.
    QString text;

    ksMerging merging = ksMerging::Never;
};

/// A container of the scene in a script.
///
/// It knows its container by id. Using it after the container has gone is an error in the script. Properties
/// that do not apply to the container's class are null, lists are empty.
class ksScriptContainer : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("id", "its number, which no other container ever has")
    Q_CLASSINFO("type", "its class")
    Q_CLASSINFO(
        "name",
        "its name, else that of the node that it belongs to, else an empty text; setting it is an edit")
    Q_CLASSINFO("fields", "the names of its fields, in the order of their ids")
    Q_CLASSINFO("parent", "of a node: the node above it")
    Q_CLASSINFO("children", "of a node: the nodes below it")
    Q_CLASSINFO("core", "of a node: its core")
    Q_CLASSINFO("attachments", "of a node: what is attached to it")
    Q_CLASSINFO("material", "of a mesh, and of a node whose core, or whose first child with one, is a mesh; "
                            "setting it is an edit")
    Q_CLASSINFO("light", "of a node: its core, or that of its first child with one")
    Q_CLASSINFO("image",
                "of a colour component, the first one of a material, and of anything that has a material")
    Q_CLASSINFO("attachment(type)", "the attachment of that class; null when there is none")
    Q_CLASSINFO("get(field)", "what a field holds")
    Q_CLASSINFO("set(field, value, [text])", "sets a field, as a step called `text`")
    Q_CLASSINFO(
        "drag(field, values, [text])",
        "sets a field, or the name, to each of an array of values, as a drag does: the edits merge into "
        "one step; materials, images and a first name cannot be dragged")
    Q_CLASSINFO("switchFlag(field, value, action)",
                "switches a flag and calls the function `action`, also on a redo; undoing it is left to the "
                "application, so that the flag stays")

    Q_PROPERTY(quint32 id READ id CONSTANT)
    Q_PROPERTY(QString type READ type)
    Q_PROPERTY(QString name READ name WRITE setName)
    Q_PROPERTY(QStringList fields READ fields)
    Q_PROPERTY(QJSValue parent READ parent)
    Q_PROPERTY(QJSValue children READ children)
    Q_PROPERTY(QJSValue core READ core)
    Q_PROPERTY(QJSValue attachments READ attachments)
    Q_PROPERTY(QJSValue material READ material WRITE setMaterial)
    Q_PROPERTY(QJSValue light READ light)
    Q_PROPERTY(QJSValue image READ image)

public:
    /// \a scriptHost must outlive the object.
    ksScriptContainer(ksScriptHost &scriptHost, osg::UInt32 id);

    /// The container. Throws ksEditorError when it has gone.
    osg::FieldContainerPtr container() const;

    /// What messages call it, see ksContainers::label().
    Q_INVOKABLE QString label() const;

    quint32 id() const { return containerId; }
    QString type() const;
    QString name() const;
    void setName(const QString &name);
    QStringList fields() const;
    QJSValue parent() const;
    QJSValue children() const;
    QJSValue core() const;
    QJSValue attachments() const;
    QJSValue material() const;
    void setMaterial(const QJSValue &material);
    QJSValue light() const;
    QJSValue image() const;

    Q_INVOKABLE QJSValue attachment(const QString &type) const;

    /// See ksScriptHost::value().
    Q_INVOKABLE QJSValue get(const QString &field) const;

    Q_INVOKABLE void set(const QString &field, const QJSValue &value, const QString &text = QString());
    Q_INVOKABLE virtual void drag(const QString &field, const QJSValue &values,
                                  const QJSValue &text = QJSValue());
    Q_INVOKABLE void switchFlag(const QString &field, bool value, const QJSValue &action);

    /// A new command for \a edit, whose parent is that of the host; null when nothing changes. Throws
    /// ksEditorError when there is no such value, or the new one does not fit.
    virtual QUndoCommand *makeEdit(const ksScriptEdit &edit) const;

    /// Whether the value is there already. Throws as makeEdit() does.
    virtual bool holds(const ksScriptEdit &edit) const;

    /// Whether edits of the value called \a name may merge, so that it can be dragged.
    virtual bool merges(const QString &name) const;

    /// Makes \a edit a step, unless the value is there already, or a part of the open batch.
    void perform(ksScriptEdit edit);

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
    static QString titleFrom(const QJSValue &text);

    /// Performs \a edit with each of \a values, an array, as a drag. Throws ksEditorError, before it does
    /// anything, when it is no array, a value does not fit, or such edits do not merge.
    void performDrag(ksScriptEdit edit, const QJSValue &values);

    /// Adds the commands that \a make gives for each of \a values, an array, as a drag, unless the last is
    /// what \a isPresent tells to be there already. Throws as performDrag() does.
    void addDrag(const QJSValue &values,
                 const std::function<QUndoCommand *(const QJSValue &value, ksMerging merging)> &make,
                 const std::function<bool(const QJSValue &value)> &isPresent);

    ksScriptHost &host;

private:
    QJSValue fieldValue(const char *name) const;

    const osg::UInt32 containerId;
};
