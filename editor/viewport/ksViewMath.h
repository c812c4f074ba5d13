// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGColor.h>
#include <OpenSG/OSGMatrix.h>
#include <OpenSG/OSGVector.h>

#include <QMatrix4x4>
#include <QPointF>
#include <QVector3D>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <optional>

/// @file
/// Values of the scene graph as Qt's, and the little geometry that the viewport needs.

inline QVector3D ksToQt(const osg::Vec3f &vector)
{
    return {vector[0], vector[1], vector[2]};
}

inline QVector3D ksToQt(const osg::Pnt3f &point)
{
    return {point[0], point[1], point[2]};
}

inline QVector3D ksToQt(const osg::Color3f &color)
{
    return {color[0], color[1], color[2]};
}

inline QMatrix4x4 ksToQt(const osg::Matrix &matrix)
{
    return QMatrix4x4(matrix.getValues()).transposed();
}

inline osg::Vec3f ksToOsg(const QVector3D &vector)
{
    return {vector.x(), vector.y(), vector.z()};
}

inline double ksLengthOf(const QPointF &way)
{
    return std::hypot(way.x(), way.y());
}

/// Which part of the way \a from \a to is nearest to \a point, from 0 to 1.
inline double ksNearestPart(const QPointF &point, const QPointF &from, const QPointF &to)
{
    const QPointF along = to - from;
    const double length2 = QPointF::dotProduct(along, along);
    return length2 > 0 ? std::clamp(QPointF::dotProduct(point - from, along) / length2, 0.0, 1.0) : 0;
}

/// A box along the axes; empty at first.
struct ksBounds
{
    QVector3D low{Infinity, Infinity, Infinity};
    QVector3D high{-Infinity, -Infinity, -Infinity};

    bool isEmpty() const { return !(low.x() <= high.x()); }
    QVector3D centre() const { return (low + high) / 2; }
    float radius() const { return isEmpty() ? 0 : (high - low).length() / 2; }

    void include(const QVector3D &point)
    {
        for (int axis = 0; axis < 3; ++axis) {
            low[axis] = std::min(low[axis], point[axis]);
            high[axis] = std::max(high[axis], point[axis]);
        }
    }

    /// The corners: bit 0, 1 and 2 of a corner's number tell whether it is on the high side in x, y and z.
    std::array<QVector3D, 8> corners() const
    {
        std::array<QVector3D, 8> result;
        for (unsigned int i = 0; i < result.size(); ++i)
            result[i] = QVector3D((i & 1) != 0 ? high.x() : low.x(), (i & 2) != 0 ? high.y() : low.y(),
                                  (i & 4) != 0 ? high.z() : low.z());
        return result;
    }

    /// Includes \a box as \a matrix moves it.
    void include(const ksBounds &box, const QMatrix4x4 &matrix = QMatrix4x4())
    {
        if (!box.isEmpty())
            for (const QVector3D &corner : box.corners())
                include(matrix.map(corner));
    }

private:
    static constexpr float Infinity = std::numeric_limits<float>::infinity();
};

/// A half-line. The direction is of any length; distances along it count in that length.
struct ksRay
{
    QVector3D origin;
    QVector3D direction;

    QVector3D at(float distance) const { return origin + distance * direction; }

    ksRay movedBy(const QMatrix4x4 &matrix) const
    {
        return {matrix.map(origin), matrix.mapVector(direction)};
    }

    bool meets(const ksBounds &box) const
    {
        float first = 0;
        float last = std::numeric_limits<float>::infinity();
        for (int axis = 0; axis < 3; ++axis) {
            if (direction[axis] == 0) {
                if (origin[axis] < box.low[axis] || origin[axis] > box.high[axis])
                    return false;
                continue;
            }
            const float one = (box.low[axis] - origin[axis]) / direction[axis];
            const float other = (box.high[axis] - origin[axis]) / direction[axis];
            first = std::max(first, std::min(one, other));
            last = std::min(last, std::max(one, other));
        }
        return !box.isEmpty() && first <= last;
    }

    /// How far away the ray meets the triangle \a a, \a b, \a c from either side.
    std::optional<float> meetTriangle(const QVector3D &a, const QVector3D &b, const QVector3D &c) const
    {
        const QVector3D toB = b - a;
        const QVector3D toC = c - a;
        const QVector3D across = QVector3D::crossProduct(direction, toC);
        const float scale = QVector3D::dotProduct(toB, across);
        if (scale == 0)
            return {};
        const QVector3D toOrigin = origin - a;
        const float u = QVector3D::dotProduct(toOrigin, across) / scale;
        const QVector3D up = QVector3D::crossProduct(toOrigin, toB);
        const float v = QVector3D::dotProduct(direction, up) / scale;
        const float distance = QVector3D::dotProduct(toC, up) / scale;
        if (!(u >= 0 && v >= 0 && u + v <= 1 && distance > 0))
            return {};
        return distance;
    }

    /// Where the ray meets the plane through \a point.
    std::optional<QVector3D> meetPlane(const QVector3D &point, const QVector3D &normal) const
    {
        constexpr float Grazing = 1e-4F;
        const float slope = QVector3D::dotProduct(direction.normalized(), normal);
        if (std::abs(slope) < Grazing)
            return {};
        const float distance =
            QVector3D::dotProduct(point - origin, normal) / QVector3D::dotProduct(direction, normal);
        if (!(distance > 0))
            return {};
        return at(distance);
    }

    /// How far along the line from \a point in the direction \a along, of length 1, the ray comes closest.
    std::optional<float> closestOn(const QVector3D &point, const QVector3D &along) const
    {
        constexpr float Parallel = 1e-4F;
        const QVector3D way = direction.normalized();
        const float cosine = QVector3D::dotProduct(way, along);
        const float spread = 1 - cosine * cosine;
        if (spread < Parallel)
            return {};
        const QVector3D between = origin - point;
        return (QVector3D::dotProduct(between, along) - cosine * QVector3D::dotProduct(between, way)) /
               spread;
    }
};
