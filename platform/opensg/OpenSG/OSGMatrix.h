// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGQuaternion.h>
#include <OpenSG/OSGVector.h>

#include <utility>

OSG_BEGIN_NAMESPACE

/// A 4x4 matrix that transforms column vectors. Element [column][row]; the translation is column 3. The
/// identity at first.
template <class T>
class TransformationMatrix
{
public:
    typedef T ValueType;
    typedef Vector<T, 3> VectorType3f;
    typedef Point<T, 3> PointType3f;
    typedef QuaternionBase<T> QuaternionType;
    static constexpr UInt32 Size = 16;

    TransformationMatrix(void) { setIdentity(); }

    /// Elements row by row, as matrices are written.
    TransformationMatrix(T r00, T r01, T r02, T r03, T r10, T r11, T r12, T r13, T r20, T r21, T r22, T r23,
                         T r30, T r31, T r32, T r33)
        : _columns{Column(r00, r10, r20, r30), Column(r01, r11, r21, r31), Column(r02, r12, r22, r32),
                   Column(r03, r13, r23, r33)}
    {}

    static TransformationMatrix identity(void) { return TransformationMatrix(); }

    Vector<T, 4> &operator[](UInt32 column) { return _columns[column]; }
    const Vector<T, 4> &operator[](UInt32 column) const { return _columns[column]; }

    /// The 16 elements, column by column.
    T *getValues(void) { return _columns[0].getValues(); }
    const T *getValues(void) const { return _columns[0].getValues(); }

    void setIdentity(void)
    {
        for (UInt32 column = 0; column < 4; ++column) {
            for (UInt32 row = 0; row < 4; ++row) {
                _columns[column][row] = column == row ? T(1) : T(0);
            }
        }
    }

    /// Sets the translation; the other elements stay.
    void setTranslate(const Vector<T, 3> &translation)
    {
        setTranslate(translation.x(), translation.y(), translation.z());
    }

    void setTranslate(T x, T y, T z)
    {
        _columns[3][0] = x;
        _columns[3][1] = y;
        _columns[3][2] = z;
    }

    /// Sets the diagonal of the upper 3x3 part; the other elements stay.
    void setScale(const Vector<T, 3> &factors)
    {
        for (UInt32 i = 0; i < 3; ++i) {
            _columns[i][i] = factors[i];
        }
    }

    void setScale(T x, T y, T z) { setScale(Vector<T, 3>(x, y, z)); }

    /// Sets the upper 3x3 part to the rotation @p q of length 1; the other elements stay.
    void setRotate(const QuaternionBase<T> &q)
    {
        const T x = q.x(), y = q.y(), z = q.z(), w = q.w();
        const T rotation[3][3] = {
            {T(1) - T(2) * (y * y + z * z), T(2) * (x * y + z * w), T(2) * (x * z - y * w)},
            {T(2) * (x * y - z * w), T(1) - T(2) * (x * x + z * z), T(2) * (y * z + x * w)},
            {T(2) * (x * z + y * w), T(2) * (y * z - x * w), T(1) - T(2) * (x * x + y * y)}};
        for (UInt32 column = 0; column < 3; ++column) {
            for (UInt32 row = 0; row < 3; ++row) {
                _columns[column][row] = rotation[column][row];
            }
        }
    }

    /// The matrix that scales, then rotates, then translates.
    void setTransform(const Vector<T, 3> &translation, const QuaternionBase<T> &rotation,
                      const Vector<T, 3> &factors)
    {
        setIdentity();
        setRotate(rotation);
        for (UInt32 column = 0; column < 3; ++column) {
            _columns[column] *= factors[column];
        }
        setTranslate(translation);
    }

    /// Becomes this * @p other: a vector is transformed by @p other first.
    void mult(const TransformationMatrix &other)
    {
        TransformationMatrix result;
        for (UInt32 column = 0; column < 4; ++column) {
            result[column] = timesColumn(other[column]);
        }
        *this = result;
    }

    /// Becomes @p other * this.
    void multLeft(const TransformationMatrix &other)
    {
        TransformationMatrix result(other);
        result.mult(*this);
        *this = result;
    }

    TransformationMatrix operator*(const TransformationMatrix &other) const
    {
        TransformationMatrix result(*this);
        result.mult(other);
        return result;
    }

