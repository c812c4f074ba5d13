// SPDX-License-Identifier: MIT
#pragma once

#include <editor/scene/ksMesh.h>
#include <editor/viewport/ksMeshBounds.h>
#include <editor/viewport/ksViewMath.h>

#include <OSGLightLinkSet.h>
#include <OSGUberLight.h>
#include <OpenSG/OSGNode.h>

#include <QMatrix4x4>

#include <cstddef>
#include <unordered_map>
#include <vector>

/// A node that can be seen, with what it has from those above it.
struct ksVisibleNode
{
    osg::NodePtr node;

    /// Its place in the list, if any, of the node above it, and that behind the last node below it.
    int parent;
    int end;

    /// From its space to the world's, its own transform included.
    QMatrix4x4 matrix;

    /// The product of its own and those above.
    float opacity;

    /// It or one above cannot be picked.
    bool isLocked;

    /// Its own, or that of the nearest one above that has one.
    int renderOrder;

    /// Its core, if it is one of these.
    osg::ksMeshPtr mesh;
    osg::UberLightPtr light;
    osg::LightLinkSetPtr links;
};

/// The nodes of a scene that can be seen in aspect 1, parents before their children, as one list. It is made
/// from the scene when it is asked for after the scene has changed.
class ksVisibleNodes
{
public:
    /// The nodes at and below \a root.
    const std::vector<ksVisibleNode> &of(const osg::NodePtr &root);

    /// The box around what the node at \a place holds, in its own space; the calling thread reads aspect 1.
    const ksBounds &ownBounds(int place, ksMeshBounds &meshes);

    /// The place of the node with the id \a id in the list made last, -1 if it is not in it.
    int find(osg::UInt32 id) const;

    /// Has the list made anew.
    void clear() { isStale = true; }

private:
    void add(const osg::NodePtr &node, int parent);

    std::vector<ksVisibleNode> nodes;
    std::unordered_map<osg::UInt32, int> places;
    std::unordered_map<int, ksBounds> boxes;
    bool isStale = true;
};
