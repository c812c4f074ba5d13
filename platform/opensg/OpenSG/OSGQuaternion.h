// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGVector.h>

OSG_BEGIN_NAMESPACE

/// A rotation as the quaternion x, y, z, w. The identity (0, 0, 0, 1) at first.
template <class T>
class QuaternionBase : public Tuple<T, 4>
{
public:
    QuaternionBase(void) { setIdentity(); }
    QuaternionBase(T x, T y, T z, T w)
        : Tuple<T, 4>(x, y, z, w)
    {}

    /// The rotation by @p angle radians about @p axis, which need not have length 1.
    QuaternionBase(const Vector<T, 3> &axis, T angle) { setValueAsAxisRad(axis, angle); }

    static QuaternionBase identity(void) { return QuaternionBase(); }

    T x(void) const { return (*this)[0]; }
    T y(void) const { return (*this)[1]; }
    T z(void) const { return (*this)[2]; }
    T w(void) const { return (*this)[3]; }

    void setIdentity(void) { this->setValues(T(0), T(0), T(0), T(1)); }
    void setValueAsQuat(T x, T y, T z, T w) { this->setValues(x, y, z, w); }

    /// The rotation by @p angle radians about @p axis; the identity for an axis of length 0.
    void setValueAsAxisRad(Vector<T, 3> axis, T angle)
    {
        if (!(axis.squareLength() > T(0))) {
            setIdentity();
            return;
        }
        axis.normalize();
        const T half = angle / T(2);
        const T factor = std::sin(half);
        this->setValues(axis.x() * factor, axis.y() * factor, axis.z() * factor, std::cos(half));
    }

    /// The same with degrees.
    void setValueAsAxisDeg(const Vector<T, 3> &axis, T angle)
    {
        setValueAsAxisRad(axis, angle * T(3.14159265358979323846 / 180.0));
    }

    /// Axis of length 1 and angle in radians, 0 to 2 pi; the identity has axis (0, 0, 1).
    void getValueAsAxisRad(Vector<T, 3> &axis, T &angle) const
    {
        axis = Vector<T, 3>(x(), y(), z());
        const T sine = axis.length();
        angle = T(2) * std::atan2(sine, w());
        if (sine > T(0)) {
            axis *= T(1) / sine;
        } else {
            axis = Vector<T, 3>(0, 0, 1);
        }
    }

    T length(void) const { return std::sqrt(x() * x() + y() * y() + z() * z() + w() * w()); }

    /// Scales to length 1; all zero becomes the identity.
    void normalize(void)
    {
        const T size = length();
        if (size > T(0)) {
            this->setValues(x() / size, y() / size, z() / size, w() / size);
        } else {
            setIdentity();
        }
    }

    /// The opposite rotation, for length 1.
    QuaternionBase inverse(void) const { return QuaternionBase(-x(), -y(), -z(), w()); }
    void invert(void) { *this = inverse(); }

    /// This rotation after @p other.
    QuaternionBase operator*(const QuaternionBase &other) const
    {
        return QuaternionBase(w() * other.x() + x() * other.w() + y() * other.z() - z() * other.y(),
                              w() * other.y() + y() * other.w() + z() * other.x() - x() * other.z(),
                              w() * other.z() + z() * other.w() + x() * other.y() - y() * other.x(),
                              w() * other.w() - x() * other.x() - y() * other.y() - z() * other.z());
    }

    /// Becomes this rotation after @p other.
    void mult(const QuaternionBase &other) { *this = *this * other; }

    /// Rotates @p source, for length 1. Both may be the same vector.
    void multVec(const Vector<T, 3> &source, Vector<T, 3> &destination) const
    {
        const Vector<T, 3> axis(x(), y(), z());
        const Vector<T, 3> across = axis.cross(source) * T(2);
        destination = source + across * w() + axis.cross(across);
    }
};

typedef QuaternionBase<Real32> Quaternion;

OSG_END_NAMESPACE
