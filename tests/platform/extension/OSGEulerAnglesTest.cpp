// SPDX-License-Identifier: MIT
#include <OSGEulerAngles.h>

#include <gtest/gtest.h>
#include <rapidcheck.h>

#include <cmath>
#include <functional>
#include <string>

namespace {

using namespace osg;

constexpr Real64 Pi = 3.14159265358979323846;
constexpr Real64 Degree = Pi / 180;

Quaterniond about(const Vec3d &axis, Real64 angle)
{
    return Quaterniond(axis, angle);
}

Vec3d turned(const Quaterniond &rotation, const Vec3d &vector)
{
    Vec3d result;
    rotation.multVec(vector, result);
    return result;
}

/// How far apart two rotations are: the greatest way that one of the axes differs.
Real64 distance(const Quaterniond &a, const Quaterniond &b)
{
    Real64 result = 0;
    for (const Vec3d &axis : {Vec3d(1, 0, 0), Vec3d(0, 1, 0), Vec3d(0, 0, 1)})
        result = std::max(result, (turned(a, axis) - turned(b, axis)).length());
    return result;
}

/// An order, the product that it stands for, and its middle axis.
struct Order
{
    const char *name;
    std::function<Quaterniond(const Quaterniond &x, const Quaterniond &y, const Quaterniond &z)> product;
    UInt32 first;
    UInt32 middle;
    UInt32 last;
};

void PrintTo(const Order &order, std::ostream *stream)
{
    *stream << order.name;
}

using Q = Quaterniond;
const Order orders[] = {
    {"XYZ", [](const Q &x, const Q &y, const Q &z) { return z * y * x; }, 0, 1, 2},
    {"XZY", [](const Q &x, const Q &y, const Q &z) { return y * z * x; }, 0, 2, 1},
    {"YXZ", [](const Q &x, const Q &y, const Q &z) { return z * x * y; }, 1, 0, 2},
    {"YZX", [](const Q &x, const Q &y, const Q &z) { return x * z * y; }, 1, 2, 0},
    {"ZXY", [](const Q &x, const Q &y, const Q &z) { return y * x * z; }, 2, 0, 1},
    {"ZYX", [](const Q &x, const Q &y, const Q &z) { return x * y * z; }, 2, 1, 0},
};

/// Angles that an order can give back: the middle one at most 89 degrees away from 0.
Vec3d unlockedAngles(const Order &order)
{
    Vec3d degrees;
    degrees[order.first] = *rc::gen::inRange(-17999, 18000) / 100.0;
    degrees[order.middle] = *rc::gen::inRange(-8900, 8901) / 100.0;
    degrees[order.last] = *rc::gen::inRange(-17999, 18000) / 100.0;
    return degrees * Degree;
}

class OSGEulerAnglesOrderTest : public testing::TestWithParam<Order>
{};

TEST_P(OSGEulerAnglesOrderTest, RotationIsTheProductOfTheTurns)
{
    const Vec3d angles(0.3, -0.8, 1.9);

    const Quaterniond rotation = quatFromEuler(angles, GetParam().name);

    const Quaterniond product = GetParam().product(about(Vec3d(1, 0, 0), 0.3), about(Vec3d(0, 1, 0), -0.8),
                                                   about(Vec3d(0, 0, 1), 1.9));
    EXPECT_LT(distance(rotation, product), 1e-15);
    EXPECT_NEAR(rotation.length(), 1, 1e-15);
}

TEST_P(OSGEulerAnglesOrderTest, AnglesComeBack)
{
    const bool passed = rc::check([] {
        const Vec3d angles = unlockedAngles(GetParam());

        const Vec3d result = eulerFromQuat(quatFromEuler(angles, GetParam().name), GetParam().name);

        RC_ASSERT((result - angles).length() < 1e-12);
    });
    EXPECT_TRUE(passed);
}

TEST_P(OSGEulerAnglesOrderTest, AnglesOfAnyRotationGiveIt)
{
    const bool passed = rc::check([] {
        const auto part = [] { return *rc::gen::inRange(-100, 101) / 50.0; };
        const Quaterniond rotation(part(), part(), part(), part());
        Quaterniond unit(rotation);
        unit.normalize();

        const Vec3d angles = eulerFromQuat(rotation, GetParam().name);

        RC_ASSERT(distance(quatFromEuler(angles, GetParam().name), unit) < 2e-6);
        RC_ASSERT(std::abs(angles[GetParam().first]) <= Pi);
        RC_ASSERT(std::abs(angles[GetParam().middle]) <= Pi / 2);
        RC_ASSERT(std::abs(angles[GetParam().last]) <= Pi);
    });
    EXPECT_TRUE(passed);
}

TEST_P(OSGEulerAnglesOrderTest, InGimbalLockTheLastAngleIsZero)
{
    for (const Real64 middle : {Pi / 2, -Pi / 2, Pi / 2 - 1e-8, 1e-7 - Pi / 2}) {
        Vec3d angles;
        angles[GetParam().first] = 0.5;
        angles[GetParam().middle] = middle;
        angles[GetParam().last] = 1.2;
        const Quaterniond rotation = quatFromEuler(angles, GetParam().name);

        const Vec3d result = eulerFromQuat(rotation, GetParam().name);

        EXPECT_EQ(result[GetParam().last], 0);
        EXPECT_NEAR(result[GetParam().middle], middle, 1e-6);
        EXPECT_LT(distance(quatFromEuler(result, GetParam().name), rotation), 2e-6);
    }
}

TEST_P(OSGEulerAnglesOrderTest, NextToGimbalLockAnglesStillGiveTheRotation)
{
    for (const Real64 away : {2e-6, 1e-5, 1e-4, 1e-3, 1e-2}) {
        Vec3d angles;
        angles[GetParam().first] = -2;
        angles[GetParam().middle] = Pi / 2 - away;
        angles[GetParam().last] = 0.7;
        const Quaterniond rotation = quatFromEuler(angles, GetParam().name);

        const Vec3d result = eulerFromQuat(rotation, GetParam().name);

        EXPECT_NEAR(result[GetParam().last], 0.7, 1e-9);
        EXPECT_LT(distance(quatFromEuler(result, GetParam().name), rotation), 1e-9);
    }
}

INSTANTIATE_TEST_SUITE_P(Orders, OSGEulerAnglesOrderTest, testing::ValuesIn(orders),
                         [](const auto &info) { return std::string(info.param.name); });

TEST(OSGEulerAngles, TurnsFollowEachOtherAboutFixedAxes)
{
    const Vec3d angles(90 * Degree, 0, 90 * Degree);

    // y goes to z, which stays under the turn about z.
    EXPECT_TRUE(turned(quatFromEuler(angles, "XYZ"), Vec3d(0, 1, 0)).equals(Vec3d(0, 0, 1), 1e-15));
    // y goes to -x, which stays under the turn about x.
    EXPECT_TRUE(turned(quatFromEuler(angles, "ZYX"), Vec3d(0, 1, 0)).equals(Vec3d(-1, 0, 0), 1e-15));
}

TEST(OSGEulerAngles, OtherTextsMeanXYZ)
{
    const Vec3d angles(0.3, -0.8, 1.9);
    const Quaterniond expected = quatFromEuler(angles, "XYZ");

    for (const char *text : {"", "xyz", "ZYX ", "XXY", "XY", "ZYXZ", "ZZZ"}) {
        EXPECT_EQ(quatFromEuler(angles, text), expected) << text;
        EXPECT_EQ(eulerFromQuat(expected, text), eulerFromQuat(expected, "XYZ")) << text;
    }
}

TEST(OSGEulerAngles, LengthOfTheQuaternionHasNoEffect)
{
    const Quaterniond rotation = quatFromEuler(Vec3d(0.3, -0.8, 1.9), "YXZ");
    const Quaterniond scaled(-3 * rotation.x(), -3 * rotation.y(), -3 * rotation.z(), -3 * rotation.w());

    EXPECT_TRUE(eulerFromQuat(scaled, "YXZ").equals(Vec3d(0.3, -0.8, 1.9), 1e-14));
    EXPECT_EQ(eulerFromQuat(Quaterniond(0, 0, 0, 0), "YXZ"), Vec3d(0, 0, 0));
}

} // namespace
