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

    osg::Vec3f translation{0, 0, 0};            ///< in scene units
    osg::Vec3f rotation{0, 0, 0};               ///< Euler angles
    osg::Vec3f scale{0, 0, 0};                  ///< a factor for each axis
    osg::Vec3f shear{0, 0, 0};                  ///< a factor for each of the planes xy, xz and yz
    osg::Vec3f scalePivot{0, 0, 0};             ///< the point that the scale leaves in place
    osg::Vec3f rotatePivot{0, 0, 0};            ///< the point that the rotation leaves in place
    osg::Vec3f scalePivotTranslation{0, 0, 0};  ///< what makes up for a moved scale pivot
    osg::Vec3f rotatePivotTranslation{0, 0, 0}; ///< what makes up for a moved rotation pivot
    int inheritType = 0;                        ///< the application's
    std::string eulerRotationOrder;             ///< in the application's notation, such as XYZ
    bool rotationDirectionOn = false;           ///< whether an axis is made to point in a direction
    osg::Vec3f rotationDirection{0, 0, 0};      ///< that direction, of any length
    int rotationDirectionMode = 0;              ///< that axis: 0, 1 or 2 for x, y or z
};
