// SPDX-License-Identifier: MIT
#include <OpenSG/OSGColor.h>
#include <OpenSG/OSGMatrix.h>
#include <OpenSG/OSGQuaternion.h>
#include <OpenSG/OSGVector.h>

#include <gtest/gtest.h>

#include <cmath>
#include <sstream>
#include <type_traits>
#include <utility>

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
    for (const Real32 tiny : {0.0f, 1e-7f}) {
        Vec3f stays(tiny, 0, 0);
        stays.normalize();
        EXPECT_EQ(stays.x(), tiny);
    }
}

TEST(OSGVector, IsEqualUpToAMillionth)
{
    EXPECT_EQ(Vec3f(0, 0, 0), Vec3f(0, 5e-7f, 0));
    EXPECT_NE(Vec3f(0, 0, 0), Vec3f(0, 2e-6f, 0));
    EXPECT_EQ(Pnt3f(0, 0, 5e-7f), Pnt3f());
    EXPECT_NE(Pnt3f(0, 0, 2e-6f), Pnt3f());
    EXPECT_EQ(Color4f(0, 0, 0, 5e-7f), Color4f());
    EXPECT_NE(Color4f(0, 0, 0, 2e-6f), Color4f());
    EXPECT_EQ(Vec2f(INFINITY, 1), Vec2f(INFINITY, 1));
    EXPECT_NE(Vec2f(NAN, 1), Vec2f(NAN, 1));
    EXPECT_NE(Vec2s(1, 2), Vec2s(1, 3));
    EXPECT_FALSE(Vec3f(0, 0, 0).isSame(Vec3f(0, 5e-7f, 0)));
    EXPECT_TRUE(Vec3f(1, 2, 3).isSame(Vec3f(1, 2, 3)));
}

TEST(OSGQuaternion, AndMatricesAreEqualOnlyExactly)
{
    EXPECT_NE(Quaternion(), Quaternion(0, 5e-7f, 0, 1));
    Matrix matrix;
    matrix[1][2] = 5e-7f;
    EXPECT_NE(matrix, Matrix());
}

