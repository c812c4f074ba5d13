// SPDX-License-Identifier: MIT
#include "OSGTransform3D.h"

#include "OSGAffineFactors.h"
#include "OSGEulerAngles.h"

OSG_BEGIN_NAMESPACE

OSG_DEFINE_CONTAINER(Transform3D, Transform, "", OSG_TRANSFORM_3D_FIELDS)

namespace {

constexpr Real64 Degree = 3.14159265358979323846 / 180;

Vec3d unitAxis(Int32 axis)
{
    Vec3d result;
    result[static_cast<UInt32>(axis)] = 1;
    return result;
}

bool isAxis(Int32 axis)
{
    return axis >= 0 && axis <= 2;
}

/// The shortest turn that makes the axis point along @p direction, which is not zero.
Quaterniond turnOnto(Int32 axis, Vec3d direction)
{
    const Vec3d start = unitAxis(axis);
    direction /= direction.length();
    const Vec3d across = start.cross(direction);
    const Real64 cosine = start.dot(direction);
    if (cosine < 0 && across.squareLength() == 0) {
        const Vec3d next = unitAxis((axis + 1) % 3);
        return Quaterniond(next.x(), next.y(), next.z(), 0);
    }
    Quaterniond result(across.x(), across.y(), across.z(), 1 + cosine);
    result.normalize();
    return result;
}

} // namespace

Vec3f Transform3D::convertQuatToEuler(const QuaternionBase<Real32> &q, bool degrees) const
{
    const Vec3d angles = eulerFromQuat(inPrecisionOf<Quaterniond>(q), getEulerRotationOrder());
    return inPrecisionOf<Vec3f>(degrees ? angles * (1 / Degree) : angles);
}

Quaternion Transform3D::convertEulerToQuat(const Vec3f &angles, bool degrees) const
{
    const Vec3d given = inPrecisionOf<Vec3d>(angles);
    return inPrecisionOf<Quaternion>(
        quatFromEuler(degrees ? given * Degree : given, getEulerRotationOrder()));
}

void Transform3D::updateRotation(void)
{
    setRotation(convertEulerToQuat(getEulerRotation(), true));
}

bool Transform3D::getRotationDirectionValues(Vec3f &values, int &mode) const
{
    values = getRotationDirection();
    mode = getRotationDirectionMode();
    return getRotationDirectionOn();
}

Vec3f Transform3D::getOrientedAxis(Int32 axis) const
{
    if (!isAxis(axis)) {
        return Vec3f();
    }
    Vec3d result;
    orientation().multVec(unitAxis(axis), result);
    return inPrecisionOf<Vec3f>(result);
}

bool Transform3D::decompose(const ::osg::Matrix &matrix)
{
    AffineFactors factors;
    if (!factors.setFactorsOf(matrix)) {
        return false;
    }
    setRotation(inPrecisionOf<Quaternion>(factors.rotation * orientation().inverse()));
    setEulerRotation(convertQuatToEuler(getRotation(), true));
    setShear(inPrecisionOf<Vec3f>(factors.shear));
    setScale(inPrecisionOf<Vec3f>(factors.scale));
    const Matrix4d atOrigin = composeAtOrigin();
    const auto offset = [&](UInt32 row) { return matrix[3][row] - atOrigin[3][row]; };
    setTranslation(Vec3f(offset(0), offset(1), offset(2)));
    return true;
}

void Transform3D::changed(BitVector whichField, UInt32 origin)
{
    if (!(origin & ChangedOrigin::Sync)) {
        const BitVector derived = derive(whichField);
        if (derived != FieldBits::NoField) {
            endEditNotChangedCP(Transform3DPtr(*this), derived);
        }
    }
    if (whichField & (ComponentsFieldMask | MatrixFieldMask)) {
        compose();
        whichField |= MatrixFieldMask;
    }
    Inherited::changed(whichField, origin);
}

Quaterniond Transform3D::orientation(void) const
{
    const Vec3d direction = inPrecisionOf<Vec3d>(getRotationDirection());
    if (getRotationDirectionOn() && isAxis(getRotationDirectionMode()) && direction.squareLength() > 0) {
        return turnOnto(getRotationDirectionMode(), direction);
    }
    return quatFromEuler(inPrecisionOf<Vec3d>(getRotationOrientation()) * Degree, "XYZ");
}

Matrix4d Transform3D::composeAtOrigin(void) const
{
    Matrix4d turn;
    turn.setRotate(unitOf(inPrecisionOf<Quaterniond>(getRotation())) * orientation());

    const Vec3d shear = inPrecisionOf<Vec3d>(getShear());
    const Vec3d scale = inPrecisionOf<Vec3d>(getScale());
    const Matrix4d stretch(scale.x(), shear.x() * scale.y(), shear.y() * scale.z(), 0, //
                           0, scale.y(), shear.z() * scale.z(), 0,                     //
                           0, 0, scale.z(), 0,                                         //
                           0, 0, 0, 1);

    const Vec3d rotatePivot = inPrecisionOf<Vec3d>(getRotatePivot());
    const Vec3d scalePivot = inPrecisionOf<Vec3d>(getScalePivot());
    Matrix4d result = turn * stretch;
    Vec3d pivots = inPrecisionOf<Vec3d>(getScalePivotTranslation()) + scalePivot - rotatePivot;
    turn.multMatrixVec(pivots, pivots);
    Vec3d stretched;
    result.multMatrixVec(scalePivot, stretched);
    result.setTranslate(inPrecisionOf<Vec3d>(getRotatePivotTranslation()) + rotatePivot + pivots - stretched);
    return result;
}

void Transform3D::compose(void)
{
    Matrix4d matrix = composeAtOrigin();
    for (UInt32 row = 0; row < 3; ++row) {
        matrix[3][row] += getTranslation()[row];
    }
    setMatrix(inPrecisionOf<::osg::Matrix>(matrix));
}

BitVector Transform3D::derive(BitVector whichField)
{
    if (!(whichField & ComponentsFieldMask)) {
        const bool decomposed = (whichField & MatrixFieldMask) && decompose(getMatrix());
        return decomposed ? DecomposedFieldMask : FieldBits::NoField;
    }
    if (!(whichField & RotationFieldMask)) {
        if (!(whichField & (EulerRotationFieldMask | EulerRotationOrderFieldMask))) {
            return FieldBits::NoField;
        }
        updateRotation();
        return RotationFieldMask;
    }
    if ((whichField & EulerRotationFieldMask) ||
        convertEulerToQuat(getEulerRotation(), true) == getRotation()) {
        return FieldBits::NoField;
    }
    setEulerRotation(convertQuatToEuler(getRotation(), true));
    return EulerRotationFieldMask;
}

OSG_END_NAMESPACE
