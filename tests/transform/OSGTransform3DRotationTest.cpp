// SPDX-License-Identifier: MIT
#include "ksTransformFixture.h"

namespace {

using osg::Quaternion;

const Quaternion target(0.5f, 0.5f, -0.5f, 0.5f);
constexpr osg::BitVector bothMasks =
    osg::Transform3D::RotationFieldMask | osg::Transform3D::EulerRotationFieldMask;

class OSGTransform3DRotationTest : public ksTransformFixture
{
protected:
    ksRecords edit() const { return ksRecords().change(recorder.idOf(transform), bothMasks); }

    osg::Transform3DPtr transform{ownTransformOf(node)};
};

} // namespace

TEST_F(OSGTransform3DRotationTest, WritesBothFormsOfTheRotationInEveryOrder)
{
    for (const char *order : {"XYZ", "XZY", "YXZ", "YZX", "ZXY", "ZYX"}) {
        transform->setEulerRotationOrder(order);
        transform->setRotationAsQuaternion(Quaternion(0.1f, -0.7f, 0.3f, 0.2f));
        EXPECT_EQ(transform->getRotation(), Quaternion(0.1f, -0.7f, 0.3f, 0.2f)) << "also if not of length 1";
        EXPECT_EQ(transform->getEulerRotation(),
                  transform->convertQuatToEuler(transform->getRotation(), true));
        EXPECT_NE(transform->getEulerRotation(),
                  transform->convertQuatToEuler(transform->getRotation(), false));
    }
}

TEST_F(OSGTransform3DRotationTest, WritesNothingElseButTheMatrix)
{
    ksFieldTexts expected = ksFieldTextsOf(transform);
    transform->setRotationAsQuaternion(target);
    const ksFieldTexts actual = ksFieldTextsOf(transform);
    for (const char *field : {"rotation", "eulerRotation", "matrix"}) {
        EXPECT_NE(actual.at(field), expected[field]);
        expected[field] = actual.at(field);
    }
    EXPECT_EQ(actual, expected);
}

TEST_F(OSGTransform3DRotationTest, EndsOneEditOfBothFields)
{
    forget();
    transform->setRotationAsQuaternion(target);
    EXPECT_EQ(recorder.take(), edit());
    transform->setRotationAsQuaternion(target);
    EXPECT_EQ(recorder.take(), edit());
}

TEST_F(OSGTransform3DRotationTest, TakesItsOwnRotation)
{
    const Quaternion before = transform->getRotation();
    transform->setEulerRotation(osg::Vec3f(1, 2, 3));
    forget();
    transform->setRotationAsQuaternion(transform->getRotation());
    EXPECT_EQ(transform->getRotation(), before);
    EXPECT_EQ(transform->getEulerRotation(), transform->convertQuatToEuler(before, true));
    EXPECT_EQ(recorder.take(), edit());
}
