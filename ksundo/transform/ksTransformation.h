// SPDX-License-Identifier: MIT
#pragma once

#include <ksundo/ksExport.h>

#include <OSGTransform3D.h>
#include <OpenSG/OSGVector.h>

#include <string>

/// A whole transformation of a node, in its parent's space. Lengths are in scene units, angles in degrees. It
/// begins with zeros and empty, which is not the identity.
struct KSUNDO_EXPORT ksTransformation
{
    /// That of \a transform; zeros and empty for null.
    static ksTransformation of(const osg::Transform3DPtr &transform);

    osg::Vec3f translation{0, 0, 0};
    osg::Vec3f rotation{0, 0, 0}; ///< Euler angles
    osg::Vec3f scale{0, 0, 0};
    osg::Vec3f shear{0, 0, 0};
    osg::Vec3f scalePivot{0, 0, 0};
    osg::Vec3f rotatePivot{0, 0, 0};
    osg::Vec3f scalePivotTranslation{0, 0, 0};
    osg::Vec3f rotatePivotTranslation{0, 0, 0};
    int inheritType = 0;            ///< the application's
    std::string eulerRotationOrder; ///< in the application's notation, such as XYZ
    bool rotationDirectionOn = false;
    osg::Vec3f rotationDirection{0, 0, 0};
    int rotationDirectionMode = 0; ///< the axis that points there: 0, 1 or 2 for x, y or z
};
