// SPDX-License-Identifier: MIT
#pragma once

#include <editor/script/ksScriptContainer.h>

/// A material of colour components in a script: what a container has, and edits of the components and their
/// settings that the material takes notice of. Components are counted from 0; an index that is not one of
/// them is an error in the script. Colours are arrays of three numbers.
class ksScriptMaterial : public ksScriptContainer
{
    Q_OBJECT

    /// The components and the settings, containers.
    Q_PROPERTY(QJSValue components READ components)
    Q_PROPERTY(QJSValue settings READ settings)

public:
    using ksScriptContainer::ksScriptContainer;

    QJSValue components() const { return get(QStringLiteral("colorComponentData")); }
    QJSValue settings() const { return get(QStringLiteral("componentSettings")); }

    /// Sets the field called \a field of a component, or of the settings.
    Q_INVOKABLE void setComponent(int index, const QString &field, const QJSValue &value);
    Q_INVOKABLE void setSettings(const QString &field, const QJSValue &value);

    /// The same for each of \a values, an array: the edits merge into one.
    Q_INVOKABLE void dragComponent(int index, const QString &field, const QJSValue &values);

    /// Sets the field called \a field of all components to \a value, in one step.
    Q_INVOKABLE void setAllComponents(const QString &field, const QJSValue &value);

    /// Replaces the image of a component; null takes it away.
    Q_INVOKABLE void setImage(int index, const QJSValue &image);

private:
    osg::FieldContainerPtr component(int index) const;
    QUndoCommand *make(const osg::FieldContainerPtr &part, const QString &field, const QJSValue &value,
                       ksMerging merging) const;
};

/// A physically based material in a script: what a container has, and the environment.
class ksScriptSurface : public ksScriptContainer
{
    Q_OBJECT

    /// The material of what it mirrors, or null. Setting it to a material is an edit.
    Q_PROPERTY(QJSValue environment READ environment WRITE setEnvironment)

public:
    using ksScriptContainer::ksScriptContainer;

    QJSValue environment() const { return get(QStringLiteral("environment")); }
    void setEnvironment(const QJSValue &material);
};
