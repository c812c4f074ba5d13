// SPDX-License-Identifier: MIT
#pragma once

#include <editor/viewport/ksMeshBounds.h>
#include <editor/viewport/ksOrbitCamera.h>
#include <editor/viewport/ksVisibleNodes.h>

#include <QPointF>
#include <QRectF>

#include <optional>
#include <vector>

/// Finds what is in a picture of the scene, as aspect 1 has it; the calling thread reads that aspect. What is
/// hidden or locked is not found.
class ksScenePicker
{
public:
    /// In pixels: how far from its place a light is found, whose symbol is as large.
    static constexpr float LightRadius = 10;

    /// The arguments must outlive the object.
    ksScenePicker(const std::vector<ksVisibleNode> &nodes, ksMeshBounds &bounds, const ksOrbitCamera &camera);

    /// The nearest node at \a place, NullFC when there is none: the light, or the nearest node with a
    /// transform, at or above the mesh, since that is what users know as the thing that they see.
    osg::NodePtr at(const QPointF &place) const;

    /// The nodes of which all that can be found lies in \a frame.
    std::vector<osg::NodePtr> within(const QRectF &frame) const;

private:
    /// What stands for the mesh or light at \a node.
    osg::NodePtr ownerOf(const ksVisibleNode &node) const;

    std::optional<float> distanceTo(const ksVisibleNode &node, const ksRay &ray, const QPointF &place) const;

    const std::vector<ksVisibleNode> &nodes;
    ksMeshBounds &bounds;
    const ksOrbitCamera &camera;
};
