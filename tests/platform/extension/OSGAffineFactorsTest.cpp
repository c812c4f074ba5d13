// SPDX-License-Identifier: MIT
#include <OSGAffineFactors.h>

#include <gtest/gtest.h>
#include <rapidcheck.h>

#include <limits>
#include <string>

namespace {

using namespace osg;

Matrix4d shearAndScale(const Vec3d &shear, const Vec3d &scale)
{
    Matrix4d sheared;
    sheared[1][0] = shear.x();
    sheared[2][0] = shear.y();
    sheared[2][1] = shear.z();
    Matrix4d scaled;
    scaled.setScale(scale);
    return sheared * scaled;
}

Matrix4d product(const AffineFactors &factors)
{
    Matrix4d rotation;
    rotation.setRotate(factors.rotation);
    return rotation * shearAndScale(factors.shear, factors.scale);
}

/// The greatest difference in columns 0 to 2, each measured by the length of the column.
Real64 difference(const Matrix4d &actual, const Matrix &expected)
{
    Real64 result = 0;
    for (UInt32 i = 0; i < 3; ++i) {
        const Vec3d column(expected[i][0], expected[i][1], expected[i][2]);
        const Vec3d other(actual[i][0], actual[i][1], actual[i][2]);
        const Real64 length = column.squareLength() > 0 ? column.length() : 1;
        result = std::max(result, (other - column).length() / length);
    }
    return result;
}

Matrix linear(Real32 r00, Real32 r01, Real32 r02, Real32 r10, Real32 r11, Real32 r12, Real32 r20, Real32 r21,
              Real32 r22)
{
    return Matrix(r00, r01, r02, 0, r10, r11, r12, 0, r20, r21, r22, 0, 0, 0, 0, 1);
}

Matrix diagonal(Real32 x, Real32 y, Real32 z)
{
    return linear(x, 0, 0, 0, y, 0, 0, 0, z);
}

void expectFactors(const Matrix &matrix, const Quaterniond &rotation, const Vec3d &shear, const Vec3d &scale)
{
    AffineFactors factors;
    ASSERT_TRUE(factors.setFactorsOf(matrix));
    EXPECT_TRUE(factors.rotation.equals(rotation, 1e-15))
        << factors.rotation.x() << ' ' << factors.rotation.y();
    EXPECT_TRUE(factors.shear.equals(shear, 1e-15));
    EXPECT_TRUE(factors.scale.equals(scale, 1e-15));
    EXPECT_LT(difference(product(factors), matrix), 1e-15);
}

Real64 number(int from, int to)
{
    return *rc::gen::inRange(from * 1000, to * 1000 + 1) / 1000.0;
}

/// Between 0.001 and 100, of either sign.
Real64 scaleFactor()
{
    const Real64 size = *rc::gen::inRange(1, 100001) / 1000.0;
    return *rc::gen::arbitrary<bool>() ? size : -size;
}

TEST(OSGAffineFactors, StartAsThoseOfTheIdentity)
{
    const AffineFactors factors;

    EXPECT_EQ(product(factors), Matrix4d());
}

TEST(OSGAffineFactors, AreThoseThatTheMatrixWasMadeOf)
{
    // A turn by 90 degrees about z after (x, y, z) -> (2x + 0.5 * 3y - 4z, 3y + 1.5 * 4z, 4z).
    const Matrix matrix = linear(0, -3, -6, 2, 1.5f, -4, 0, 0, 4);
    Quaterniond quarter;
    quarter.setValueAsAxisDeg(Vec3d(0, 0, 1), 90);

    expectFactors(matrix, quarter, Vec3d(0.5, -1, 1.5), Vec3d(2, 3, 4));
}

TEST(OSGAffineFactors, TranslationHasNoEffect)
{
    Matrix matrix = diagonal(2, 3, 4);
    matrix.setTranslate(7, 8, 9);

    expectFactors(matrix, Quaterniond(), Vec3d(), Vec3d(2, 3, 4));
}

TEST(OSGAffineFactors, MirrorImagesTurnAsLittleAsPossible)
{
    expectFactors(diagonal(-1, 2, 3), Quaterniond(), Vec3d(), Vec3d(-1, 2, 3));
    expectFactors(diagonal(1, -2, 3), Quaterniond(), Vec3d(), Vec3d(1, -2, 3));
    expectFactors(diagonal(1, 2, -3), Quaterniond(), Vec3d(), Vec3d(1, 2, -3));
    expectFactors(diagonal(-1, -2, -3), Quaterniond(), Vec3d(), Vec3d(-1, -2, -3));
}

TEST(OSGAffineFactors, TwoNegativeFactorsAreAHalfTurn)
{
    expectFactors(diagonal(1, -2, -3), Quaterniond(1, 0, 0, 0), Vec3d(), Vec3d(1, 2, 3));
    expectFactors(diagonal(-1, 2, -3), Quaterniond(0, 1, 0, 0), Vec3d(), Vec3d(1, 2, 3));
    expectFactors(diagonal(-1, -2, 3), Quaterniond(0, 0, 1, 0), Vec3d(), Vec3d(1, 2, 3));
}

TEST(OSGAffineFactors, MirroredShearKeepsItsSigns)
{
    // (x, y, z) -> (x - 0.5 * 2y + 0.25 * 3z, -2y + 0.75 * 3z, 3z): y is mirrored.
    expectFactors(linear(1, -1, 0.75f, 0, -2, 2.25f, 0, 0, 3), Quaterniond(), Vec3d(0.5, 0.25, 0.75),
                  Vec3d(1, -2, 3));
}

TEST(OSGAffineFactors, ColumnsOfZerosAreFactorsOfZero)
{
    expectFactors(diagonal(0, 0, 0), Quaterniond(), Vec3d(), Vec3d(0, 0, 0));
    expectFactors(diagonal(1, 0, 2), Quaterniond(), Vec3d(), Vec3d(1, 0, 2));
    expectFactors(diagonal(0, 3, 0), Quaterniond(), Vec3d(), Vec3d(0, 3, 0));
    expectFactors(linear(1, 0, 1, 0, 0, 0, 0, 0, 2), Quaterniond(), Vec3d(0, 0.5, 0), Vec3d(1, 0, 2));
}

TEST(OSGAffineFactors, FlatMatricesOfAnyDirectionHaveFactors)
{
    const Vec3d directions[] = {Vec3d(1, 0, 0),    Vec3d(0, 1, 0),     Vec3d(0, 0, 1),
                                Vec3d(0, 0, -1),   Vec3d(1, 2, -3),    Vec3d(-1, -1, 1),
                                Vec3d(-0.1, 5, 0), Vec3d(4, 0.3, 0.2), Vec3d(1, 1e-8, 0),
                                Vec3d(0, 1, 1e-8), Vec3d(1e-8, 0, -1), Vec3d(3e-8, 1, 2e-8)};
    for (const Vec3d &direction : directions) {
        for (UInt32 filled = 0; filled < 3; ++filled) {
            Matrix line = diagonal(0, 0, 0);
            Matrix plane = diagonal(0, 0, 0);
            for (UInt32 row = 0; row < 3; ++row) {
                line[filled][row] = static_cast<Real32>(direction[row]);
                plane[filled][row] = static_cast<Real32>(direction[row]);
                plane[(filled + 1) % 3][(row + 1) % 3] = static_cast<Real32>(2 * direction[row]);
            }
            for (const Matrix &matrix : {line, plane}) {
                AffineFactors factors;
                ASSERT_TRUE(factors.setFactorsOf(matrix));
                EXPECT_LT(difference(product(factors), matrix), 1e-14);
                EXPECT_NEAR(factors.rotation.length(), 1, 1e-15);
            }
        }
    }
}

TEST(OSGAffineFactors, FactorsOfZeroInAnyRotationComeBack)
{
    const bool passed = rc::check([] {
        AffineFactors made;
        made.rotation = Quaterniond(number(-1, 1), number(-1, 1), number(-1, 1), number(-1, 1));
        made.rotation.normalize();
        const auto factor = [] { return *rc::gen::arbitrary<bool>() ? scaleFactor() : 0.0; };
        made.scale = Vec3d(factor(), factor(), factor());
        const Matrix matrix = inPrecisionOf<Matrix>(product(made));

        AffineFactors factors;
        RC_ASSERT(factors.setFactorsOf(matrix));

        RC_ASSERT(difference(product(factors), matrix) < 1e-12);
    });
    EXPECT_TRUE(passed);
}

TEST(OSGAffineFactors, MirroredAndShearedMatricesComeBack)
{
    const bool passed = rc::check([] {
        AffineFactors made;
        made.rotation = Quaterniond(number(-1, 1), number(-1, 1), number(-1, 1), number(-1, 1));
        made.rotation.normalize();
        made.shear = Vec3d(number(-20, 20), number(-20, 20), number(-20, 20));
        made.scale = Vec3d(scaleFactor(), scaleFactor(), scaleFactor());
        const Matrix matrix = inPrecisionOf<Matrix>(product(made));

        AffineFactors factors;
        RC_ASSERT(factors.setFactorsOf(matrix));

        RC_ASSERT(difference(product(factors), matrix) < 1e-12);
        RC_ASSERT(std::abs(factors.rotation.length() - 1) < 1e-14);
        RC_ASSERT((matrix.det() < 0) == (factors.scale.x() * factors.scale.y() * factors.scale.z() < 0));
    });
    EXPECT_TRUE(passed);
}

TEST(OSGAffineFactors, NearlyFlatMatricesComeBack)
{
    const Matrix matrix = linear(1, 2, 3, 4, 8, 6, -7, -14 + 1e-6f, 1);

    AffineFactors factors;
    ASSERT_TRUE(factors.setFactorsOf(matrix));

    EXPECT_LT(difference(product(factors), matrix), 1e-12);
    EXPECT_NEAR(factors.rotation.length(), 1, 1e-15);
}

TEST(OSGAffineFactors, MatricesWithoutFactorsAreRefused)
{
    constexpr Real32 infinite = std::numeric_limits<Real32>::infinity();
    constexpr Real32 nan = std::numeric_limits<Real32>::quiet_NaN();
    Matrix projective;
    projective[2][3] = -1;
    Matrix divided;
    divided[3][3] = 2;
    Matrix far;
    far.setTranslate(0, infinite, 0);
    const Matrix refused[] = {projective,
                              divided,
                              far,
                              diagonal(1, nan, 1),
                              diagonal(1, 1, infinite),
                              linear(1, 1, 0, 0, 0, 0, 0, 0, 1),
                              linear(1, 2, 0, 2, 4, 0, 3, 6, 1),
                              linear(1, 0, 1, 0, 1, 1, 0, 0, 0),
                              linear(0.1f, 0.2f, 0.4f, 0.2f, 0.4f, 0.8f, 0.3f, 0.6f, 1.2f),
                              diagonal(1e-39f, 1, 1),
                              linear(3e38f, 0, 0, 3e38f, 1, 0, 0, 0, 1)};
    for (const Matrix &matrix : refused) {
        AffineFactors factors;
        factors.rotation = Quaterniond(1, 2, 3, 4);
        factors.shear = Vec3d(5, 6, 7);
        factors.scale = Vec3d(8, 9, 10);

        EXPECT_FALSE(factors.setFactorsOf(matrix)) << &matrix - refused;

        EXPECT_EQ(factors.rotation, Quaterniond(1, 2, 3, 4));
        EXPECT_EQ(factors.shear, Vec3d(5, 6, 7));
        EXPECT_EQ(factors.scale, Vec3d(8, 9, 10));
    }
}

} // namespace
