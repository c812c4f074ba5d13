// SPDX-License-Identifier: MIT
#pragma once

#include <editor/viewport/ksDragPlace.h>
#include <editor/viewport/ksOrbitCamera.h>
#include <editor/viewport/ksViewHandles.h>

#include <ksundo/core/ksUndoGesture.h>

#include <OpenSG/OSGNode.h>

#include <QPointF>
#include <QString>

#include <memory>
#include <optional>
#include <vector>

class QUndoCommand;
class ksDocument;

/// A handle that is being dragged, from the press of the mouse to its release: one step.
///
/// The current node follows the mouse; the others go as far, turn as far, each about its own pivot, and grow
/// by the same factor.
class ksHandleDrag
{
public:
    /// The nodes of the selection that handles move: for each its own transform or the nearest above it, none
    /// that another takes along, the one of the current node last. The root stands for itself only.
    static std::vector<osg::NodePtr> targetsOf(ksDocument &document);

    /// Begins to drag \a handle of \a handles at \a mouse. Throws ksEditorError when a node cannot be moved.
    ksHandleDrag(ksDocument &editedDocument, const std::vector<osg::NodePtr> &targets, ksViewTool usedTool,
                 bool isInWorld, const ksViewHandles &handles, const ksViewHandle &grasped,
                 const ksOrbitCamera &camera, const QPointF &mouse);

    const ksViewHandle &handle() const { return grasped; }

    /// Follows the mouse.
    void moveTo(const QPointF &mouse);

    /// Undoes what the drag has done.
    void takeBack() { gesture.takeBack(); }

private:
    /// The way and the factors that the mouse means by being where it is, or nothing.
    std::optional<QVector3D> wayTo(const QPointF &mouse) const;
    std::optional<float> turnTo(const QPointF &mouse) const;
    std::optional<float> factorTo(const QPointF &mouse) const;

    QVector3D axis() const { return frame.axes[std::size_t(grasped.axis)]; }

    void addMove(const ksDragPlace &place, const QVector3D &way, QUndoCommand *parent);
    void addTurn(const ksDragPlace &place, float degrees, QUndoCommand *parent);
    void addScale(const ksDragPlace &place, float factor, QUndoCommand *parent);

    /// Scales along an axis of the world, which turns and shears the node.
    void addWorldScale(const ksDragPlace &place, float factor, QUndoCommand *parent);

    /// Adds a command that sets a transform property of \a place.
    void addValue(const char *property, const ksDragPlace &place, const QVector3D &value,
                  QUndoCommand *parent);

    ksDocument &document;
    ksViewTool tool;
    bool isWorld;
    ksViewHandle grasped;
    ksViewHandleFrame frame;
    ksOrbitCamera camera;
    QPointF start;
    std::vector<ksDragPlace> places;
    QString text;

    /// The last turn, so that turns go on beyond half a turn.
    float lastTurn = 0;

    ksUndoGesture gesture;
};
