// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGVector.h>

OSG_BEGIN_NAMESPACE

template <class T>
class TransformationMatrix;

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

    /// The shortest turn that makes @p from point along @p to.
    QuaternionBase(const Vector<T, 3> &from, const Vector<T, 3> &to) { setValue(from, to); }

    /// The rotation of @p matrix, which must have no scale.
    explicit QuaternionBase(const TransformationMatrix<T> &matrix) { setValue(matrix); }

    static QuaternionBase identity(void) { return QuaternionBase(); }

    T x(void) const { return (*this)[0]; }
    T y(void) const { return (*this)[1]; }
    T z(void) const { return (*this)[2]; }
    T w(void) const { return (*this)[3]; }

    void setIdentity(void) { this->setValues(T(0), T(0), T(0), T(1)); }
    void setValueAsQuat(T x, T y, T z, T w) { this->setValues(x, y, z, w); }

    /// The rotation by @p angle radians about @p axis; the identity for an axis of length 0.
    void setValueAsAxisRad(const Vector<T, 3> &axis, T angle)
    {
        if (!(axis.squareLength() > T(0))) {
            setIdentity();
            return;
        }
        const T half = angle / T(2);
        const T factor = std::sin(half) / axis.length();
        this->setValues(axis.x() * factor, axis.y() * factor, axis.z() * factor, std::cos(half));
    }

    /// The shortest turn that makes @p from point along @p to. Opposite directions leave the axis open: it is
    /// across the shorter components of @p from. The identity if one of them has length 0.
    void setValue(Vector<T, 3> from, Vector<T, 3> to)
    {
        from.normalize();
        to.normalize();
        const Vector<T, 3> across = from.cross(to);
        const T cosine = from.dot(to);
        if (cosine > T(Eps) - T(1)) {
            this->setValues(across.x(), across.y(), across.z(), T(1) + cosine);
        } else {
            const bool isAlongX = std::abs(from.x()) > std::abs(from.y());
            const Vector<T, 3> axis = from.cross(isAlongX ? Vector<T, 3>(0, 1, 0) : Vector<T, 3>(1, 0, 0));
            this->setValues(axis.x(), axis.y(), axis.z(), T(0));
        }
        normalize();
    }

    /// The rotation of @p matrix, which must have no scale.
    void setValue(const TransformationMatrix<T> &matrix);

    /// Sets @p matrix to this rotation alone.
    void getValue(TransformationMatrix<T> &matrix) const;

    /// The same with degrees.
    void setValueAsAxisDeg(const Vector<T, 3> &axis, T angle) { setValueAsAxisRad(axis, angle * Degree); }

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

    void getValueAsAxisDeg(Vector<T, 3> &axis, T &angle) const
    {
        getValueAsAxisRad(axis, angle);
        angle /= Degree;
    }

    T length(void) const { return std::sqrt(x() * x() + y() * y() + z() * z() + w() * w()); }

    /// Scales to length 1; all zero stays.
    void normalize(void)
    {
        const T size = length();
        if (size > T(0)) {
            this->setValues(x() / size, y() / size, z() / size, w() / size);
        }
    }

    /// Exact comparison of the components.
    bool operator==(const QuaternionBase &other) const { return this->isSame(other); }
    bool operator!=(const QuaternionBase &other) const { return !(*this == other); }

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
    QuaternionBase &operator*=(const QuaternionBase &other) { return *this = *this * other; }

    /// Becomes @p other after this rotation.
    void multLeft(const QuaternionBase &other) { *this = other * *this; }

    /// The rotation between @p from, at 0, and @p to, at 1, the shorter way round.
    static QuaternionBase slerp(const QuaternionBase &from, const QuaternionBase &to, T position)
    {
        T cosine = 0;
        for (UInt32 i = 0; i < 4; ++i) {
            cosine += from[i] * to[i];
        }
        const T sign = cosine < T(0) ? T(-1) : T(1);
        const T angle = std::acos(std::min(std::abs(cosine), T(1)));
        const bool isNear = angle < T(Eps);
        const T start = isNear ? T(1) - position : std::sin((T(1) - position) * angle) / std::sin(angle);
        const T end = sign * (isNear ? position : std::sin(position * angle) / std::sin(angle));
        QuaternionBase result;
        for (UInt32 i = 0; i < 4; ++i) {
            result[i] = from[i] * start + to[i] * end;
        }
        return result;
    }

    /// Rotates @p source, for length 1. Both may be the same vector.
    void multVec(const Vector<T, 3> &source, Vector<T, 3> &destination) const
    {
        const Vector<T, 3> axis(x(), y(), z());
        const Vector<T, 3> across = axis.cross(source) * T(2);
        destination = source + across * w() + axis.cross(across);
    }

private:
    static constexpr T Degree = T(3.14159265358979323846 / 180.0);
};

typedef QuaternionBase<Real32> Quaternion;

OSG_END_NAMESPACE
