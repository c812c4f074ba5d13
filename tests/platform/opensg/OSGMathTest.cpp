// SPDX-License-Identifier: MIT
#include <OpenSG/OSGColor.h>
#include <OpenSG/OSGMatrix.h>
#include <OpenSG/OSGQuaternion.h>
#include <OpenSG/OSGVector.h>

#include <gtest/gtest.h>

#include <cmath>
#include <type_traits>

namespace {

using namespace osg;

static_assert(std::is_same_v<Vec3f, Vector<float, 3u>>);
static_assert(std::is_same_v<Quaternion, QuaternionBase<float>>);
static_assert(sizeof(Vec3f) == 12 && sizeof(Quaternion) == 16 && sizeof(Matrix) == 64);
static_assert(!std::is_convertible_v<Vec3f, Pnt3f> && !std::is_convertible_v<Pnt3f, Vec3f>);

constexpr Real32 Near = 1e-5f;
const Real32 Half = std::sqrt(0.5f);

TEST(OSGVector, Computes)
{
    const Vec3f a(1, 2, 3);
    const Vec3f b(4, 5, 6);

    EXPECT_EQ(Vec3f(), Vec3f(0, 0, 0));
    EXPECT_EQ(a + b, Vec3f(5, 7, 9));
    EXPECT_EQ(b - a, Vec3f(3, 3, 3));
    EXPECT_EQ(a * 2, Vec3f(2, 4, 6));
    EXPECT_EQ(-a, Vec3f(-1, -2, -3));
    EXPECT_EQ(a.dot(b), 32);
    EXPECT_EQ(a.cross(b), Vec3f(-3, 6, -3));
    EXPECT_EQ(a.squareLength(), 14);
    EXPECT_EQ(Vec3f(3, 4, 0).length(), 5);
    EXPECT_NE(a, b);
    EXPECT_EQ(a[2], 3);
    EXPECT_EQ(Vec4f(1, 2, 3, 4).w(), 4);
}

TEST(OSGVector, Normalizes)
{
    Vec3f vector(0, 3, 4);
    vector.normalize();
    EXPECT_TRUE(vector.equals(Vec3f(0, 0.6, 0.8), Near));
    Vec3f zero;
    zero.normalize();
    EXPECT_EQ(zero, Vec3f());
}

TEST(OSGVector, ComparesWithATolerance)
{
    EXPECT_TRUE(Vec2f(1, 2).equals(Vec2f(1.5, 2), 0.5f));
    EXPECT_FALSE(Vec2f(1, 2).equals(Vec2f(1.75, 2), 0.5f));
    EXPECT_FALSE(Vec2f(1, 2).equals(Vec2f(NAN, 2), 0.5f));
}

TEST(OSGVector, SetsItsComponents)
{
    Vec3f vector;
    vector.setValues(1, 2, 3);
    vector.y() = 5;
    EXPECT_EQ(vector, Vec3f(1, 5, 3));
    EXPECT_EQ(vector.getValues()[1], 5);
}

TEST(OSGPoint, MovesByVectors)
{
    const Pnt3f a(1, 2, 3);
    EXPECT_EQ(a + Vec3f(1, 1, 1), Pnt3f(2, 3, 4));
    EXPECT_EQ(a - Vec3f(1, 1, 1), Pnt3f(0, 1, 2));
    EXPECT_EQ(Pnt3f(4, 4, 4) - a, Vec3f(3, 2, 1));
    EXPECT_EQ(a.subZero(), Vec3f(1, 2, 3));
    EXPECT_EQ(Pnt3f(Vec3f(1, 2, 3)), a);
    EXPECT_EQ(a.z(), 3);
}

TEST(OSGColor, HasNamedComponents)
{
    Color3f color(0.1, 0.2, 0.3);
    color.green() = 1;
    EXPECT_EQ(color, Color3f(0.1, 1, 0.3));
    const Color3f seen(color);
    EXPECT_EQ(seen.red(), 0.1f);
    EXPECT_EQ(seen.green(), 1);
    EXPECT_EQ(seen.blue(), 0.3f);
    const Color4f more(0.1, 0.2, 0.3, 0.4);
    EXPECT_EQ(more.red(), 0.1f);
    EXPECT_EQ(more.green(), 0.2f);
    EXPECT_EQ(more.blue(), 0.3f);
    EXPECT_EQ(more.alpha(), 0.4f);
}

TEST(OSGQuaternion, IsMadeFromAxisAndAngle)
{
    Quaternion q;
    EXPECT_EQ(q, Quaternion(0, 0, 0, 1));
    EXPECT_EQ(q, Quaternion::identity());
    q.setValueAsAxisDeg(Vec3f(0, 0, 2), 90);
    EXPECT_TRUE(q.equals(Quaternion(0, 0, Half, Half), Near));
    EXPECT_TRUE(Quaternion(Vec3f(0, 1, 0), 3.14159265f).equals(Quaternion(0, 1, 0, 0), Near));
    q.setValueAsAxisRad(Vec3f(), 1);
    EXPECT_EQ(q, Quaternion());
    q.setValueAsQuat(1, 2, 3, 4);
    EXPECT_EQ(q, Quaternion(1, 2, 3, 4));

    Vec3f axis;
    Real32 angle = 0;
    Quaternion(Vec3f(0, 3, 4), 1.5f).getValueAsAxisRad(axis, angle);
    EXPECT_TRUE(axis.equals(Vec3f(0, 0.6, 0.8), Near));
    EXPECT_NEAR(angle, 1.5f, Near);
    Quaternion().getValueAsAxisRad(axis, angle);
    EXPECT_EQ(axis, Vec3f(0, 0, 1));
    EXPECT_EQ(angle, 0);
}

TEST(OSGQuaternion, RotatesAndCombines)
{
    const Quaternion aboutZ(Vec3f(0, 0, 1), 1.57079633f);
    const Quaternion aboutX(Vec3f(1, 0, 0), 1.57079633f);
    Vec3f vector;

    aboutZ.multVec(Vec3f(1, 0, 0), vector);
    EXPECT_TRUE(vector.equals(Vec3f(0, 1, 0), Near));
    (aboutX * aboutZ).multVec(Vec3f(1, 0, 0), vector);
    EXPECT_TRUE(vector.equals(Vec3f(0, 0, 1), Near)) << "first about z";
    Quaternion q = aboutX;
    q.mult(aboutZ);
    EXPECT_EQ(q, aboutX * aboutZ);
    q.mult(q.inverse());
    EXPECT_TRUE(q.equals(Quaternion(), Near));
    q = aboutZ;
    q.invert();
    q.multVec(Vec3f(1, 0, 0), vector);
    EXPECT_TRUE(vector.equals(Vec3f(0, -1, 0), Near));
    vector = Vec3f(1, 0, 0);
    aboutZ.multVec(vector, vector);
    EXPECT_TRUE(vector.equals(Vec3f(0, 1, 0), Near));
}

TEST(OSGQuaternion, ProductRotatesLikeOneAfterTheOther)
{
    const Quaternion a(Vec3f(1, -2, 0.5), 0.8f);
    const Quaternion b(Vec3f(0.3f, 1, 3), -1.3f);
    Vec3f step;
    b.multVec(Vec3f(3, 1, 2), step);
    a.multVec(step, step);
    Vec3f atOnce;
    (a * b).multVec(Vec3f(3, 1, 2), atOnce);
    EXPECT_TRUE(atOnce.equals(step, Near));
}

TEST(OSGQuaternion, Normalizes)
{
    Quaternion q(0, 0, 3, 4);
    EXPECT_EQ(q.length(), 5);
    q.normalize();
    EXPECT_TRUE(q.equals(Quaternion(0, 0, 0.6f, 0.8f), Near));
    q = Quaternion(0, 0, 0, 0);
    q.normalize();
    EXPECT_EQ(q, Quaternion());
}

Pnt3f transformed(const Matrix &matrix, const Pnt3f &point)
{
    Pnt3f result;
    matrix.multMatrixPnt(point, result);
    return result;
}

TEST(OSGMatrix, IsWrittenByRowsAndKeptByColumns)
{
    const Matrix matrix(1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16);
    EXPECT_EQ(matrix[1], Vec4f(2, 6, 10, 14));
    EXPECT_EQ(matrix[3][0], 4);
    EXPECT_EQ(matrix.getValues()[1], 5);
    EXPECT_EQ(Matrix(), Matrix(1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1));
    EXPECT_EQ(Matrix::identity(), Matrix());
    Matrix transposed(matrix);
    transposed.transpose();
    EXPECT_EQ(transposed[0], Vec4f(1, 2, 3, 4));
    EXPECT_NE(transposed, matrix);
}

TEST(OSGMatrix, TransformsPointsAndDirections)
{
    Matrix matrix;
    matrix.setTransform(Vec3f(1, 2, 3), Quaternion(0, 0, Half, Half), Vec3f(2, 1, 1));
    EXPECT_TRUE(transformed(matrix, Pnt3f(1, 0, 0)).equals(Pnt3f(1, 4, 3), Near));
    Vec3f direction(1, 0, 0);
    matrix.multMatrixVec(direction, direction);
    EXPECT_TRUE(direction.equals(Vec3f(0, 2, 0), Near));
}

TEST(OSGMatrix, SetsPartsAlone)
{
    Matrix matrix;
    matrix.setTranslate(Vec3f(1, 2, 3));
    matrix.setScale(2, 3, 4);
    EXPECT_EQ(matrix, Matrix(2, 0, 0, 1, 0, 3, 0, 2, 0, 0, 4, 3, 0, 0, 0, 1));
    matrix.setRotate(Quaternion());
    EXPECT_EQ(matrix, Matrix(1, 0, 0, 1, 0, 1, 0, 2, 0, 0, 1, 3, 0, 0, 0, 1));
    matrix.setScale(Vec3f(5, 6, 7));
    EXPECT_EQ(matrix[2], Vec4f(0, 0, 7, 0));
}

TEST(OSGMatrix, RotatesLikeItsQuaternion)
{
    const Quaternion q(Vec3f(1, -2, 0.5), 0.8f);
    Matrix matrix;
    matrix.setRotate(q);
    Vec3f byMatrix;
    Vec3f byQuaternion;
    matrix.multMatrixVec(Vec3f(3, 1, 2), byMatrix);
    q.multVec(Vec3f(3, 1, 2), byQuaternion);
    EXPECT_TRUE(byMatrix.equals(byQuaternion, Near));
}

TEST(OSGMatrix, MultipliesInOrder)
{
    Matrix translation;
    translation.setTranslate(1, 0, 0);
    Matrix scale;
    scale.setScale(2, 2, 2);

    EXPECT_EQ(transformed(translation * scale, Pnt3f(1, 1, 1)), Pnt3f(3, 2, 2)) << "scaled first";
    Matrix matrix(translation);
    matrix.mult(scale);
    EXPECT_EQ(matrix, translation * scale);
    matrix = translation;
    matrix.multLeft(scale);
    EXPECT_EQ(matrix, scale * translation);
    matrix = scale;
    matrix.mult(matrix);
    EXPECT_EQ(matrix, scale * scale);
}

TEST(OSGMatrix, Inverts)
{
    const Matrix matrix(0, 2, 1, 4, 1, 0, 3, 5, 2, 1, 0, 6, 0, 0, 0, 1);
    Matrix inverse;
    EXPECT_TRUE(matrix.inverse(inverse));
    EXPECT_TRUE((matrix * inverse).equals(Matrix(), Near));
    EXPECT_TRUE((inverse * matrix).equals(Matrix(), Near));
    EXPECT_NEAR(matrix.det(), 13, Near);
    Matrix same(matrix);
    EXPECT_TRUE(same.invert());
    EXPECT_EQ(same, inverse);
    EXPECT_TRUE(same.inverseFrom(matrix));
    EXPECT_EQ(same, inverse);
}

TEST(OSGMatrix, WithoutInverseStays)
{
    Matrix flat;
    flat.setScale(1, 0, 1);
    const Matrix before(flat);
    EXPECT_FALSE(flat.invert());
    EXPECT_EQ(flat, before);
    EXPECT_EQ(flat.det(), 0);
    Matrix result;
    EXPECT_FALSE(flat.inverse(result));
    EXPECT_EQ(result, Matrix());
    flat.setScale(1, NAN, 1);
    EXPECT_FALSE(flat.inverse(result));
}

} // namespace
