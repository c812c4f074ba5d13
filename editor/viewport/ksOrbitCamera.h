// SPDX-License-Identifier: MIT
#pragma once

#include <editor/viewport/ksViewMath.h>

#include <QMatrix4x4>
#include <QPointF>
#include <QRectF>
#include <QSizeF>
#include <QVector3D>

/// The camera of a viewport: it looks at a point from around it, with y up.
class ksOrbitCamera
{
public:
    ksOrbitCamera() { update(); }

    /// The size of the picture, in the pixels that places on it are told in.
    void setSize(const QSizeF &size);
    const QSizeF &size() const { return pictureSize; }

    /// What has to be within the range of depths that can be seen.
    void setScene(const ksBounds &bounds);

    /// Goes around the target, by degrees to the right and upwards.
    void orbit(float right, float up);

    /// Moves the target with the picture below the mouse.
    void pan(const QPointF &pixels);

    /// Goes nearer, for factors below 1, or further away, and keeps what is at \a place there.
    void zoom(float factor, const QPointF &place);

    /// Looks at all of \a bounds from the direction that it is in.
    void frame(const ksBounds &bounds);

    QVector3D eye() const { return fromView.map(QVector3D()); }
    const QMatrix4x4 &viewProjection() const { return toPicture; }

    /// From the space of the camera, which looks along its negative z axis, to the world.
    const QMatrix4x4 &toScene() const { return fromView; }

    /// Where \a point is in the picture; outside of it for what is behind the camera.
    QPointF project(const QVector3D &point) const;

    /// The frame in the picture in which \a box lies as \a matrix moves it, and a pixel more; without end
    /// when some of it is behind the camera.
    QRectF frameOf(const ksBounds &box, const QMatrix4x4 &matrix) const;
    bool isInFront(const QVector3D &point) const;
    ksRay rayAt(const QPointF &place) const;

    /// The length at \a point of what is as large as a pixel in the picture.
    float pixelAt(const QVector3D &point) const;

    bool operator==(const ksOrbitCamera &other) const
    {
        return target == other.target && distance == other.distance && yaw == other.yaw &&
               pitch == other.pitch;
    }

private:
    float depthOf(const QVector3D &point) const { return -toView.map(point).z(); }

    /// Computes the matrices from what else is known.
    void update();

    /// The tangent of half the field of view, upwards.
    static constexpr float HalfHeight = 0.36F;

    QSizeF pictureSize{1, 1};
    ksBounds scene;
    QVector3D target;
    float distance = 10;
    float yaw = -28;
    float pitch = 20;

    QMatrix4x4 toView;
    QMatrix4x4 fromView;
    QMatrix4x4 toPicture;
};