    /// Transforms a position of an affine matrix.
    void multMatrixPnt(const Point<T, 3> &source, Point<T, 3> &destination) const
    {
        const Vector<T, 4> result = timesColumn(Column(source.x(), source.y(), source.z(), T(1)));
        destination = Point<T, 3>(result.x(), result.y(), result.z());
    }

    /// Transforms a direction: the translation has no effect.
    void multMatrixVec(const Vector<T, 3> &source, Vector<T, 3> &destination) const
    {
        const Vector<T, 4> result = timesColumn(Column(source.x(), source.y(), source.z(), T(0)));
        destination = Vector<T, 3>(result.x(), result.y(), result.z());
    }

    void transpose(void)
    {
        for (UInt32 column = 0; column < 4; ++column) {
            for (UInt32 row = 0; row < column; ++row) {
                std::swap(_columns[column][row], _columns[row][column]);
            }
        }
    }

    T det(void) const
    {
        TransformationMatrix triangle(*this);
        return triangle.eliminate(nullptr);
    }

    /// Inverts in place. False, and no change, for a matrix without an inverse.
    bool invert(void)
    {
        TransformationMatrix result;
        if (!inverse(result)) {
            return false;
        }
        *this = result;
        return true;
    }

    /// Writes the inverse to @p result; false, and no change, if there is none.
    bool inverse(TransformationMatrix &result) const
    {
        TransformationMatrix work(*this);
        TransformationMatrix inverted;
        const T determinant = work.eliminate(&inverted);
        if (determinant == T(0) || !std::isfinite(determinant)) {
            return false;
        }
        result = inverted;
        return true;
    }

    /// Becomes the inverse of @p other; false, and no change, if there is none.
    bool inverseFrom(const TransformationMatrix &other) { return other.inverse(*this); }

    /// Exact comparison of the elements.
    bool operator==(const TransformationMatrix &other) const { return _columns == other._columns; }
    bool operator!=(const TransformationMatrix &other) const { return _columns != other._columns; }

    /// True if no element differs by more than @p tolerance.
    bool equals(const TransformationMatrix &other, T tolerance) const
    {
        for (UInt32 column = 0; column < 4; ++column) {
            if (!_columns[column].equals(other[column], tolerance)) {
                return false;
            }
        }
        return true;
    }

private:
    typedef Vector<T, 4> Column;

    Column timesColumn(const Column &vector) const
    {
        return _columns[0] * vector[0] + _columns[1] * vector[1] + _columns[2] * vector[2] +
               _columns[3] * vector[3];
    }

    /// Gauss-Jordan elimination by columns with pivoting. Does the same steps to @p companion, which so
    /// becomes the inverse if it was the identity. Returns the determinant; 0 ends it early.
    T eliminate(TransformationMatrix *companion)
    {
        T determinant = 1;
        for (UInt32 row = 0; row < 4; ++row) {
            UInt32 pivot = row;
            for (UInt32 column = row + 1; column < 4; ++column) {
                if (std::abs(_columns[column][row]) > std::abs(_columns[pivot][row])) {
                    pivot = column;
                }
            }
            const T value = _columns[pivot][row];
            if (value == T(0)) {
                return T(0);
            }
            determinant *= pivot == row ? value : -value;
            clearRow(row, pivot, value, companion);
        }
        return determinant;
    }

    void clearRow(UInt32 row, UInt32 pivot, T value, TransformationMatrix *companion)
    {
        const T scale = T(1) / value;
        for (TransformationMatrix *matrix : {this, companion}) {
            if (matrix != nullptr) {
                std::swap(matrix->_columns[row], matrix->_columns[pivot]);
                matrix->_columns[row] *= scale;
            }
        }
        for (UInt32 column = 0; column < 4; ++column) {
            const T factor = _columns[column][row];
            if (column == row || factor == T(0)) {
                continue;
            }
            for (TransformationMatrix *matrix : {this, companion}) {
                if (matrix != nullptr) {
                    matrix->_columns[column] -= matrix->_columns[row] * factor;
                }
            }
        }
    }

    std::array<Column, 4> _columns;
};

typedef TransformationMatrix<Real32> Matrix;

OSG_END_NAMESPACE