TEST(OSGVector, HasOperatorsAndSettersForEverything)
{
    const Vec3f a(1, 2, 3);
    const Vec3f b(4, 5, 6);
    EXPECT_EQ(a * b, 32);
    EXPECT_EQ(a % b, Vec3f(-3, 6, -3));
    EXPECT_EQ(2.0f * a, Vec3f(2, 4, 6));
    EXPECT_EQ(b / 2, Vec3f(2, 2.5, 3));
    EXPECT_EQ(Vec3f(7), Vec3f(7, 7, 7));
    EXPECT_EQ(Vec3f(1, 9, 3).maxValue(), 9);
    EXPECT_EQ(Vec3d(3, 4, 0).length(), 5);
    EXPECT_EQ(a.addToZero(), Pnt3f(1, 2, 3));

    Vec3f vector(2, 4, 6);
    vector /= 2;
    EXPECT_EQ(vector, a);
    vector.negate();
    EXPECT_EQ(vector, -a);
    vector.setValue(b.getValues());
    EXPECT_EQ(vector, b);
    vector.setNull();
    EXPECT_EQ(vector, Vec3f());

    std::ostringstream text;
    text << a << '/' << Pnt2f(4, 5.5) << '/' << Color3f(0, 1, 0) << '/' << Quaternion();
    EXPECT_EQ(text.str(), "1 2 3/4 5.5/0 1 0/0 0 0 1");
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
    Pnt3f point(a);
    point += Vec3f(1, 0, 0);
    EXPECT_EQ(point, Pnt3f(2, 2, 3));
    point -= Vec3f(2, 0, 0);
    EXPECT_EQ(point, Pnt3f(0, 2, 3));
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

TEST(OSGColor, IsSetAsAWhole)
{
    Color3f color;
    color.setRGB(0.1f, 0.2f, 0.3f);
    EXPECT_EQ(color, Color3f(0.1, 0.2, 0.3));
    EXPECT_EQ(color.getValuesRGB()[2], 0.3f);
    color.setValuesRGB(1, 0, 1);
    EXPECT_EQ(color, Color3f(1, 0, 1));
    Color4f more;
    more.setRGBA(1, 2, 3, 4);
    EXPECT_EQ(more.getValuesRGBA()[3], 4);
    more.setValuesRGBA(4, 3, 2, 1);
    EXPECT_EQ(more, Color4f(4, 3, 2, 1));

    Color4f first(-1);
    first.setRandom();
    for (UInt32 i = 0; i < 4; ++i) {
        EXPECT_GE(first[i], 0);
        EXPECT_LE(first[i], 1);
    }
    color.setRandom();
    Color3f other;
    other.setRandom();
    EXPECT_NE(color, other);
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
    EXPECT_EQ(q, Quaternion(0, 0, 0, 0));
}

TEST(OSGQuaternion, TurnsOneDirectionOntoAnother)
{
    for (const auto &[from, to] : {std::make_pair(Vec3f(1, 0, 0), Vec3f(0, 0, 2)),
                                   {Vec3f(3, 1, 2), Vec3f(-1, 5, 0.5)},
                                   {Vec3f(1, 0, 0), Vec3f(-1, 0, 0)},
                                   {Vec3f(0, 2, 0), Vec3f(0, -1, 0)},
                                   {Vec3f(0, 0, 1), Vec3f(0, 0, 1)}}) {
        Vec3f turned;
        Quaternion(from, to).multVec(from, turned);
        EXPECT_TRUE(turned.equals(to * (from.length() / to.length()), Near)) << from << ": " << turned;
    }
    EXPECT_EQ(Quaternion(Vec3f(), Vec3f(1, 0, 0)), Quaternion());
}

TEST(OSGQuaternion, GoesToAMatrixAndBack)
{
    for (const Quaternion &q : {Quaternion(Vec3f(1, 2, 3), 0.7f), Quaternion(Vec3f(1, 0.1, 0), 3.1f),
                                Quaternion(Vec3f(0, 1, 0.1), 3.1f), Quaternion(Vec3f(0.1, 0, 1), 3.1f)}) {
        Matrix matrix;
        matrix.setTranslate(1, 2, 3);
        q.getValue(matrix);
        EXPECT_EQ(matrix[3][0], 0);
        EXPECT_TRUE(Quaternion(matrix).equals(q, Near)) << q << ": " << Quaternion(matrix);
    }
}

TEST(OSGQuaternion, MultipliesFromBothSides)
{
    const Quaternion a(Vec3f(1, -2, 0.5), 0.8f);
    const Quaternion b(Vec3f(0.3f, 1, 3), -1.3f);
    Quaternion q(a);
    q *= b;
    EXPECT_EQ(q, a * b);
    q = a;
    q.multLeft(b);
    EXPECT_EQ(q, b * a);
}

TEST(OSGQuaternion, GoesFromOneToAnotherTheShorterWay)
{
    const Quaternion start(Vec3f(0, 0, 1), 0.4f);
    const Quaternion end(Vec3f(0, 0, 1), 1.4f);
    const Quaternion other(-end.x(), -end.y(), -end.z(), -end.w());
    const Quaternion middle(Vec3f(0, 0, 1), 0.65f);
    EXPECT_TRUE(Quaternion::slerp(start, end, 0.25f).equals(middle, Near));
    EXPECT_TRUE(Quaternion::slerp(start, other, 0.25f).equals(middle, Near));
    EXPECT_TRUE(Quaternion::slerp(start, end, 1).equals(end, Near));
    EXPECT_TRUE(Quaternion::slerp(start, start, 0.5f).equals(start, Near));
}

TEST(OSGQuaternion, TellsItsAngleInDegrees)
{
    Vec3f axis;
    Real32 angle = 0;
    Quaternion(Vec3f(0, 0, 1), 1.57079633f).getValueAsAxisDeg(axis, angle);
    EXPECT_EQ(axis, Vec3f(0, 0, 1));
    EXPECT_NEAR(angle, 90, 1e-4);
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
    EXPECT_TRUE(same.invertFrom(inverse));
    EXPECT_TRUE(same.equals(matrix, 1e-4f));
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

TEST(OSGMatrix, IsSetAsAWhole)
{
    const Matrix rows(1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16);
    Matrix matrix;
    matrix.setValue(1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16);
    EXPECT_EQ(matrix, rows);
    Matrix other;
    other.setValue(rows.getValues());
    EXPECT_EQ(other, rows);
    other.setIdentity();
    other.setValue(rows);
    EXPECT_EQ(other, rows);
    EXPECT_TRUE(rows.transposed(other));
    EXPECT_EQ(other[0], Vec4f(1, 2, 3, 4));

    matrix.setIdentity();
    matrix.setScale(3);
    EXPECT_EQ(matrix, Matrix(3, 0, 0, 0, 0, 3, 0, 0, 0, 0, 3, 0, 0, 0, 0, 1));
    matrix.setTransform(Vec3f(1, 2, 3));
    EXPECT_EQ(matrix, Matrix(1, 0, 0, 1, 0, 1, 0, 2, 0, 0, 1, 3, 0, 0, 0, 1));
    const Quaternion turn(Vec3f(1, 2, 3), 0.7f);
    matrix.setTransform(turn);
    EXPECT_EQ(matrix[3], Vec4f(0, 0, 0, 1));
    matrix.setTransform(Vec3f(1, 2, 3), turn);
    Matrix both;
    both.setTransform(Vec3f(1, 2, 3), turn, Vec3f(1, 1, 1));
    EXPECT_TRUE(matrix.equals(both, Near));

    std::ostringstream text;
    text << rows;
    EXPECT_EQ(text.str(), "1 2 3 4\n5 6 7 8\n9 10 11 12\n13 14 15 16\n");
}

TEST(OSGMatrix, DividesByThePerspective)
{
    const Matrix matrix(1, 0, 0, 1, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0.5, 0);
    Pnt3f point;
    matrix.multFullMatrixPnt(Pnt3f(1, 2, 4), point);
    EXPECT_EQ(point, Pnt3f(1, 1, 2));
    Matrix().multFullMatrixPnt(Pnt3f(1, 2, 4), point);
    EXPECT_EQ(point, Pnt3f(1, 2, 4));
}

TEST(OSGMatrix, GivesItsPartsBack)
{
    const Quaternion turn(Vec3f(1, -2, 0.5), 0.8f);
    const Quaternion axes(Vec3f(0.2, 1, 0.4), 0.5f);
    for (const auto &[factors, orientation] : {std::make_pair(Vec3f(1, 1, 1), Quaternion()),
                                               {Vec3f(2, 3, 4), Quaternion()},
                                               {Vec3f(5, 1, 9), axes},
                                               {Vec3f(-1, -2, -3), axes},
                                               {Vec3f(-1, 2, 3), axes},
                                               {Vec3f(2, 0, 3), axes},
                                               {Vec3f(0, 2, 0), axes},
                                               {Vec3f(0, 0, 0), Quaternion()},
                                               {Vec3f(1e-3f, 1, 1e3f), Quaternion()}}) {
        Matrix matrix;
        matrix.setTransform(Vec3f(1, 2, 3), turn, factors, orientation);
        Vec3f translation;
        Quaternion rotation;
        Vec3f scale;
        Quaternion scaleOrientation;
        matrix.getTransform(translation, rotation, scale, scaleOrientation);

        EXPECT_EQ(translation, Vec3f(1, 2, 3));
        EXPECT_NEAR(rotation.length(), 1, Near);
        EXPECT_NEAR(scaleOrientation.length(), 1, Near);
        Matrix again;
        again.setTransform(translation, rotation, scale, scaleOrientation);
        EXPECT_TRUE(again.equals(matrix, factors.length() * Near)) << factors << ":\n" << matrix << again;
    }
    Matrix plain;
    plain.setTransform(Vec3f(), turn, Vec3f(2, 3, 4));
    Vec3f translation;
    Quaternion rotation;
    Vec3f scale;
    Quaternion scaleOrientation;
    plain.getTransform(translation, rotation, scale, scaleOrientation);
    EXPECT_TRUE(rotation.equals(turn, Near)) << rotation;
    EXPECT_TRUE(scale.equals(Vec3f(2, 3, 4), Near)) << scale;
}

} // namespace
