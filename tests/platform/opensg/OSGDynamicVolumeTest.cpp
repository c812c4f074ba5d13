// SPDX-License-Identifier: MIT
#include <OpenSG/OSGDynamicVolume.h>

#include <gtest/gtest.h>

#include <utility>

namespace {

using namespace osg;

TEST(OSGDynamicVolume, NewVolumeIsEmptyAndValid)
{
    const DynamicVolume volume;
    EXPECT_TRUE(volume.isEmpty());
    EXPECT_TRUE(volume.isValid());
    EXPECT_FALSE(volume.isStatic());
    EXPECT_FALSE(volume.intersect(Pnt3f(0, 0, 0)));
}

TEST(OSGDynamicVolume, GrowsAroundPointsAndVolumes)
{
    DynamicVolume volume;
    volume.extendBy(Pnt3f(1, 2, 3));
    EXPECT_EQ(volume.getMin(), Pnt3f(1, 2, 3));
    EXPECT_EQ(volume.getMax(), Pnt3f(1, 2, 3));
    volume.extendBy(Pnt3f(-1, 4, 3));
    EXPECT_EQ(volume.getMin(), Pnt3f(-1, 2, 3));
    EXPECT_EQ(volume.getMax(), Pnt3f(1, 4, 3));
    EXPECT_EQ(volume.getCenter(), Pnt3f(0, 3, 3));

    DynamicVolume other;
    other.extendBy(volume);
    other.extendBy(DynamicVolume());
    EXPECT_TRUE(other == volume);
    Pnt3f min;
    Pnt3f max;
    other.getBounds(min, max);
    EXPECT_EQ(min, Pnt3f(-1, 2, 3));
    EXPECT_EQ(max, Pnt3f(1, 4, 3));
    other.setEmpty();
    EXPECT_TRUE(other == DynamicVolume());
}

TEST(OSGDynamicVolume, HoldsItsCorners)
{
    DynamicVolume volume;
    volume.setBounds(Pnt3f(0, 0, 0), Pnt3f(1, 1, 1));
    EXPECT_TRUE(volume.intersect(Pnt3f(0, 1, 0.5)));
    EXPECT_FALSE(volume.intersect(Pnt3f(0, 1.5, 0.5)));
    EXPECT_FALSE(volume.intersect(Pnt3f(0, 1, -0.5)));
}

TEST(OSGDynamicVolume, IntersectsWithWhatItHasSpaceInCommonWith)
{
    DynamicVolume volume;
    volume.setBounds(Pnt3f(0, 0, 0), Pnt3f(1, 1, 1));
    DynamicVolume other;
    EXPECT_FALSE(volume.intersect(other));
    EXPECT_FALSE(other.intersect(volume));
    for (const auto &[start, intersects] :
         {std::make_pair(0.5f, true), {1.0f, false}, {2.0f, false}, {-0.5f, true}, {-1.0f, false}}) {
        for (UInt32 axis = 0; axis < 3; ++axis) {
            Pnt3f min;
            min[axis] = start;
            other.setBounds(min, min + Vec3f(1, 1, 1));
            EXPECT_EQ(volume.intersect(other), intersects) << axis << ": " << start;
        }
    }
}

TEST(OSGDynamicVolume, IsItsOwnInstance)
{
    DynamicVolume volume;
    volume.getInstance().extendBy(Pnt3f(1, 2, 3));
    volume.getInstance().extendBy(Pnt3f(3, 2, 3));
    volume.instanceChanged();
    Pnt3f center;
    volume.getCenter(center);
    EXPECT_EQ(center, Pnt3f(2, 2, 3));
}

TEST(OSGDynamicVolume, TransformsToTheBoxAroundItsCorners)
{
    DynamicVolume volume;
    volume.setBounds(Pnt3f(0, 0, 0), Pnt3f(2, 1, 1));
    volume.setValid();
    Matrix matrix;
    matrix.setTransform(Vec3f(0, 0, 5), Quaternion(0, 0, 0.70710678f, 0.70710678f), Vec3f(1, 1, 1));

    volume.transform(matrix);

    EXPECT_TRUE(volume.getMin().equals(Pnt3f(-1, 0, 5), 1e-5f));
    EXPECT_TRUE(volume.getMax().equals(Pnt3f(0, 2, 6), 1e-5f));
    EXPECT_TRUE(volume.isValid());

    DynamicVolume empty;
    empty.transform(matrix);
    EXPECT_TRUE(empty.isEmpty());
}

TEST(OSGDynamicVolume, ComparesFlagsToo)
{
    DynamicVolume volume;
    volume.setValid(false);
    EXPECT_TRUE(volume != DynamicVolume());
    volume.setValid();
    EXPECT_FALSE(volume != DynamicVolume());
    volume.setStatic();
    EXPECT_TRUE(volume != DynamicVolume());
    volume.setStatic(false);
    volume.setBounds(Pnt3f(0, 0, 0), Pnt3f(0, 0, 0));
    EXPECT_TRUE(volume != DynamicVolume());
}

} // namespace
