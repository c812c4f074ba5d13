// SPDX-License-Identifier: MIT
#pragma once

#include <editor/viewport/ksOrbitCamera.h>

#include <QMetaType>
#include <QPointF>
#include <QVector3D>

#include <array>
#include <optional>
#include <vector>

class ksOverlay;

/// What dragging with the mouse does.
enum class ksViewTool
{
    Select,
    Move,
    Turn,
    Scale
};
Q_DECLARE_METATYPE(ksViewTool)

/// Where handles are and along which axes, of length 1.
struct ksViewHandleFrame
{
    QVector3D origin;
    std::array<QVector3D, 3> axes{QVector3D(1, 0, 0), QVector3D(0, 1, 0), QVector3D(0, 0, 1)};
};

/// One of the handles.
struct ksViewHandle
{
    enum class Kind
    {
        /// Along an axis.
        Axis,

        /// In the plane across an axis.
        Plane,

        /// Around an axis.
        Ring,

        /// In the plane of the picture, or along all axes alike.
        Centre
    };

    Kind kind;
    int axis;

    bool operator==(const ksViewHandle &other) const { return kind == other.kind && axis == other.axis; }
};

/// The handles that a tool has: of the same size in the picture wherever they are in the scene.
class ksViewHandles
{
public:
    /// Those of \a tool; ksViewTool::Select has none.
    ksViewHandles(ksViewTool tool, const ksViewHandleFrame &frame, const ksOrbitCamera &camera);

    const ksViewHandleFrame &frame() const { return place; }

    /// The one at \a mouse.
    std::optional<ksViewHandle> at(const QPointF &mouse) const;

    /// A point of the picture where \a handle is, and no other.
    QPointF grip(const ksViewHandle &handle) const;

    /// Adds them to \a overlay, \a active as one that is grasped.
    void draw(ksOverlay &overlay, const std::optional<ksViewHandle> &active) const;

private:
    struct Shape
    {
        ksViewHandle handle;
        std::vector<QVector3D> line;
        bool isFilled;
    };

    void addAxes(bool hasArrows);
    void addPlanes();
    void addRings();
    void addCentre();
    void drawTip(ksOverlay &overlay, const Shape &shape, const QColor &color) const;
    QVector3D alongAxes(int axis, float first, float second) const;

    ksViewTool tool;
    ksViewHandleFrame place;
    ksOrbitCamera camera;

    /// The length of an axis' handle.
    float size;
    std::vector<Shape> shapes;
};
