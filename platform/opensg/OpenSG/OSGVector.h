// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGBaseTypes.h>

#include <array>
#include <cmath>

OSG_BEGIN_NAMESPACE

/// @a N numbers in a row: what vectors, points, colours and quaternions have in common. All zero at first.
template <class T, UInt32 N>
class Tuple
{
public:
    typedef T ValueType;
    static constexpr UInt32 Size = N;

    Tuple(void) = default;

    /// One argument per component.
    template <class... Values, class = std::enable_if_t<(sizeof...(Values) == N && N > 1) &&
                                                        (std::is_arithmetic_v<Values> && ...)>>
    Tuple(Values... values)
        : _values{static_cast<T>(values)...}
    {}

    T &operator[](UInt32 index) { return _values[index]; }
    const T &operator[](UInt32 index) const { return _values[index]; }

    /// The components, one after the other.
    T *getValues(void) { return _values.data(); }
    const T *getValues(void) const { return _values.data(); }

    template <class... Values>
    void setValues(Values... values)
    {
        static_assert(sizeof...(Values) == N);
        _values = {static_cast<T>(values)...};
    }

    /// Exact comparison of the components.
    bool operator==(const Tuple &other) const { return _values == other._values; }
    bool operator!=(const Tuple &other) const { return _values != other._values; }

    /// True if no component differs by more than @p tolerance.
    bool equals(const Tuple &other, T tolerance) const
    {
        for (UInt32 i = 0; i < N; ++i) {
            if (!(std::abs(_values[i] - other._values[i]) <= tolerance)) {
                return false;
            }
        }
        return true;
    }

protected:
    std::array<T, N> _values{};
};

/// A direction or an extent; any other numbers that belong together.
template <class T, UInt32 N>
class Vector : public Tuple<T, N>
{
public:
    using Tuple<T, N>::Tuple;

    T &x(void) { return (*this)[0]; }
    T &y(void) { return (*this)[1]; }
    T &z(void) { return component<2>(); }
    T &w(void) { return component<3>(); }
    T x(void) const { return (*this)[0]; }
    T y(void) const { return (*this)[1]; }
    T z(void) const { return component<2>(); }
    T w(void) const { return component<3>(); }

    Vector &operator+=(const Vector &other)
    {
        for (UInt32 i = 0; i < N; ++i) {
            (*this)[i] += other[i];
        }
        return *this;
    }

    Vector &operator-=(const Vector &other)
    {
        for (UInt32 i = 0; i < N; ++i) {
            (*this)[i] -= other[i];
        }
        return *this;
    }

    Vector &operator*=(T factor)
    {
        for (T &value : this->_values) {
            value *= factor;
        }
        return *this;
    }

    Vector operator+(const Vector &other) const { return Vector(*this) += other; }
    Vector operator-(const Vector &other) const { return Vector(*this) -= other; }
    Vector operator*(T factor) const { return Vector(*this) *= factor; }
    Vector operator-(void) const { return *this * T(-1); }

    T dot(const Vector &other) const
    {
        T sum = 0;
        for (UInt32 i = 0; i < N; ++i) {
            sum += (*this)[i] * other[i];
        }
        return sum;
    }

    /// The cross product; three components only.
    Vector cross(const Vector &other) const
    {
        static_assert(N == 3);
        return Vector(y() * other.z() - z() * other.y(), z() * other.x() - x() * other.z(),
                      x() * other.y() - y() * other.x());
    }

    T squareLength(void) const { return dot(*this); }
    T length(void) const { return std::sqrt(squareLength()); }

    /// Scales to length 1; a vector of length 0 stays.
    void normalize(void)
    {
        const T size = length();
        if (size > T(0)) {
            *this *= T(1) / size;
        }
    }

private:
    template <UInt32 Index>
    T &component(void)
    {
        static_assert(Index < N);
        return (*this)[Index];
    }

    template <UInt32 Index>
    T component(void) const
    {
        static_assert(Index < N);
        return (*this)[Index];
    }
};

/// A position. The difference of two is a Vector.
template <class T, UInt32 N>
class Point : public Tuple<T, N>
{
public:
    using Tuple<T, N>::Tuple;

    /// The point at @p offset from the origin.
    explicit Point(const Vector<T, N> &offset)
    {
        for (UInt32 i = 0; i < N; ++i) {
            (*this)[i] = offset[i];
        }
    }

    T &x(void) { return (*this)[0]; }
    T &y(void) { return (*this)[1]; }
    T x(void) const { return (*this)[0]; }
    T y(void) const { return (*this)[1]; }

    T &z(void)
    {
        static_assert(N > 2);
        return (*this)[2];
    }

    T z(void) const
    {
        static_assert(N > 2);
        return (*this)[2];
    }

    /// The vector from the origin to the point.
    Vector<T, N> subZero(void) const
    {
        Vector<T, N> result;
        for (UInt32 i = 0; i < N; ++i) {
            result[i] = (*this)[i];
        }
        return result;
    }

    Point operator+(const Vector<T, N> &offset) const { return Point(subZero() + offset); }
    Point operator-(const Vector<T, N> &offset) const { return Point(subZero() - offset); }
    Vector<T, N> operator-(const Point &other) const { return subZero() - other.subZero(); }
};

typedef Vector<Real32, 2> Vec2f;
typedef Vector<Real32, 3> Vec3f;
typedef Vector<Real32, 4> Vec4f;

typedef Point<Real32, 2> Pnt2f;
typedef Point<Real32, 3> Pnt3f;
typedef Point<Real32, 4> Pnt4f;

OSG_END_NAMESPACE
