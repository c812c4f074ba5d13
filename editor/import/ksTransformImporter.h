// SPDX-License-Identifier: MIT
#pragma once

#include <editor/import/ksWarn.h>

#include <OSGTransform3D.h>

struct aiNode;

/// Makes the transforms of nodes of a model file.
class ksTransformImporter
{
public:
    ksTransformImporter() = delete;

    /// The matrix of \a node.
    static osg::Matrix matrix(const aiNode &node);

    /// A new transform whose matrix is that of \a node, put together from components: translation, Euler
    /// angles and the rotation that these give bit for bit, as if a user had set them, scale and shear. Where
    /// no components give the matrix, see osg::Transform3D::decompose(), it is left out with a warning.
    static osg::Transform3DPtr create(const aiNode &node, const ksWarn &warn);

    /// A new transform, put together the same way, that moves what is at the origin to \a position and turns
    /// what points along the negative z axis to \a direction, which must have the length 1.
    static osg::Transform3DPtr create(const osg::Vec3f &position, const osg::Vec3f &direction);
};
