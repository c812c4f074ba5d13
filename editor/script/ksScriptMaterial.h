// SPDX-License-Identifier: MIT
#pragma once

#include <editor/script/ksScriptContainer.h>

/// A material of colour components in a script: what a container has, and edits of the components and their
/// settings that the material takes notice of. Components are counted from 0; an index that is not one of
/// them is an error in the script. Colours are arrays of three numbers.
class ksScriptMaterial : public ksScriptContainer
{
    Q_OBJECT
    Q_CLASSINFO("components", "the colour components, containers")
    Q_CLASSINFO("settings", "the settings that they share, a container")
    Q_CLASSINFO("setComponent(index, field, value)", "sets a field of a component")
    Q_CLASSINFO("setComponentQuietly(index, field, value)",
                "the same without telling the material, which goes on to look from afar as before")
    Q_CLASSINFO("dragComponent(index, field, values)", "sets it to each of an array of values, in one step")
    Q_CLASSINFO("setAllComponents(field, value)", "sets a field of all components, in one step")
    Q_CLASSINFO("setSettings(field, value)", "sets a field of the settings")
    Q_CLASSINFO("setImage(index, image)",
                "replaces the image of a component by another, or by that in a file, whose path starts at "
                "the script's folder; null takes it away")

    Q_PROPERTY(QJSValue components READ components)
    Q_PROPERTY(QJSValue settings READ settings)

public:
    using ksScriptContainer::ksScriptContainer;

    QJSValue components() const { return get(QStringLiteral("colorComponentData")); }
    QJSValue settings() const { return get(QStringLiteral("componentSettings")); }

    Q_INVOKABLE void setComponent(int index, const QString &field, const QJSValue &value);
    Q_INVOKABLE void setComponentQuietly(int index, const QString &field, const QJSValue &value);
    Q_INVOKABLE void setSettings(const QString &field, const QJSValue &value);
    Q_INVOKABLE void dragComponent(int index, const QString &field, const QJSValue &values);
    Q_INVOKABLE void setAllComponents(const QString &field, const QJSValue &value);
    Q_INVOKABLE void setImage(int index, const QJSValue &image);

private:
    osg::FieldContainerPtr component(int index) const;
    void setPart(const osg::FieldContainerPtr &part, const QString &field, const QJSValue &value);
    QUndoCommand *make(const osg::FieldContainerPtr &part, const QString &field, const QJSValue &value,
                       ksMerging merging) const;
};

/// A physically based material in a script: what a container has, and the environment.
class ksScriptSurface : public ksScriptContainer
{
    Q_OBJECT
    Q_CLASSINFO("environment", "the material of what it mirrors, or "
                               "null; setting it to a material is an edit")

    Q_PROPERTY(QJSValue environment READ environment WRITE setEnvironment)

public:
    using ksScriptContainer::ksScriptContainer;

    QJSValue environment() const { return get(QStringLiteral("environment")); }
    void setEnvironment(const QJSValue &material);

    QUndoCommand *makeEdit(const ksScriptEdit &edit) const override;
    bool holds(const ksScriptEdit &edit) const override;
    bool merges(const QString &name) const override;
};
