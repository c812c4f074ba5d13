// SPDX-License-Identifier: MIT
#include <editor/viewport/ksOverlay.h>
#include <editor/viewport/ksViewHandles.h>

#include <QColor>
#include <QPolygonF>
#include <QtMath>

#include <cmath>

namespace {

/// Lengths as parts of the size of a handle; the size is in pixels.
constexpr float SizeInPixels = 92;
constexpr float AxisStart = 0.14F;
constexpr float PlaneStart = 0.26F;
constexpr float PlaneEnd = 0.46F;
constexpr float CentreSize = 0.08F;
constexpr float TipLength = 0.2F;
constexpr float TipWidth = 0.06F;

QColor colorOf(const ksViewHandle &handle)
{
    static const std::array<QColor, 3> Axes = {QColor(232, 76, 70), QColor(112, 196, 72),
                                               QColor(72, 138, 240)};
    return handle.kind == ksViewHandle::Kind::Centre ? QColor(225, 225, 225) : Axes[std::size_t(handle.axis)];
}

} // namespace

ksViewHandles::ksViewHandles(ksViewTool shownTool, const ksViewHandleFrame &frame,
                             const ksOrbitCamera &shownBy)
    : tool(shownTool)
    , place(frame)
    , camera(shownBy)
    , size(SizeInPixels * shownBy.pixelAt(frame.origin))
{
    if (tool == ksViewTool::Select || !camera.isInFront(place.origin))
        return;
    if (tool == ksViewTool::Turn) {
        addRings();
        return;
    }
    if (tool == ksViewTool::Move)
        addPlanes();
    addAxes(tool == ksViewTool::Move);
    addCentre();
}

std::optional<ksViewHandle> ksViewHandles::at(const QPointF &mouse) const
{
    constexpr double Reach = 7;
    std::optional<ksViewHandle> found;
    double nearest = Reach;
    for (const Shape &shape : shapes) {
        QPolygonF polygon;
        for (const QVector3D &point : shape.line)
            polygon << camera.project(point);
        if (shape.isFilled && polygon.containsPoint(mouse, Qt::OddEvenFill))
            return shape.handle;
        for (int i = 1; i < polygon.size(); ++i) {
            const double part = ksNearestPart(mouse, polygon[i - 1], polygon[i]);
            const double distance = ksLengthOf(polygon[i - 1] + part * (polygon[i] - polygon[i - 1]) - mouse);
            if (distance < nearest) {
                nearest = distance;
                found = shape.handle;
            }
        }
    }
    return found;
}

QPointF ksViewHandles::grip(const ksViewHandle &handle) const
{
    for (const Shape &shape : shapes) {
        if (!(shape.handle == handle))
            continue;
        for (std::size_t i = 0; i + 1 < shape.line.size(); ++i) {
            QPointF point = camera.project((shape.line[i] + 2 * shape.line[i + 1]) / 3);
            if (shape.isFilled)
                point = camera.project((shape.line[0] + shape.line[2]) / 2);
            if (at(point) == handle)
                return point;
        }
    }
    return {};
}

void ksViewHandles::draw(ksOverlay &overlay, const std::optional<ksViewHandle> &active) const
{
    for (const Shape &shape : shapes) {
        QColor color = active == shape.handle ? QColor(255, 214, 64) : colorOf(shape.handle);
        overlay.addLines(shape.line, color);
        drawTip(overlay, shape, color);
        if (shape.isFilled) {
            color.setAlphaF(0.45);
            overlay.addTriangle(shape.line[0], shape.line[1], shape.line[2], color);
            overlay.addTriangle(shape.line[0], shape.line[2], shape.line[3], color);
        }
    }
}

