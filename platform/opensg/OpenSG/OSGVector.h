// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGBaseTypes.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <ostream>

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

    /// All components the same.
    template <class Value, class = std::enable_if_t<(N > 1) && std::is_arithmetic_v<Value>>>
    explicit Tuple(Value value)
    {
        _values.fill(static_cast<T>(value));
    }

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

    /// Sets the components to the @a N numbers from @p values on.
    void setValue(const T *values) { std::copy_n(values, N, _values.begin()); }

    void setNull(void) { _values.fill(T(0)); }

    /// Equal up to Eps in every component, integers exactly.
    bool operator==(const Tuple &other) const
    {
        if constexpr (std::is_floating_point_v<T>) {
            return isSame(other) || equals(other, T(Eps));
        } else {
            return isSame(other);
        }
    }
    bool operator!=(const Tuple &other) const { return !(*this == other); }

    /// Exact comparison of the components.
    bool isSame(const Tuple &other) const { return _values == other._values; }

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

    /// The components, separated by spaces.
    friend std::ostream &operator<<(std::ostream &stream, const Tuple &tuple)
    {
        const Char8 *separator = "";
        for (const T value : tuple._values) {
            stream << separator << value;
            separator = " ";
        }
        return stream;
    }

protected:
    std::array<T, N> _values{};
};

template <class T, UInt32 N>
class Point;

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

    Vector &operator/=(T divisor)
    {
        for (T &value : this->_values) {
            value /= divisor;
        }
        return *this;
    }

    Vector operator+(const Vector &other) const { return Vector(*this) += other; }
    Vector operator-(const Vector &other) const { return Vector(*this) -= other; }
    Vector operator*(T factor) const { return Vector(*this) *= factor; }
    friend Vector operator*(T factor, const Vector &vector) { return vector * factor; }
    Vector operator/(T divisor) const { return Vector(*this) /= divisor; }
    Vector operator-(void) const { return *this * T(-1); }
    void negate(void) { *this *= T(-1); }

    /// The dot product and the cross product.
    T operator*(const Vector &other) const { return dot(other); }
    Vector operator%(const Vector &other) const { return cross(other); }

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

    /// Scales to length 1; a vector that is not longer than Eps stays.
    void normalize(void)
    {
        const T size = length();
        if (size > T(Eps)) {
            *this *= T(1) / size;
        }
    }

    /// The largest component.
    T maxValue(void) const { return *std::max_element(this->_values.begin(), this->_values.end()); }

    /// The point at this offset from the origin.
    Point<T, N> addToZero(void) const { return Point<T, N>(*this); }

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

    Point &operator+=(const Vector<T, N> &offset) { return *this = *this + offset; }
    Point &operator-=(const Vector<T, N> &offset) { return *this = *this - offset; }
    Point operator+(const Vector<T, N> &offset) const { return Point(subZero() + offset); }
    Point operator-(const Vector<T, N> &offset) const { return Point(subZero() - offset); }
    Vector<T, N> operator-(const Point &other) const { return subZero() - other.subZero(); }
};

typedef Vector<Int16, 2> Vec2s;

typedef Vector<Real64, 3> Vec3d;

typedef Vector<Real32, 2> Vec2f;
typedef Vector<Real32, 3> Vec3f;
typedef Vector<Real32, 4> Vec4f;

typedef Point<Real32, 2> Pnt2f;
typedef Point<Real32, 3> Pnt3f;
typedef Point<Real32, 4> Pnt4f;

OSG_END_NAMESPACE
