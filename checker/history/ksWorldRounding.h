// SPDX-License-Identifier: MIT
#pragma once

#include <checker/history/ksExpectations.h>
#include <editor/edits/ksTransformEdits.h>

#include <vector>

/// How exactly a position comes back that has been edited in world space, since every step converts it: to
/// 1e-6 of what the position is in the two spaces, which is what single precision carries.
class ksWorldRounding
{
public:
    /// After an edit of the \a editedProperty of \a target, which had the value \a before in world space.
    ksWorldRounding(const ksTransformProperty &editedProperty, const ksTransformTarget &editedTarget,
                    const osg::Vec3f &before);

    /// Whether positions in world space have one in the space of \a node's parent. While they have none, an
    /// edit in world space does nothing.
    static bool isReachable(const osg::NodePtr &node);

    /// The largest component of \a value.
    static double length(const osg::Vec3f &value);

    /// How far a component in world space may be from what it was.
    double inWorld() const;

    /// How exactly the value and the matrix of the transform come back.
    std::vector<ksExpectedRounding> expected() const;

private:
    double lengthInParent() const;

    const ksTransformProperty &property;
    const ksTransformTarget target;

    /// Lengths of the values involved in world space and in that of the parent.
    double world;
    double parent;
};
