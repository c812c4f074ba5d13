// SPDX-License-Identifier: MIT
#pragma once

#include <editor/viewport/ksVisibleNodes.h>

#include <QVector3D>

#include <vector>

/// A light as the viewport draws with it. Colours have the intensity in them.
struct ksLamp
{
    /// How many shine on a surface; others are left out.
    static constexpr int Most = 8;

    QVector3D position;

    /// Where it shines; of length 1.
    QVector3D direction;
    QVector3D diffuse;
    QVector3D glossy;

    /// The cosines of half the cone, and of half the cone with its penumbra.
    float innerCosine = -1;
    float outerCosine = -1;

    /// The power of the distance that the light is divided by.
    int attenuation = 0;

    /// It shines everywhere in its direction, wherever it is.
    bool isFromAfar = false;
};

/// The lights of a scene, and which of its nodes they shine on.
struct ksLamps
{
    std::vector<ksLamp> lamps;

    /// For each node of the list: those that shine on it, a bit each.
    std::vector<unsigned int> shiningOn;

    /// Of \a nodes, as the calling thread's aspect has them. A light that is in link sets shines on what is
    /// at or below the scene nodes of these; any other shines on all. One whose visibility reference cannot
    /// be seen is left out.
    static ksLamps of(const std::vector<ksVisibleNode> &nodes);
};
