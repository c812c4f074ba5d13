// SPDX-License-Identifier: MIT
#pragma once

#include <editor/script/ksScriptContainer.h>

#include <OpenSG/OSGNode.h>

struct ksTransformProperty;
struct ksTransformTarget;

/// A node of the scene in a script: what a container has, the edits of transforms and of the tree, and the
/// members that other classes register for nodes, such as ksScriptVariants and ksScriptTags.
///
/// Values are arrays of three numbers, rotations in degrees. The last argument of an edit is an object of
/// options, all of which may be left out: "index", which transform is meant, -1 the node's own, from 0 on
/// those of its variants; and "world", whether the value is in world space. An edit of a transform that does
/// not exist, values and options that do not fit are errors in the script.
class ksScriptNode : public ksScriptContainer
{
    Q_OBJECT
    Q_CLASSINFO("path", "where it is: the names from below the root on, with `/` between them; `#` and a "
                        "number stand for a child whose name does not tell")
    Q_CLASSINFO("rotationOrder",
                "the order of the own transform's angles, such as `\"XYZ\"`; setting it is an edit")
    Q_CLASSINFO("translate(value, [options])", "sets the translation")
    Q_CLASSINFO("rotate(value, [options])", "sets the angles of the rotation")
    Q_CLASSINFO("scale(value, [options])", "sets the scale")
    Q_CLASSINFO("shear(value, [options])", "sets the shear")
    Q_CLASSINFO("getTransform(property, [options])", "the value of one of the properties below")
    Q_CLASSINFO("setTransform(property, value, [options])", "sets it")
    Q_CLASSINFO(
        "drag(property, values, [options])",
        "sets it to each of an array of values, in one step; what is no property of a transform is a field")
    Q_CLASSINFO("turn(quaternion)", "sets the rotation of the own transform to an array of x, y, z, w")
    Q_CLASSINFO("apply(values, [options])",
                "sets several values in one step; `values` is an object whose members are named as below")
    Q_CLASSINFO("add(name)", "adds a node with a transform below it; returns it")
    Q_CLASSINFO("copy(parent, [name])", "adds a copy of it and of all below it below `parent`, which shares "
                                        "materials and images with it only; returns the copy")
    Q_CLASSINFO("moveTo(parent, [index])",
                "moves it below `parent`, at the end or before the child at `index`")
    Q_CLASSINFO("remove()", "takes it and all below it out of the scene")

    Q_PROPERTY(QString path READ path)
    Q_PROPERTY(QString rotationOrder READ rotationOrder WRITE setRotationOrder)

public:
    using ksScriptContainer::ksScriptContainer;

    QString path() const;
    QString rotationOrder() const;
    void setRotationOrder(const QString &order);

    Q_INVOKABLE void translate(const QJSValue &value, const QJSValue &options = QJSValue());
    Q_INVOKABLE void rotate(const QJSValue &value, const QJSValue &options = QJSValue());
    Q_INVOKABLE void scale(const QJSValue &value, const QJSValue &options = QJSValue());
    Q_INVOKABLE void shear(const QJSValue &value, const QJSValue &options = QJSValue());

    /// The properties are "translation", "eulerRotation", "scale", "shear", "scalePivot", "rotatePivot",
    /// "scalePivotTranslation", "rotatePivotTranslation", "rotationOrientation" and "rotationDirection". The
    /// first and the two pivots have a world space.
    Q_INVOKABLE QJSValue getTransform(const QString &property, const QJSValue &options = QJSValue()) const;
    Q_INVOKABLE void setTransform(const QString &property, const QJSValue &value,
                                  const QJSValue &options = QJSValue());
    Q_INVOKABLE void drag(const QString &property, const QJSValue &values,
                          const QJSValue &options = QJSValue()) override;

    /// The quaternion may be of any length but 0.
    Q_INVOKABLE void turn(const QJSValue &quaternion);

    /// The values are those of setTransform() except the orientation, and "inheritType",
    /// "eulerRotationOrder", "rotationDirectionOn" and "rotationDirectionMode". The others stay.
    Q_INVOKABLE void apply(const QJSValue &values, const QJSValue &options = QJSValue());

    Q_INVOKABLE QJSValue add(const QString &name);
    Q_INVOKABLE QJSValue copy(const QJSValue &parent, const QString &name = QString());
    Q_INVOKABLE void moveTo(const QJSValue &parent, int index = -1);
    Q_INVOKABLE void remove();

    /// Also knows the values of transforms, "rotationOrder", and "rotation", which is what turn() sets.
    QUndoCommand *makeEdit(const ksScriptEdit &edit) const override;
    bool holds(const ksScriptEdit &edit) const override;

private:
    osg::NodePtr node() const;
    ksTransformTarget target(const QJSValue &options) const;
    ksTransformTarget target(const ksTransformProperty &property, const QJSValue &options) const;
    osg::Quaternion rotationFrom(const QJSValue &value) const;
};
