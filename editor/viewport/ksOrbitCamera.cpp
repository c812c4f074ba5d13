// SPDX-License-Identifier: MIT
#include <editor/viewport/ksOrbitCamera.h>

#include <QtMath>

void ksOrbitCamera::setSize(const QSizeF &size)
{
    pictureSize = size.expandedTo(QSizeF(1, 1));
    update();
}

void ksOrbitCamera::setScene(const ksBounds &bounds)
{
    scene = bounds;
    update();
}

void ksOrbitCamera::orbit(float right, float up)
{
    constexpr float Steepest = 89.9F;
    yaw = std::fmod(yaw + right, 360.0F);
    pitch = std::clamp(pitch + up, -Steepest, Steepest);
    update();
}

void ksOrbitCamera::pan(const QPointF &pixels)
{
    const float pixel = pixelAt(target);
    target += fromView.mapVector(QVector3D(-float(pixels.x()) * pixel, float(pixels.y()) * pixel, 0));
    update();
}

void ksOrbitCamera::zoom(float factor, const QPointF &place)
{
    constexpr float Nearest = 1e-3F;
    constexpr float Furthest = 1e7F;
    const float old = distance;
    const ksRay ray = rayAt(place);
    const QVector3D forward = (target - eye()).normalized();
    const QVector3D fixed = ray.meetPlane(target, forward).value_or(target);
    distance = std::clamp(distance * factor, Nearest, Furthest);
    target = fixed + (target - fixed) * (distance / old);
    update();
}

void ksOrbitCamera::frame(const ksBounds &bounds)
{
    if (bounds.isEmpty())
        return;
    constexpr float Margin = 1.08F;
    constexpr float Smallest = 1e-2F;
    constexpr int Rounds = 6;
    const float halfWidth = HalfHeight * float(pictureSize.width() / pictureSize.height());
    target = bounds.centre();
    // What is near is larger, so that the middle of the box is not that of its picture.
    for (int round = 0; round < Rounds; ++round) {
        distance = 0;
        update();
        float needed = Smallest;
        for (const QVector3D &corner : bounds.corners()) {
            const QVector3D seen = toView.map(corner);
            needed = std::max({needed, seen.z() + std::abs(seen.y()) / HalfHeight,
                               seen.z() + std::abs(seen.x()) / halfWidth});
        }
        distance = needed * Margin;

        ksBounds picture;
        for (const QVector3D &corner : bounds.corners()) {
            const QVector3D seen = toView.map(corner);
            const float depth = distance - seen.z();
            picture.include(QVector3D(seen.x() / depth, seen.y() / depth, 0));
        }
        target += fromView.mapVector(picture.centre() * distance);
    }
    update();
}

void ksOrbitCamera::update()
{
    toView.setToIdentity();
    toView.translate(0, 0, -distance);
    toView.rotate(pitch, 1, 0, 0);
    toView.rotate(-yaw, 0, 1, 0);
    toView.translate(-target);
    fromView = toView.inverted();

    // As far as depths of 24 bits go.
    constexpr float Depths = 1e5F;
    const float radius = scene.radius();
    const float depth = scene.isEmpty() ? distance : depthOf(scene.centre());
    const float last = std::max(depth + 2 * radius, distance * 4);
    const float first = std::max(std::min(depth - radius, distance / 10), last / Depths);
    const float height = HalfHeight * first;
    const float width = height * float(pictureSize.width() / pictureSize.height());
    toPicture.setToIdentity();
    toPicture.frustum(-width, width, -height, height, first, last);
    toPicture *= toView;
}

QPointF ksOrbitCamera::project(const QVector3D &point) const
{
    constexpr double Nowhere = -1e6;
    if (!isInFront(point))
        return {Nowhere, Nowhere};
    const QVector3D seen = toPicture.map(point);
    return {(1 + double(seen.x())) / 2 * pictureSize.width(),
            (1 - double(seen.y())) / 2 * pictureSize.height()};
}

QRectF ksOrbitCamera::frameOf(const ksBounds &box, const QMatrix4x4 &matrix) const
{
    constexpr double Endless = 1e9;
    ksBounds frame;
    for (const QVector3D &corner : box.corners()) {
        const QVector3D point = matrix.map(corner);
        if (!isInFront(point))
            return {-Endless, -Endless, 2 * Endless, 2 * Endless};
        const QPointF place = project(point);
        frame.include(QVector3D(float(place.x()), float(place.y()), 0));
    }
    return QRectF(frame.low.toPointF(), frame.high.toPointF()).adjusted(-1, -1, 1, 1);
}

bool ksOrbitCamera::isInFront(const QVector3D &point) const
{
    return depthOf(point) > distance * 1e-4F;
}

ksRay ksOrbitCamera::rayAt(const QPointF &place) const
{
    const auto x = float(2 * place.x() / pictureSize.width() - 1);
    const auto y = float(1 - 2 * place.y() / pictureSize.height());
    const auto aspect = float(pictureSize.width() / pictureSize.height());
    return {eye(), fromView.mapVector(QVector3D(x * HalfHeight * aspect, y * HalfHeight, -1))};
}

float ksOrbitCamera::pixelAt(const QVector3D &point) const
{
    return 2 * HalfHeight * std::max(depthOf(point), distance * 1e-3F) / float(pictureSize.height());
}
