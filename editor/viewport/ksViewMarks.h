// SPDX-License-Identifier: MIT
#pragma once

#include <editor/viewport/ksOrbitCamera.h>

#include <QMatrix4x4>

class QColor;
class ksOverlay;
struct ksVisibleNode;

/// What is shown beside the scene itself: the ground, boxes around what is selected, symbols of lights. Calls
/// add it to an overlay.
class ksViewMarks
{
public:
    /// Both must outlive the object.
    ksViewMarks(ksOverlay &overlay, const ksOrbitCamera &camera);

    /// A grid on the ground, a little below it where something stands on it, and as fine as \a scene is
    /// large.
    void addGrid(const ksBounds &scene);

    /// \a box, which may be empty, as \a matrix moves it.
    void addBox(const ksBounds &box, const QMatrix4x4 &matrix, bool isCurrent);

    /// A circle with rays for the light at \a node, all of one size in the picture; where it shines to one
    /// side, with its cone or the direction that it shines in. The calling thread reads aspect 1.
    void addLight(const ksVisibleNode &node, bool isSelected);

private:
    void addCone(const QVector3D &tip, const QVector3D &along, float degrees, const QColor &color);

    ksOverlay &overlay;
    const ksOrbitCamera &camera;
};
