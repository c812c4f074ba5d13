// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGQuaternion.h>
#include <OpenSG/OSGVector.h>

#include <limits>
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

    /// Elements row by row.
    void setValue(T r00, T r01, T r02, T r03, T r10, T r11, T r12, T r13, T r20, T r21, T r22, T r23, T r30,
                  T r31, T r32, T r33)
    {
        *this = TransformationMatrix(r00, r01, r02, r03, r10, r11, r12, r13, r20, r21, r22, r23, r30, r31,
                                     r32, r33);
    }

    /// Elements column by column, as getValues() has them.
    void setValue(const T *values) { std::copy_n(values, UInt32(Size), getValues()); }
    void setValue(const TransformationMatrix &other) { *this = other; }

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
    void setScale(T factor) { setScale(factor, factor, factor); }

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

    /// The same with scale factors along axes that @p scaleOrientation turns.
    void setTransform(const Vector<T, 3> &translation, const QuaternionBase<T> &rotation,
                      const Vector<T, 3> &factors, const QuaternionBase<T> &scaleOrientation)
    {
        TransformationMatrix back;
        back.setRotate(scaleOrientation.inverse());
        setTransform(translation, rotation * scaleOrientation, factors);
        mult(back);
    }

    /// The matrix that only translates, or only rotates.
    void setTransform(const Vector<T, 3> &translation)
    {
        setIdentity();
        setTranslate(translation);
    }

    void setTransform(const QuaternionBase<T> &rotation)
    {
        setIdentity();
        setRotate(rotation);
    }

    void setTransform(const Vector<T, 3> &translation, const QuaternionBase<T> &rotation)
    {
        setTransform(rotation);
        setTranslate(translation);
    }

    /// Writes what setTransform() makes this matrix of. A mirror image has three negative scale factors. The
    /// last row has no part in it.
    void getTransform(Vector<T, 3> &translation, QuaternionBase<T> &rotation, Vector<T, 3> &factors,
                      QuaternionBase<T> &scaleOrientation) const
    {
        // In double precision, since small factors are the roots of differences.
        TransformationMatrix<Real64> matrix;
        std::copy_n(getValues(), UInt32(Size), matrix.getValues());
        Vector<Real64, 3> wideTranslation;
        QuaternionBase<Real64> wideRotation;
        Vector<Real64, 3> wideFactors;
        QuaternionBase<Real64> wideOrientation;
        matrix.decompose(wideTranslation, wideRotation, wideFactors, wideOrientation);
        std::copy_n(wideTranslation.getValues(), 3, translation.getValues());
        std::copy_n(wideRotation.getValues(), 4, rotation.getValues());
        std::copy_n(wideFactors.getValues(), 3, factors.getValues());
        std::copy_n(wideOrientation.getValues(), 4, scaleOrientation.getValues());
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

    /// Transforms a position, with perspective.
    void multFullMatrixPnt(const Point<T, 3> &source, Point<T, 3> &destination) const
    {
        const Vector<T, 4> result = timesColumn(Column(source.x(), source.y(), source.z(), T(1)));
        const T scale = result.w() != T(0) ? T(1) / result.w() : T(1);
        destination = Point<T, 3>(result.x() * scale, result.y() * scale, result.z() * scale);
    }

    void transpose(void)
    {
        for (UInt32 column = 0; column < 4; ++column) {
            for (UInt32 row = 0; row < column; ++row) {
                std::swap(_columns[column][row], _columns[row][column]);
            }
        }
    }

    /// Writes the transpose to @p result; always true.
    bool transposed(TransformationMatrix &result) const
    {
        result = *this;
        result.transpose();
        return true;
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
    bool invertFrom(const TransformationMatrix &other) { return inverseFrom(other); }

    /// Exact comparison of the elements.
    bool operator==(const TransformationMatrix &other) const
    {
        return std::equal(_columns.begin(), _columns.end(), other._columns.begin(),
                          [](const Column &a, const Column &b) { return a.isSame(b); });
    }
    bool operator!=(const TransformationMatrix &other) const { return !(*this == other); }

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

    /// The rows, a line each.
    friend std::ostream &operator<<(std::ostream &stream, const TransformationMatrix &matrix)
    {
        TransformationMatrix rows;
        matrix.transposed(rows);
        return stream << rows[0] << '\n' << rows[1] << '\n' << rows[2] << '\n' << rows[3] << '\n';
    }

private:
    template <class>
    friend class TransformationMatrix;

    typedef Vector<T, 4> Column;

    Vector<T, 3> column3(UInt32 index) const
    {
        const Column &column = _columns[index];
        return Vector<T, 3>(column.x(), column.y(), column.z());
    }

    void setColumn3(UInt32 index, const Vector<T, 3> &values)
    {
        std::copy_n(values.getValues(), 3, _columns[index].getValues());
    }

    void decompose(Vector<T, 3> &translation, QuaternionBase<T> &rotation, Vector<T, 3> &factors,
                   QuaternionBase<T> &scaleOrientation) const
    {
        translation = column3(3);
        // The axes that the matrix leaves perpendicular are those of its square.
        TransformationMatrix square;
        for (UInt32 i = 0; i < 3; ++i) {
            for (UInt32 j = 0; j < 3; ++j) {
                square[i][j] = column3(i).dot(column3(j));
            }
        }
        TransformationMatrix axes;
        square.diagonalize(axes);
        scaleOrientation.setValue(axes);
        TransformationMatrix images;
        for (UInt32 i = 0; i < 3; ++i) {
            Vector<T, 3> image;
            multMatrixVec(axes.column3(i), image);
            factors[i] = image.length();
            images.setColumn3(i, image);
        }
        // What is smaller than the rounding errors that the largest may have come with is none.
        const T smallest = factors.maxValue() * T(4) * std::numeric_limits<Real32>::epsilon();
        const T sign = column3(0).cross(column3(1)).dot(column3(2)) < T(0) ? T(-1) : T(1);
        for (UInt32 i = 0; i < 3; ++i) {
            factors[i] = factors[i] > smallest ? sign * factors[i] : T(0);
            images.setColumn3(i, factors[i] != T(0) ? images.column3(i) / factors[i] : Vector<T, 3>());
        }
        images.fillFlatColumns(factors);
        rotation.setValue(images);
        rotation = rotation * scaleOrientation.inverse();
    }

    /// Turns the symmetric upper 3x3 part by Jacobi rotations until only its diagonal is left; @p axes, the
    /// identity before, turns along.
    void diagonalize(TransformationMatrix &axes)
    {
        constexpr UInt32 sweeps = 16;
        for (UInt32 sweep = 0; sweep < sweeps; ++sweep) {
            for (UInt32 p = 0; p < 2; ++p) {
                for (UInt32 q = p + 1; q < 3; ++q) {
                    const T limit = std::numeric_limits<T>::epsilon() *
                                    (std::abs(_columns[p][p]) + std::abs(_columns[q][q]));
                    if (!(std::abs(_columns[q][p]) > limit)) {
                        continue;
                    }
                    // At most an eighth of a turn, so that axes keep their places.
                    const T difference = _columns[p][p] - _columns[q][q];
                    const T sign = difference < T(0) ? T(-1) : T(1);
                    const T angle = std::atan2(sign * T(2) * _columns[q][p], sign * difference) / T(2);
                    const T cosine = std::cos(angle);
                    const T sine = std::sin(angle);
                    TransformationMatrix turn;
                    turn[p][p] = turn[q][q] = cosine;
                    turn[p][q] = sine;
                    turn[q][p] = -sine;
                    TransformationMatrix back;
                    turn.transposed(back);
                    *this = back * *this * turn;
                    axes.mult(turn);
                }
            }
        }
    }

    /// Gives the columns of a rotation that factors of 0 have lost directions across the others.
    void fillFlatColumns(const Vector<T, 3> &factors)
    {
        bool known[] = {factors[0] != T(0), factors[1] != T(0), factors[2] != T(0)};
        for (UInt32 i = 0; i < 3; ++i) {
            if (known[i]) {
                continue;
            }
            Vector<T, 3> farthest;
            for (UInt32 k = 0; k < 3; ++k) {
                Vector<T, 3> rest;
                rest[k] = T(1);
                for (UInt32 j = 0; j < 3; ++j) {
                    rest -= known[j] ? column3(j) * column3(j)[k] : Vector<T, 3>();
                }
                farthest = rest.squareLength() > farthest.squareLength() ? rest : farthest;
            }
            farthest.normalize();
            setColumn3(i, farthest);
            known[i] = true;
            const bool isLast = known[0] && known[1] && known[2];
            if (isLast && column3(0).cross(column3(1)).dot(column3(2)) < T(0)) {
                setColumn3(i, -farthest);
            }
        }
    }

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

template <class T>
void QuaternionBase<T>::setValue(const TransformationMatrix<T> &matrix)
{
    // Starts from the largest component, since the others are divided by it.
    const T diagonal[] = {matrix[0][0], matrix[1][1], matrix[2][2]};
    const T trace = diagonal[0] + diagonal[1] + diagonal[2];
    if (trace > T(0)) {
        this->setValues(matrix[1][2] - matrix[2][1], matrix[2][0] - matrix[0][2], matrix[0][1] - matrix[1][0],
                        T(1) + trace);
    } else {
        const UInt32 i = static_cast<UInt32>(std::max_element(diagonal, diagonal + 3) - diagonal);
        const UInt32 j = (i + 1) % 3;
        const UInt32 k = (i + 2) % 3;
        (*this)[i] = T(1) + diagonal[i] - diagonal[j] - diagonal[k];
        (*this)[j] = matrix[i][j] + matrix[j][i];
        (*this)[k] = matrix[i][k] + matrix[k][i];
        (*this)[3] = matrix[j][k] - matrix[k][j];
    }
    normalize();
}

template <class T>
void QuaternionBase<T>::getValue(TransformationMatrix<T> &matrix) const
{
    matrix.setTransform(*this);
}

typedef TransformationMatrix<Real32> Matrix;

OSG_END_NAMESPACE
