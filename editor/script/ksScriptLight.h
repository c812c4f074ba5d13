// SPDX-License-Identifier: MIT
#pragma once

#include <editor/edits/ksLightEdits.h>
#include <editor/script/ksScriptContainer.h>

/// A light of the scene, which is the core of a node, in a script: what a container has, and the light's
/// values. Setting one is an edit. Colours are arrays of three numbers, angles are in degrees.
class ksScriptLight : public ksScriptContainer
{
    Q_OBJECT
    Q_CLASSINFO("diffuse", "the colour that matt surfaces reflect")
    Q_CLASSINFO("glossy", "the colour that shiny surfaces reflect")
    Q_CLASSINFO("intensity", "what both are multiplied by, at least 0")
    Q_CLASSINFO("penumbraAngle", "of a spot light: what is added to its cone, over which it fades out")
    Q_CLASSINFO("coneAngle",
                "the opening of the cone: 0 to 180 of a spot light, 360 where it shines all around")
    Q_CLASSINFO("attenuation",
                "0 for none, 1 for a linear, 2 for a quadratic one; setting it leaves the intensity")
    Q_CLASSINFO("visibilityReference", "the node that must be visible for the light to shine, or null")
    Q_CLASSINFO("drag(property, values, [text])", "sets one of these but the last to each of an array of "
                                                  "values, in one step; what is none of them is a field")

    Q_PROPERTY(QJSValue diffuse READ diffuse WRITE setDiffuse)
    Q_PROPERTY(QJSValue glossy READ glossy WRITE setGlossy)
    Q_PROPERTY(QJSValue intensity READ intensity WRITE setIntensity)
    Q_PROPERTY(QJSValue penumbraAngle READ penumbraAngle WRITE setPenumbraAngle)
    Q_PROPERTY(QJSValue coneAngle READ coneAngle WRITE setConeAngle)
    Q_PROPERTY(QJSValue attenuation READ attenuation WRITE setAttenuation)
    Q_PROPERTY(QJSValue visibilityReference READ visibilityReference WRITE setVisibilityReference)

public:
    using ksScriptContainer::ksScriptContainer;

    QJSValue diffuse() const { return value("diffuse"); }
    void setDiffuse(const QJSValue &value) { setValue("diffuse", value); }
    QJSValue glossy() const { return value("glossy"); }
    void setGlossy(const QJSValue &value) { setValue("glossy", value); }
    QJSValue intensity() const { return value("intensity"); }
    void setIntensity(const QJSValue &value) { setValue("intensity", value); }
    QJSValue penumbraAngle() const { return value("penumbraAngle"); }
    void setPenumbraAngle(const QJSValue &value) { setValue("penumbraAngle", value); }
    QJSValue coneAngle() const { return value("coneAngle"); }
    void setConeAngle(const QJSValue &value) { setValue("coneAngle", value); }
    QJSValue attenuation() const { return value("attenuation"); }
    void setAttenuation(const QJSValue &value) { setValue("attenuation", value); }
    QJSValue visibilityReference() const { return value("visibilityReference"); }
    void setVisibilityReference(const QJSValue &node);

    Q_INVOKABLE void drag(const QString &property, const QJSValue &values,
                          const QJSValue &text = QJSValue()) override;

    QUndoCommand *makeEdit(const ksScriptEdit &edit) const override;
    bool holds(const ksScriptEdit &edit) const override;
    bool merges(const QString &name) const override;

private:
    QJSValue value(const char *name) const;
    void setValue(const char *name, const QJSValue &value);
    osg::NodePtr node() const;
    ksLightValue valueFrom(const ksLightProperty &property, const QJSValue &value) const;
};
