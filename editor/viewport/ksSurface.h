// SPDX-License-Identifier: MIT
#pragma once

#include <editor/viewport/ksViewMath.h>

#include <OpenSG/OSGImage.h>
#include <OpenSG/OSGMaterial.h>

#include <QMatrix3x3>
#include <QVector3D>

#include <vector>

/// What a material makes a surface look like, in the terms that the viewport draws with. Colours are
/// proportional to light.
struct ksSurface
{
    /// A layer of colour with an image.
    struct Layer
    {
        QVector3D color;
        osg::ImagePtr image;
    };

    /// What the surface is made of: the sum of a colour and of layers, of which more than the drawing has
    /// room for are left out.
    static constexpr int MostLayers = 3;
    QVector3D color{1, 1, 1};
    std::vector<Layer> layers;

    /// What it shines with itself: the same.
    QVector3D glow;
    Layer glowLayer;

    float roughness = 0.7F;
    float metalness = 0;

    /// What it mirrors of light that comes straight on.
    QVector3D gloss{0.04F, 0.04F, 0.04F};
    float opacity = 1;
    bool isLit = true;

    /// How the images lie on it: from texture coordinates, or with a projection size above 0 from positions
    /// in units of that.
    QMatrix3x3 mapping;
    float projectionSize = 0;

    /// What it mirrors around it, when that is said: a colour, and an image unless it is null.
    bool hasEnvironment = false;
    Layer environment;

    /// Of \a material, as the calling thread's aspect has it; null gives what plain surfaces look like.
    static ksSurface of(const osg::MaterialPtr &material);
};
