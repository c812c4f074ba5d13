// SPDX-License-Identifier: MIT
#include "OSGAffineFactors.h"

#include <array>
#include <cmath>
#include <limits>

OSG_BEGIN_NAMESPACE

namespace {

typedef std::array<Vec3d, 3> Columns;

bool isAffine(const Matrix &matrix)
{
    const Real32 *const values = matrix.getValues();
    return std::all_of(values, values + Matrix::Size, [](Real32 value) { return std::isfinite(value); }) &&
           matrix[0][3] == 0 && matrix[1][3] == 0 && matrix[2][3] == 0 && matrix[3][3] == 1;
}

/// A matrix as rotation (or its mirror image) times an upper triangular matrix.
struct Triangle
{
    Columns axes;
    Real64 upper[3][3] = {};
    bool flat[3] = {};

    /// False if a column other than zero depends on those before it, or adds too little or too much.
    bool setColumns(const Columns &columns)
    {
        for (UInt32 i = 0; i < 3; ++i) {
            flat[i] = columns[i].squareLength() == 0;
            if (!flat[i] && !addAxis(i, columns[i])) {
                return false;
            }
        }
        fillFlatAxes();
        return true;
    }

    Real64 handedness(void) const { return axes[0].cross(axes[1]).dot(axes[2]); }

private:
    bool addAxis(UInt32 column, const Vec3d &source)
    {
        constexpr Real64 dependent = 1e-12;

        Vec3d rest(source);
        // Once more, since the first pass leaves rounding errors that count where little is left.
        for (UInt32 pass = 0; pass < 2; ++pass) {
            for (UInt32 i = 0; i < column; ++i) {
                const Real64 part = axes[i].dot(rest);
                upper[i][column] += part;
                rest -= axes[i] * part;
            }
        }
        const Real64 length = rest.length();
        upper[column][column] = length;
        axes[column] = rest * (1 / length);
        return length > dependent * source.length() && length >= std::numeric_limits<Real32>::min() &&
               length <= std::numeric_limits<Real32>::max();
    }

    /// Gives columns of zeros axes that make a rotation with the others.
    void fillFlatAxes(void)
    {
        const auto count = std::count(std::begin(flat), std::end(flat), true);
        if (count == 3) {
            axes = {Vec3d(1, 0, 0), Vec3d(0, 1, 0), Vec3d(0, 0, 1)};
            return;
        }
        if (count == 2) {
            const UInt32 known =
                static_cast<UInt32>(std::find(std::begin(flat), std::end(flat), false) - flat);
            const UInt32 next = (known + 1) % 3;
            axes[next] = acrossOf(axes[known], next);
            axes[(known + 2) % 3] = axes[known].cross(axes[next]);
            return;
        }
        for (UInt32 i = 0; i < 3; ++i) {
            if (flat[i]) {
                axes[i] = axes[(i + 1) % 3].cross(axes[(i + 2) % 3]);
            }
        }
    }

    /// A unit vector across @p axis, near the coordinate axis @p wanted where that is possible.
    static Vec3d acrossOf(const Vec3d &axis, UInt32 wanted)
    {
        constexpr Real64 tooNear = 0.9;

        const UInt32 start = std::abs(axis[wanted]) < tooNear ? wanted : (wanted + 1) % 3;
        Vec3d result;
        result[start] = 1;
        result -= axis * axis[start];
        result.normalize();
        return result;
    }
};

/// The quaternion of three axes that make a rotation.
Quaterniond quatFromAxes(const Columns &axes)
{
    const Real64 trace = axes[0][0] + axes[1][1] + axes[2][2];
    Quaterniond result;
    if (trace > 0) {
        result.setValueAsQuat(axes[1][2] - axes[2][1], axes[2][0] - axes[0][2], axes[0][1] - axes[1][0],
                              1 + trace);
    } else {
        // Starts from the largest component, since small ones are divided by.
        UInt32 i = axes[1][1] > axes[0][0] ? 1 : 0;
        i = axes[2][2] > axes[i][i] ? 2 : i;
        const UInt32 j = (i + 1) % 3;
        const UInt32 k = (i + 2) % 3;
        result[i] = 1 + axes[i][i] - axes[j][j] - axes[k][k];
        result[j] = axes[i][j] + axes[j][i];
        result[k] = axes[i][k] + axes[k][i];
        result[3] = axes[j][k] - axes[k][j];
    }
    result.normalize();
    return result;
}

/// Turns the mirror image that @p axes are into a rotation; the scale factors of the axes turned round get
/// the other sign.
Vec3d unmirror(Columns &axes)
{
    constexpr std::array<std::array<Real64, 3>, 4> candidates = {
        {{-1, 1, 1}, {1, -1, 1}, {1, 1, -1}, {-1, -1, -1}}};
    const auto trace = [&](const std::array<Real64, 3> &signs) {
        return signs[0] * axes[0][0] + signs[1] * axes[1][1] + signs[2] * axes[2][2];
    };
    const auto &best = *std::max_element(candidates.begin(), candidates.end(),
                                         [&](const auto &a, const auto &b) { return trace(a) < trace(b); });
    for (UInt32 i = 0; i < 3; ++i) {
        axes[i] *= best[i];
    }
    return Vec3d(best[0], best[1], best[2]);
}

/// Factors of shear and scale: the scale factors are on the diagonal, each column of the shear has one of
/// them.
Real64 shearOf(const Triangle &triangle, UInt32 row, UInt32 column)
{
    return triangle.flat[column] ? 0 : triangle.upper[row][column] / triangle.upper[column][column];
}

} // namespace

bool AffineFactors::setFactorsOf(const Matrix &matrix)
{
    if (!isAffine(matrix)) {
        return false;
    }
    Triangle triangle;
    const auto column = [&](UInt32 i) { return Vec3d(matrix[i][0], matrix[i][1], matrix[i][2]); };
    if (!triangle.setColumns({column(0), column(1), column(2)})) {
        return false;
    }
    const Vec3d signs = triangle.handedness() < 0 ? unmirror(triangle.axes) : Vec3d(1, 1, 1);
    for (UInt32 i = 0; i < 3; ++i) {
        scale[i] = signs[i] * triangle.upper[i][i];
    }
    // The rows of the triangle have the signs, and so have the scale factors it is divided by.
    shear[0] = signs[0] * signs[1] * shearOf(triangle, 0, 1);
    shear[1] = signs[0] * signs[2] * shearOf(triangle, 0, 2);
    shear[2] = signs[1] * signs[2] * shearOf(triangle, 1, 2);
    rotation = quatFromAxes(triangle.axes);
    return true;
}

OSG_END_NAMESPACE
