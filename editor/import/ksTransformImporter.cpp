// SPDX-License-Identifier: MIT
#include <editor/import/ksModelText.h>
#include <editor/import/ksTransformImporter.h>

#include <assimp/scene.h>

#include <cmath>

namespace {

/// Whether \a transform has got \a matrix.
bool compose(const osg::Transform3DPtr &transform, const osg::Matrix &matrix)
{
    CPEdit(transform, osg::Transform3D::DecomposedFieldMask);
    if (!transform->decompose(matrix))
        return false;
    transform->updateRotation();
    return true;
}

/// The shortest turn from the negative z axis to \a direction.
osg::Quaternion turnTo(const osg::Vec3f &direction)
{
    const osg::Vec3f forward(0, 0, -1);
    const osg::Vec3f axis = forward.cross(direction);
    // Straight back, any axis across will do.
    const bool isStraight = axis.squareLength() == 0;
    osg::Quaternion turn;
    turn.setValueAsAxisRad(isStraight ? osg::Vec3f(0, 1, 0) : axis,
                           std::atan2(axis.length(), forward.dot(direction)));
    return turn;
}

} // namespace

osg::Matrix ksTransformImporter::matrix(const aiNode &node)
{
    const aiMatrix4x4 &m = node.mTransformation;
    return osg::Matrix(m.a1, m.a2, m.a3, m.a4, m.b1, m.b2, m.b3, m.b4, m.c1, m.c2, m.c3, m.c4, m.d1, m.d2,
                       m.d3, m.d4);
}

osg::Transform3DPtr ksTransformImporter::create(const aiNode &node, const ksWarn &warn)
{
    const osg::Transform3DPtr transform = osg::Transform3D::create();
    if (!compose(transform, matrix(node)))
        warn(QStringLiteral("the matrix of node '") + ksModelText::shown(node.mName) +
             QStringLiteral("' is not one of a transform"));
    return transform;
}

osg::Transform3DPtr ksTransformImporter::create(const osg::Vec3f &position, const osg::Vec3f &direction)
{
    const osg::Transform3DPtr transform = osg::Transform3D::create();
    osg::Matrix matrix;
    matrix.setTransform(position, turnTo(direction), osg::Vec3f(1, 1, 1));
    compose(transform, matrix);
    return transform;
}
