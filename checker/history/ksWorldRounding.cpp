// SPDX-License-Identifier: MIT
#include <checker/history/ksWorldRounding.h>
#include <editor/scene/ksWorldSpace.h>

#include <ksNodeUtils.h>

#include <algorithm>
#include <cmath>

namespace {

constexpr double Precision = 1e-6;

/// By how much \a matrix can lengthen a vector, its largest component being its length.
template <class T>
double stretchOf(const osg::TransformationMatrix<T> &matrix)
{
    double largest = 0;
    for (osg::UInt32 row = 0; row < 3; ++row) {
        double sum = 0;
        for (osg::UInt32 column = 0; column < 3; ++column)
            sum += std::abs(static_cast<double>(matrix[column][row]));
        largest = std::max(largest, sum);
    }
    return largest;
}

ksTransformTarget inParentSpace(ksTransformTarget target)
{
    target.world = false;
    return target;
}

} // namespace

ksWorldRounding::ksWorldRounding(const ksTransformProperty &editedProperty,
                                 const ksTransformTarget &editedTarget, const osg::Vec3f &before)
    : property(editedProperty)
    , target(editedTarget)
    , world(std::max(length(before), length(property.read(target))))
    , parent(length(property.read(inParentSpace(target))))
{}

bool ksWorldRounding::isReachable(const osg::NodePtr &node)
{
    return ksWorldSpace::above(node).invert();
}

double ksWorldRounding::length(const osg::Vec3f &value)
{
    return std::max({std::abs(value[0]), std::abs(value[1]), std::abs(value[2])});
}

double ksWorldRounding::inWorld() const
{
    return Precision * (world + stretchOf(ksWorldSpace::above(target.node)) * parent);
}

double ksWorldRounding::lengthInParent() const
{
    osg::Matrix4d toParent = ksWorldSpace::above(target.node);
    toParent.invert();
    return parent + stretchOf(toParent) * world;
}

std::vector<ksExpectedRounding> ksWorldRounding::expected() const
{
    const osg::Transform3DPtr transform = ksNodeUtils::getTransform3D(target.node, target.index);
    const osg::UInt32 id = transform.getFieldContainerId();
    const double length = lengthInParent();
    const QString reason = QStringLiteral("a value in world space");
    return {{id, property.field, Precision, length, reason},
            {id, osg::Transform3D::MatrixFieldId, Precision, length * (1 + stretchOf(transform->getMatrix())),
             reason}};
}
