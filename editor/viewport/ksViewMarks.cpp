// SPDX-License-Identifier: MIT
#include <editor/viewport/ksOverlay.h>
#include <editor/viewport/ksScenePicker.h>
#include <editor/viewport/ksViewMarks.h>

#include <QColor>
#include <QtMath>

#include <algorithm>
#include <cmath>
#include <vector>

namespace {

const QColor CurrentColor(255, 160, 48);
const QColor SelectedColor(255, 200, 130);
const QColor LightColor(250, 222, 120);

std::vector<QVector3D> circle(const QVector3D &centre, const QVector3D &right, const QVector3D &up)
{
    constexpr int Parts = 24;
    std::vector<QVector3D> points;
    for (int i = 0; i <= Parts; ++i) {
        const auto angle = float(2 * M_PI * i / Parts);
        points.push_back(centre + std::cos(angle) * right + std::sin(angle) * up);
    }
    return points;
}

} // namespace

ksViewMarks::ksViewMarks(ksOverlay &shownBy, const ksOrbitCamera &seenBy)
    : overlay(shownBy)
    , camera(seenBy)
{}

void ksViewMarks::addGrid(const ksBounds &scene)
{
    constexpr int Lines = 10;
    constexpr float Below = 2e-3F;
    constexpr double Fading = 0.35;
    const float radius = scene.isEmpty() ? 5 : std::max(scene.radius(), 1e-3F);
    const float step = std::pow(10.0F, std::floor(std::log10(radius / 2)));
    const float cell = radius / step > 8 ? 5 * step : step;
    const float y = -Below * radius;
    const float end = Lines * cell;
    for (int i = -Lines; i <= Lines; ++i) {
        QColor color(200, 205, 212);
        color.setAlphaF(Fading * (1 - std::abs(i) / double(Lines + 1)) * (i == 0 ? 1.6 : 1));
        const float side = cell * float(i);
        QColor alongX = color;
        QColor alongZ = color;
        if (i == 0) {
            alongX = QColor(232, 76, 70, 150);
            alongZ = QColor(72, 138, 240, 150);
        }
        overlay.addLine({-end, y, side}, {end, y, side}, alongX);
        overlay.addLine({side, y, -end}, {side, y, end}, alongZ);
    }
}

void ksViewMarks::addBox(const ksBounds &box, const QMatrix4x4 &matrix, bool isCurrent)
{
    if (box.isEmpty())
        return;
    std::array<QVector3D, 8> corners = box.corners();
    for (QVector3D &corner : corners)
        corner = matrix.map(corner);
    for (unsigned int corner = 0; corner < corners.size(); ++corner)
        for (const unsigned int side : {1U, 2U, 4U})
            if ((corner & side) == 0)
                overlay.addLine(corners[corner], corners[corner | side],
                                isCurrent ? CurrentColor : SelectedColor);
}

void ksViewMarks::addLight(const ksVisibleNode &node, bool isSelected)
{
    constexpr float Radius = 0.5F;
    constexpr float ConeLength = 6;
    constexpr int Rays = 8;
    constexpr float HalfTurn = 180;
    const QColor color = isSelected ? CurrentColor : LightColor;
    const QVector3D centre = node.matrix.map(QVector3D());
    if (!camera.isInFront(centre))
        return;
    const float size = ksScenePicker::LightRadius * camera.pixelAt(centre);
    const QVector3D right = size * camera.toScene().mapVector(QVector3D(1, 0, 0));
    const QVector3D up = size * camera.toScene().mapVector(QVector3D(0, 1, 0));
    overlay.addLines(circle(centre, Radius * right, Radius * up), color);
    for (int i = 0; i < Rays; ++i) {
        const auto angle = float(2 * M_PI * i / Rays);
        const QVector3D way = std::cos(angle) * right + std::sin(angle) * up;
        overlay.addLine(centre + 0.7F * way, centre + way, color);
    }

    const QVector3D along = ConeLength * size * node.matrix.mapVector(QVector3D(0, 0, -1)).normalized();
    const float cone = std::max(node.light->getConeAngle(), 0.0F);
    const float penumbra = std::max(node.light->getPenumbraAngle(), 0.0F);
    if (cone == HalfTurn)
        overlay.addLine(centre, centre + along, color);
    else if (cone < 2 * HalfTurn)
        addCone(centre, along, cone, color);
    if (penumbra > 0 && cone + penumbra < 2 * HalfTurn) {
        QColor faint = color;
        faint.setAlphaF(0.45);
        addCone(centre, along, cone + penumbra, faint);
    }
}

void ksViewMarks::addCone(const QVector3D &tip, const QVector3D &along, float degrees, const QColor &color)
{
    const float half = qDegreesToRadians(degrees / 2);
    const QVector3D base = tip + std::cos(half) * along;
    const float radius = std::sin(half) * along.length();
    const QVector3D first = radius * QVector3D::crossProduct(along, QVector3D(0.3F, 1, 0.2F)).normalized();
    const QVector3D second = radius * QVector3D::crossProduct(along, first).normalized();
    overlay.addLines(circle(base, first, second), color);
    for (const QVector3D &side : {first, second, -first, -second})
        overlay.addLine(tip, base + side, color);
}
