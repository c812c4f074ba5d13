// SPDX-License-Identifier: MIT
#pragma once

#include <cmath>
#include <cstdint>
#include <ostream>

// A scene graph of another make than the bundled one, with as much of the 1.8 interface as the library uses.
// It has one aspect, says nothing about visibility, and ends the process wherever 1.8 crashes.

namespace osg {

typedef std::int8_t Int8;
typedef std::uint8_t UInt8;
typedef std::int16_t Int16;
typedef std::uint16_t UInt16;
typedef std::int32_t Int32;
typedef std::uint32_t UInt32;
typedef std::int64_t Int64;
typedef std::uint64_t UInt64;
typedef float Real32;
typedef double Real64;
typedef char Char8;
typedef UInt64 BitVector;

template <class T, UInt32 size>
class Vector
{
public:
    Vector() = default;
    Vector(T x, T y, T z)
        : _values{x, y, z}
    {}

    const T &operator[](UInt32 i) const { return _values[i]; }
    T &operator[](UInt32 i) { return _values[i]; }

    bool operator==(const Vector &other) const
    {
        bool same = true;
        for (UInt32 i = 0; i < size; ++i)
            same = same && std::abs(_values[i] - other._values[i]) < T(1e-6);
        return same;
    }
    bool operator!=(const Vector &other) const { return !(*this == other); }

private:
    T _values[size] = {};
};

typedef Vector<Real32, 3> Vec3f;

/// A rotation; the one that turns nothing at first.
template <class T>
class QuaternionBase
{
public:
    QuaternionBase() = default;
    QuaternionBase(const Vector<T, 3> &axis, T radians)
        : _real(std::cos(radians / 2))
        , _imaginary(axis[0] * std::sin(radians / 2), axis[1] * std::sin(radians / 2),
                     axis[2] * std::sin(radians / 2))
    {}

    T x() const { return _imaginary[0]; }
    T y() const { return _imaginary[1]; }
    T z() const { return _imaginary[2]; }
    T w() const { return _real; }

private:
    T _real = 1;
    Vector<T, 3> _imaginary;
};

typedef QuaternionBase<Real32> Quaternion;

template <class T, UInt32 size>
std::ostream &operator<<(std::ostream &stream, const Vector<T, size> &vector)
{
    for (UInt32 i = 0; i < size; ++i)
        stream << vector[i] << ' ';
    return stream;
}

template <class T>
std::ostream &operator<<(std::ostream &stream, const QuaternionBase<T> &rotation)
{
    return stream << rotation.x() << ' ' << rotation.y() << ' ' << rotation.z() << ' ' << rotation.w();
}

} // namespace osg
