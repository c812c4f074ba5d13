// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGGroup.h>
#include <OpenSG/OSGMathFieldTypes.h>

OSG_BEGIN_NAMESPACE

#define OSG_TRANSFORM_FIELDS(SF, MF) SF(SFMatrix, matrix, Matrix, ::osg::Matrix())

OSG_CONTAINER_POINTER(Transform, GroupPtr)
OSG_CONTAINER_BASE(Transform, Group, OSG_TRANSFORM_FIELDS)

/// Core of a node whose children are moved, turned and scaled by a matrix.
class Transform : public TransformBase
{
    OSG_CONTAINER(Transform)

public:
    void adjustVolume(DynamicVolume &volume) override;
    void accumulateMatrix(::osg::Matrix &matrix) override;

    /// A new matrix makes the volumes of the nodes invalid.
    void changed(BitVector whichField, UInt32 origin) override;
};

OSG_END_NAMESPACE
