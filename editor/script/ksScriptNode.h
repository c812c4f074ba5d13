// SPDX-License-Identifier: MIT
#pragma once

#include <editor/script/ksScriptContainer.h>

#include <OpenSG/OSGNode.h>

struct ksTransformProperty;
struct ksTransformTarget;

/// A node of the scene in a script: what a container has, the edits of transforms, and the members that other
/// classes register for nodes, such as ksScriptVariants and ksScriptTags.
///
/// Values are arrays of three numbers, rotations in degrees. The last argument of an edit is an object of
/// options, all of which may be left out: "index", which transform is meant, -1 the node's own, from 0 on
/// those of its variants; and "world", whether the value is in world space. An edit of a transform that does
/// not exist, values and options that do not fit are errors in the script.
class ksScriptNode : public ksScriptContainer
{
    Q_OBJECT

    /// The order of the Euler angles of the node's own transform, such as "XYZ". Setting it is an edit.
    Q_PROPERTY(QString rotationOrder READ rotationOrder WRITE setRotationOrder)

public:
    using ksScriptContainer::ksScriptContainer;

    QString rotationOrder() const;
    void setRotationOrder(const QString &order);

    Q_INVOKABLE void translate(const QJSValue &value, const QJSValue &options = QJSValue());
    Q_INVOKABLE void rotate(const QJSValue &value, const QJSValue &options = QJSValue());
    Q_INVOKABLE void scale(const QJSValue &value, const QJSValue &options = QJSValue());
    Q_INVOKABLE void shear(const QJSValue &value, const QJSValue &options = QJSValue());

    /// The value of a transform called \a property, and an edit of it: "translation", "eulerRotation",
    /// "scale", "shear", "scalePivot", "rotatePivot", "scalePivotTranslation", "rotatePivotTranslation",
    /// "rotationOrientation" or "rotationDirection". The first and the two pivots have a world space.
    Q_INVOKABLE QJSValue getTransform(const QString &property, const QJSValue &options = QJSValue()) const;
    Q_INVOKABLE void setTransform(const QString &property, const QJSValue &value,
                                  const QJSValue &options = QJSValue());

    /// The same for each of \a values, an array: the edits merge into one. What is no value of a transform is
    /// a field of the node.
    Q_INVOKABLE void drag(const QString &property, const QJSValue &values,
                          const QJSValue &options = QJSValue()) override;

    /// Sets the rotation of the node's own transform to a quaternion, an array of x, y, z and w.
    Q_INVOKABLE void turn(const QJSValue &quaternion);

    /// Sets several values at once, which are members of \a values: those of setTransform() except the
    /// orientation, and "inheritType", "eulerRotationOrder", "rotationDirectionOn" and
    /// "rotationDirectionMode". The others stay.
    Q_INVOKABLE void apply(const QJSValue &values, const QJSValue &options = QJSValue());

private:
    osg::NodePtr node() const;
    ksTransformTarget target(const QJSValue &options) const;
    ksTransformTarget target(const ksTransformProperty &property, const QJSValue &options) const;
    static QUndoCommand *make(const ksTransformProperty &property, const ksTransformTarget &aim,
                              const QJSValue &value, ksMerging merging);
};
