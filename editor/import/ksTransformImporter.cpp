// SPDX-License-Identifier: MIT
#include "ksTransformImporter.h"

#include <assimp/scene.h>

namespace {

osg::Matrix matrixOf(const aiMatrix4x4 &m)
{
    return osg::Matrix(m.a1, m.a2, m.a3, m.a4, m.b1, m.b2, m.b3, m.b4, m.c1, m.c2, m.c3, m.c4, m.d1, m.d2,
                       m.d3, m.d4);
}

} // namespace

osg::Transform3DPtr ksTransformImporter::create(const aiNode &node, const ksWarn &warn)
{
    const osg::Transform3DPtr transform = osg::Transform3D::create();
    CPEdit(transform, osg::Transform3D::DecomposedFieldMask);
    if (transform->decompose(matrixOf(node.mTransformation)))
        transform->updateRotation();
    else
        warn(QStringLiteral("the matrix of node '") + QString::fromUtf8(node.mName.C_Str()) +
             QStringLiteral("' is not one of a transform"));
    return transform;
}
