// SPDX-License-Identifier: MIT
#pragma once

#include "OSGPrecision.h"

#include <OpenSG/OSGBaseFieldTypes.h>
#include <OpenSG/OSGSysFieldTypes.h>
#include <OpenSG/OSGTransform.h>
#include <OpenSG/OSGVecFieldTypes.h>

OSG_BEGIN_NAMESPACE

#define OSG_TRANSFORM_3D_FIELDS(SF, MF)                                         \
    SF(SFVec3f, translation, Translation, Vec3f(0, 0, 0))                       \
    SF(SFQuaternion, rotation, Rotation, Quaternion())                          \
    SF(SFVec3f, eulerRotation, EulerRotation, Vec3f(0, 0, 0))                   \
    SF(SFString, eulerRotationOrder, EulerRotationOrder, std::string("XYZ"))    \
    SF(SFVec3f, scale, Scale, Vec3f(1, 1, 1))                                   \
    SF(SFVec3f, shear, Shear, Vec3f(0, 0, 0))                                   \
    SF(SFVec3f, scalePivot, ScalePivot, Vec3f(0, 0, 0))                         \
    SF(SFVec3f, scalePivotTranslation, ScalePivotTranslation, Vec3f(0, 0, 0))   \
    SF(SFVec3f, rotatePivot, RotatePivot, Vec3f(0, 0, 0))                       \
    SF(SFVec3f, rotatePivotTranslation, RotatePivotTranslation, Vec3f(0, 0, 0)) \
    SF(SFVec3f, rotationOrientation, RotationOrientation, Vec3f(0, 0, 0))       \
    SF(SFVec3f, rotationDirection, RotationDirection, Vec3f(0, 0, 0))           \
    SF(SFInt32, rotationDirectionMode, RotationDirectionMode, 0)                \
    SF(SFBool, rotationDirectionOn, RotationDirectionOn, false)                 \
    SF(SFInt32, inheritType, InheritType, 0)

OSG_CONTAINER_POINTER(Transform3D, TransformPtr)
OSG_CONTAINER_BASE(Transform3D, Transform, OSG_TRANSFORM_3D_FIELDS)

/// A transform put together from components that people edit. Its matrix, for column vectors, is
///
///     translation * rotatePivotTranslation * rotatePivot * rotation * orientation * rotatePivot^-1
///         * scalePivotTranslation * scalePivot * shear * scale * scalePivot^-1
///
/// - **rotation** is a quaternion of any length (of length 0: the identity). The same rotation stands in
///   **eulerRotation**, in degrees about x, y and z, the turns following each other as **eulerRotationOrder**
///   says (see OSGEulerAngles.h). The matrix is made from the quaternion.
/// - **shear** moves x by shear.x() for each unit of y and by shear.y() for each unit of z, and y by
///   shear.z() for each unit of z.
/// - The orientation is what **rotationOrientation** says, in degrees and always in the order XYZ. While
///   **rotationDirectionOn** is set, it is instead the shortest turn that makes an axis point along
///   **rotationDirection**; **rotationDirectionMode** tells which one: 0 x, 1 y, 2 z. Another mode and a
///   direction of length 0 have no effect. From an axis to its opposite the turn is about the axis that
///   follows it.
/// - **inheritType** is an application's note of what the node takes over from its parent. It is kept; the
///   matrix does not depend on it.
///
/// The end of an edit brings the fields that depend on each other into step:
/// - Whatever component changes, the matrix is composed anew, in every aspect by itself; edits of components
///   need not name MatrixFieldMask.
/// - New Euler angles, or a new order, without a new quaternion give the quaternion; a new quaternion alone
///   gives the Euler angles, unless they give that quaternion already. Given together, both stay as they are.
/// - A new matrix alone is decomposed, see decompose(). If that is not possible, it is dropped.
///
/// What such an edit did not name and has changed is recorded in addition. While
/// FieldContainerPtr::_ignore_change is set, all of this has to wait for the next edit.
class Transform3D : public Transform3DBase
{
    OSG_CONTAINER(Transform3D)

public:
    static constexpr BitVector RotationsFieldMask = RotationFieldMask | EulerRotationFieldMask;

    /// What decompose() writes.
    static constexpr BitVector DecomposedFieldMask =
        TranslationFieldMask | RotationsFieldMask | ScaleFieldMask | ShearFieldMask;

    /// What getRotationDirectionValues() reads.
    static constexpr BitVector RotationDirectionsFieldMask =
        RotationDirectionFieldMask | RotationDirectionModeFieldMask | RotationDirectionOnFieldMask;

    /// All that the matrix depends on.
    static constexpr BitVector ComponentsFieldMask =
        DecomposedFieldMask | EulerRotationOrderFieldMask | ScalePivotFieldMask |
        ScalePivotTranslationFieldMask | RotatePivotFieldMask | RotatePivotTranslationFieldMask |
        RotationOrientationFieldMask | RotationDirectionsFieldMask;

    /// Sets the rotation and the Euler angles that go with it, in one edit, which it ends. Defined by the
    /// undo library: only programs that link it can call this.
    void setRotationAsQuaternion(const QuaternionBase<Real32> &q);

    /// The Euler angles of a rotation in the order of this transform, in degrees if @p degrees is true, else
    /// in radians. The first and the last turn are within half a turn, the middle one within a quarter,
    /// either way round; in gimbal lock the last is 0.
    Vec3f convertQuatToEuler(const QuaternionBase<Real32> &q, bool degrees) const;

    /// The rotation, of length 1, that Euler angles give in the order of this transform; in degrees if
    /// @p degrees is true, else in radians.
    Quaternion convertEulerToQuat(const Vec3f &angles, bool degrees) const;

    /// Sets the rotation to what the Euler angles give. The edit is up to the caller.
    void updateRotation(void);

    /// Writes direction and mode to the arguments; tells whether the direction is on.
    bool getRotationDirectionValues(Vec3f &values, int &mode) const;

    /// Where the orientation makes an axis (0 x, 1 y, 2 z) point, before the rotation; length 1. Zero for any
    /// other axis.
    Vec3f getOrientedAxis(Int32 axis) const;

    /// Sets translation, rotation, Euler angles, scale and shear so that the matrix becomes @p matrix, each
    /// column to 1e-5 of its length (the last to 1e-5 of it and the pivots); pivots, orientation and order
    /// stay. A mirror image gets one or three negative scale factors, a column of zeros the scale factor 0.
    /// The edit is up to the caller.
    ///
    /// False, and no change, for matrices that no components give: those with another last row than (0, 0, 0,
    /// 1), with elements that are not finite or too small or large for a scale factor, and singular ones
    /// without such a column of zeros.
    bool decompose(const ::osg::Matrix &matrix);

    /// Brings the fields into step, as described above.
    void changed(BitVector whichField, UInt32 origin) override;

private:
    Quaterniond orientation(void) const;

    /// The matrix without the translation.
    Matrix4d composeAtOrigin(void) const;
    void compose(void);

    /// Derives fields from those of an edit and tells which.
    BitVector derive(BitVector whichField);
};

OSG_END_NAMESPACE
