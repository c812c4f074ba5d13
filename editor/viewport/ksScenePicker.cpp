// SPDX-License-Identifier: MIT
#include <editor/viewport/ksScenePicker.h>

#include <ksNodeUtils.h>

#include <algorithm>
#include <limits>
#include <unordered_set>

namespace {

/// How far from points and lines they are found, in pixels.
constexpr double Reach = 5;

} // namespace

ksScenePicker::ksScenePicker(const std::vector<ksVisibleNode> &all, ksMeshBounds &meshBounds,
                             const ksOrbitCamera &shownBy)
    : nodes(all)
    , bounds(meshBounds)
    , camera(shownBy)
{}

osg::NodePtr ksScenePicker::at(const QPointF &place) const
{
    const ksRay ray = camera.rayAt(place);
    const ksVisibleNode *found = nullptr;
    float nearest = std::numeric_limits<float>::infinity();
    const ksVisibleNode *light = nullptr;
    double nearestLight = LightRadius;
    for (const ksVisibleNode &node : nodes) {
        if (node.isLocked || !(node.opacity > 0))
            continue;
        if (node.light != osg::NullFC) {
            const double off = ksLengthOf(camera.project(node.matrix.map(QVector3D())) - place);
            if (off <= nearestLight) {
                nearestLight = off;
                light = &node;
            }
        }
        if (node.mesh == osg::NullFC)
            continue;
        if (const auto distance = distanceTo(node, ray, place); distance && *distance < nearest) {
            nearest = *distance;
            found = &node;
        }
    }
    // The symbols of lights lie over everything.
    if (light != nullptr)
        return light->node;
    return found != nullptr ? ownerOf(*found) : osg::NodePtr();
}

std::vector<osg::NodePtr> ksScenePicker::within(const QRectF &frame) const
{
    std::vector<osg::NodePtr> found;
    std::unordered_set<osg::UInt32> inside;
    std::unordered_set<osg::UInt32> outside;
    for (const ksVisibleNode &node : nodes) {
        if (node.isLocked || !(node.opacity > 0) || (node.mesh == osg::NullFC && node.light == osg::NullFC))
            continue;
        const ksBounds box = node.mesh != osg::NullFC ? bounds.of(node.mesh) : ksBounds{{}, {}};
        if (box.isEmpty())
            continue;
        const bool isInside = frame.contains(camera.frameOf(box, node.matrix));
        const osg::NodePtr owner = ownerOf(node);
        if (!isInside)
            outside.insert(owner.getFieldContainerId());
        else if (inside.insert(owner.getFieldContainerId()).second)
            found.push_back(owner);
    }
    found.erase(std::remove_if(found.begin(), found.end(),
                               [&outside](const osg::NodePtr &node) {
                                   return outside.count(node.getFieldContainerId()) > 0;
                               }),
                found.end());
    return found;
}

osg::NodePtr ksScenePicker::ownerOf(const ksVisibleNode &node) const
{
    const osg::NodePtr placed =
        node.light == osg::NullFC ? ksNodeUtils::findTransform(node.node) : osg::NodePtr();
    // Not all of the scene.
    return placed == osg::NullFC || placed == nodes.front().node ? node.node : placed;
}

std::optional<float> ksScenePicker::distanceTo(const ksVisibleNode &node, const ksRay &ray,
                                               const QPointF &place) const
{
    bool canInvert = false;
    const QMatrix4x4 toOwn = node.matrix.inverted(&canInvert);
    const osg::ksMesh &mesh = *node.mesh;
    const osg::MFPnt3f &positions = mesh.getPositions();
    const osg::MFUInt32 &indices = mesh.getIndices();
    const auto perFace = std::size_t(std::clamp(int(mesh.getCornersPerFace()), 1, 3));
    const ksRay own = ray.movedBy(toOwn);
    const ksBounds &box = bounds.of(node.mesh);
    if (perFace == 3
            ? !canInvert || !own.meets(box)
            : !camera.frameOf(box, node.matrix).adjusted(-Reach, -Reach, Reach, Reach).contains(place))
        return {};

    std::optional<float> nearest;
    const auto note = [&nearest](float distance) {
        if (!nearest || distance < *nearest)
            nearest = distance;
    };
    for (std::size_t face = 0; face + perFace <= indices.size(); face += perFace) {
        std::array<QVector3D, 3> corners;
        bool isThere = true;
        for (std::size_t i = 0; i < perFace && isThere; ++i) {
            isThere = indices[face + i] < positions.size();
            if (isThere)
                corners[i] = ksToQt(positions[indices[face + i]]);
        }
        if (!isThere)
            continue;
        if (perFace == 3) {
            if (const auto distance = own.meetTriangle(corners[0], corners[1], corners[2]))
                note(*distance);
            continue;
        }
        const QVector3D first = node.matrix.map(corners[0]);
        const QVector3D last = perFace == 2 ? node.matrix.map(corners[1]) : first;
        const QPointF from = camera.project(first);
        const QPointF to = camera.project(last);
        const double part = ksNearestPart(place, from, to);
        if (camera.isInFront(first) && camera.isInFront(last) &&
            ksLengthOf(from + part * (to - from) - place) <= Reach)
            note((first + float(part) * (last - first) - ray.origin).length() / ray.direction.length());
    }
    return nearest;
}