/// An arrow's head or a small box at the end of an axis.
void ksViewHandles::drawTip(ksOverlay &overlay, const Shape &shape, const QColor &color) const
{
    if (shape.handle.kind != ksViewHandle::Kind::Axis)
        return;
    constexpr int Sides = 12;
    const QVector3D &tip = shape.line.back();
    const bool isArrow = tool == ksViewTool::Move;
    const float width = TipWidth * size;
    const QVector3D along = place.axes[std::size_t(shape.handle.axis)];
    const QVector3D first = QVector3D::crossProduct(along, QVector3D(along.y(), along.z(), along.x()));
    const QVector3D right = first.lengthSquared() > 0 ? first.normalized() : QVector3D(0, 1, 0);
    const QVector3D up = QVector3D::crossProduct(along, right);
    const QVector3D back = tip - along * (isArrow ? TipLength * size : 2 * width);
    const int sides = isArrow ? Sides : 4;
    const auto rim = [&](const QVector3D &centre, int side) {
        const auto angle = float(2 * M_PI * (side + 0.5) / sides);
        return centre + width * (std::cos(angle) * right + std::sin(angle) * up);
    };
    for (int side = 0; side < sides; ++side) {
        const QVector3D one = rim(back, side);
        const QVector3D other = rim(back, side + 1);
        overlay.addTriangle(back, one, other, color);
        if (isArrow) {
            overlay.addTriangle(tip, one, other, side % 2 == 0 ? color : color.darker(115));
        } else {
            const QColor shade = side % 2 == 0 ? color : color.darker(120);
            overlay.addTriangle(one, other, rim(tip, side), shade);
            overlay.addTriangle(other, rim(tip, side), rim(tip, side + 1), shade);
            overlay.addTriangle(tip, rim(tip, side), rim(tip, side + 1), color);
        }
    }
}

QVector3D ksViewHandles::alongAxes(int axis, float first, float second) const
{
    return place.origin + size * (first * place.axes[std::size_t((axis + 1) % 3)] +
                                  second * place.axes[std::size_t((axis + 2) % 3)]);
}

void ksViewHandles::addAxes(bool hasArrows)
{
    constexpr float FacingCamera = 0.985F;
    const QVector3D toEye = (camera.eye() - place.origin).normalized();
    for (int axis = 0; axis < 3; ++axis) {
        const QVector3D &along = place.axes[std::size_t(axis)];
        // What points at the camera cannot be dragged along.
        if (std::abs(QVector3D::dotProduct(along, toEye)) < FacingCamera)
            shapes.push_back({{ksViewHandle::Kind::Axis, axis},
                              {place.origin + AxisStart * size * along,
                               place.origin + (hasArrows ? 1 + TipLength / 2 : 1) * size * along},
                              false});
    }
}

void ksViewHandles::addPlanes()
{
    constexpr float SeenFromTheSide = 0.15F;
    const QVector3D toEye = (camera.eye() - place.origin).normalized();
    for (int axis = 0; axis < 3; ++axis)
        if (std::abs(QVector3D::dotProduct(place.axes[std::size_t(axis)], toEye)) > SeenFromTheSide)
            shapes.push_back({{ksViewHandle::Kind::Plane, axis},
                              {alongAxes(axis, PlaneStart, PlaneStart), alongAxes(axis, PlaneEnd, PlaneStart),
                               alongAxes(axis, PlaneEnd, PlaneEnd), alongAxes(axis, PlaneStart, PlaneEnd),
                               alongAxes(axis, PlaneStart, PlaneStart)},
                              true});
}

/// The near halves of the circles.
void ksViewHandles::addRings()
{
    constexpr int Parts = 72;
    constexpr float Beyond = -0.02F;
    const QVector3D toEye = (camera.eye() - place.origin).normalized();
    for (int axis = 0; axis < 3; ++axis) {
        std::vector<QVector3D> line;
        const auto push = [&] {
            if (line.size() > 1)
                shapes.push_back({{ksViewHandle::Kind::Ring, axis}, line, false});
            line.clear();
        };
        for (int i = 0; i <= Parts; ++i) {
            const auto angle = float(2 * M_PI * i / Parts);
            const QVector3D point = alongAxes(axis, std::cos(angle), std::sin(angle));
            if (QVector3D::dotProduct((point - place.origin) / size, toEye) > Beyond)
                line.push_back(point);
            else
                push();
        }
        push();
    }
}

void ksViewHandles::addCentre()
{
    const QVector3D right = CentreSize * size * camera.toScene().mapVector(QVector3D(1, 0, 0));
    const QVector3D up = CentreSize * size * camera.toScene().mapVector(QVector3D(0, 1, 0));
    const QVector3D &at = place.origin;
    shapes.insert(shapes.begin(),
                  {{ksViewHandle::Kind::Centre, 0},
                   {at - right - up, at + right - up, at + right + up, at - right + up, at - right - up},
                   true});
}
