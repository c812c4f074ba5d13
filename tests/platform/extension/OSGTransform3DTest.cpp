// SPDX-License-Identifier: MIT
#include <OSGTransform3D.h>
#include <OpenSG/OSGNode.h>

#include <gtest/gtest.h>
#include <rapidcheck.h>

#include <functional>
#include <string>
#include <support/ksAspects.h>
#include <support/ksRecords.h>
#include <vector>

namespace {

using namespace osg;

Matrix translated(const Vec3f &offset)
{
    Matrix result;
    result.setTranslate(offset);
    return result;
}

Matrix scaled(const Vec3f &factors)
{
    Matrix result;
    result.setScale(factors);
    return result;
}

Matrix sheared(const Vec3f &shear)
{
    return Matrix(1, shear.x(), shear.y(), 0, 0, 1, shear.z(), 0, 0, 0, 1, 0, 0, 0, 0, 1);
}

Matrix turnedBy(const Vec3f &axis, Real32 degrees)
{
    Quaternion rotation;
    rotation.setValueAsAxisDeg(axis, degrees);
    Matrix result;
    result.setRotate(rotation);
    return result;
}

const Vec3f xAxis(1, 0, 0);
const Vec3f yAxis(0, 1, 0);
const Vec3f zAxis(0, 0, 1);

Vec3f column(const Matrix &matrix, UInt32 index)
{
    return Vec3f(matrix[index][0], matrix[index][1], matrix[index][2]);
}

/// The greatest difference of a column, measured by its length; the last one by \a reach if that is more.
Real32 difference(const Matrix &actual, const Matrix &expected, Real32 reach = 0)
{
    Real32 result = 0;
    for (UInt32 i = 0; i < 4; ++i) {
        const Real32 length = std::max(column(expected, i).length(), i == 3 ? reach : 0);
        const Real32 distance = (column(actual, i) - column(expected, i)).length();
        result = std::max(result, length > 0 ? distance / length : distance);
        if (actual[i][3] != expected[i][3])
            return 1;
    }
    return result;
}

/// A generated number of at most \a limit parts, of either sign.
Real32 number(int limit, int parts = 100)
{
    return static_cast<Real32>(*rc::gen::inRange(-limit, limit + 1)) / static_cast<Real32>(parts);
}

class OSGTransform3DTest : public testing::Test
{
protected:
    OSGTransform3DTest() { recorder.take(); }
    ~OSGTransform3DTest() override
    {
        FieldContainerPtr::_ignore_change = false;
        transform = NullFC;
        ksSyncAspects();
    }

    /// Changes the transform by \a write and ends the edit of \a mask.
    void edit(BitVector mask, const std::function<void(Transform3D &)> &write)
    {
        const CPEditor edit(transform, mask);
        write(*transform);
    }

    ksRecords changes(const std::vector<BitVector> &masks) const
    {
        ksRecords records;
        for (const BitVector mask : masks)
            records.change(recorder.idOf(transform), mask);
        return records;
    }

    void expectMatrix(const Matrix &expected) const
    {
        EXPECT_TRUE(transform->getMatrix().equals(expected, 1e-5f)) << ksFieldTextsOf(transform)["matrix"];
    }

    void setEveryComponent()
    {
        edit(Transform3D::ComponentsFieldMask, [](Transform3D &t) {
            t.setTranslation(Vec3f(1, -2, 3));
            t.setEulerRotation(Vec3f(20, 30, -40));
            t.setEulerRotationOrder("ZXY");
            t.updateRotation();
            t.setScale(Vec3f(2, 0.5f, -3));
            t.setShear(Vec3f(0.25f, -0.5f, 0.75f));
            t.setScalePivot(Vec3f(4, 5, 6));
            t.setScalePivotTranslation(Vec3f(-0.5f, 0.25f, 8));
            t.setRotatePivot(Vec3f(7, -8, 9));
            t.setRotatePivotTranslation(Vec3f(0.5f, 3, -1));
            t.setRotationOrientation(Vec3f(-15, 25, 35));
        });
    }

    ksRecorder recorder;
    Transform3DRefPtr transform{Transform3D::create()};
};

TEST_F(OSGTransform3DTest, IsATransformWithTheFieldsOfItsComponents)
{
    EXPECT_STREQ(transform->getTypeName(), "Transform3D");
    EXPECT_EQ(Transform3D::getClassType().getParent(), &Transform::getClassType());
    const char *names[] = {"translation",
                           "rotation",
                           "eulerRotation",
                           "eulerRotationOrder",
                           "scale",
                           "shear",
                           "scalePivot",
                           "scalePivotTranslation",
                           "rotatePivot",
                           "rotatePivotTranslation",
                           "rotationOrientation",
                           "rotationDirection",
                           "rotationDirectionMode",
                           "rotationDirectionOn",
                           "inheritType"};
    UInt32 id = Transform::NextFieldId;
    for (const char *name : names) {
        const FieldDescription *description = Transform3D::getClassType().getFieldDescription(id);
        ASSERT_NE(description, nullptr) << name;
        EXPECT_STREQ(description->getCName(), name);
        EXPECT_EQ(description->getFieldMask(), TypeTraits<BitVector>::One << id);
        EXPECT_FALSE(description->isInternal()) << name;
        ++id;
    }
    EXPECT_EQ(Transform3D::getClassType().getNumFieldDescs(), id - 1);
}

TEST_F(OSGTransform3DTest, StartsAsTheIdentity)
{
    EXPECT_EQ(transform->getMatrix(), Matrix());
    const ksFieldTexts texts = ksFieldTextsOf(transform);
    EXPECT_EQ(texts.at("rotation"), "0 0 0 1");
    EXPECT_EQ(texts.at("eulerRotationOrder"), "\"XYZ\"");
    EXPECT_EQ(texts.at("scale"), "1 1 1");
    for (const char *zero :
         {"translation", "eulerRotation", "shear", "scalePivot", "scalePivotTranslation", "rotatePivot",
          "rotatePivotTranslation", "rotationOrientation", "rotationDirection"})
        EXPECT_EQ(texts.at(zero), "0 0 0") << zero;
    EXPECT_EQ(texts.at("rotationDirectionMode"), "0");
    EXPECT_EQ(texts.at("rotationDirectionOn"), "FALSE");
    EXPECT_EQ(texts.at("inheritType"), "0");

    edit(FieldBits::AllFields, [](Transform3D &) {});
    EXPECT_EQ(transform->getMatrix(), Matrix());
}

TEST_F(OSGTransform3DTest, EveryComponentAloneHasItsMatrix)
{
    edit(Transform3D::TranslationFieldMask, [](Transform3D &t) { t.setTranslation(Vec3f(1, 2, 3)); });
    EXPECT_EQ(transform->getMatrix(), Matrix(1, 0, 0, 1, 0, 1, 0, 2, 0, 0, 1, 3, 0, 0, 0, 1));
    edit(Transform3D::TranslationFieldMask, [](Transform3D &t) { t.setTranslation(Vec3f()); });

    edit(Transform3D::ScaleFieldMask, [](Transform3D &t) { t.setScale(Vec3f(2, -3, 0)); });
    EXPECT_EQ(transform->getMatrix(), Matrix(2, 0, 0, 0, 0, -3, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1));
    edit(Transform3D::ScaleFieldMask, [](Transform3D &t) { t.setScale(Vec3f(1, 1, 1)); });

    edit(Transform3D::ShearFieldMask, [](Transform3D &t) { t.setShear(Vec3f(2, 3, 4)); });
    EXPECT_EQ(transform->getMatrix(), Matrix(1, 2, 3, 0, 0, 1, 4, 0, 0, 0, 1, 0, 0, 0, 0, 1));
    edit(Transform3D::ShearFieldMask, [](Transform3D &t) { t.setShear(Vec3f()); });

    edit(Transform3D::EulerRotationFieldMask, [](Transform3D &t) { t.setEulerRotation(Vec3f(0, 0, 90)); });
    expectMatrix(Matrix(0, -1, 0, 0, 1, 0, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1));
    edit(Transform3D::EulerRotationFieldMask, [](Transform3D &t) { t.setEulerRotation(Vec3f()); });

    edit(Transform3D::RotationOrientationFieldMask,
         [](Transform3D &t) { t.setRotationOrientation(Vec3f(90, 0, 90)); });
    // y goes to z about x, then stays; z goes to -y, then to x; x stays, then goes to y.
    expectMatrix(Matrix(0, 0, 1, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 0, 1));
    edit(Transform3D::RotationOrientationFieldMask,
         [](Transform3D &t) { t.setRotationOrientation(Vec3f()); });

    EXPECT_EQ(transform->getMatrix(), Matrix());
    for (const auto setPivot : {&Transform3D::setScalePivot, &Transform3D::setRotatePivot}) {
        edit(FieldBits::AllFields, [&](Transform3D &t) { (t.*setPivot)(Vec3f(1, 2, 3)); });
        EXPECT_EQ(transform->getMatrix(), Matrix()) << "a pivot alone moves nothing";
    }
    for (const auto setMove :
         {&Transform3D::setScalePivotTranslation, &Transform3D::setRotatePivotTranslation}) {
        edit(FieldBits::AllFields, [&](Transform3D &t) { (t.*setMove)(Vec3f(1, 2, 3)); });
        EXPECT_EQ(transform->getMatrix(), translated(Vec3f(1, 2, 3)));
        edit(FieldBits::AllFields, [&](Transform3D &t) { (t.*setMove)(Vec3f()); });
    }
}

TEST_F(OSGTransform3DTest, PivotsStayWhereTheyAre)
{
    edit(FieldBits::AllFields, [](Transform3D &t) {
        t.setScale(Vec3f(2, 2, 2));
        t.setScalePivot(Vec3f(1, 0, 0));
    });
    EXPECT_EQ(transform->getMatrix(), Matrix(2, 0, 0, -1, 0, 2, 0, 0, 0, 0, 2, 0, 0, 0, 0, 1));

    edit(FieldBits::AllFields, [](Transform3D &t) {
        t.setScale(Vec3f(1, 1, 1));
        t.setEulerRotation(Vec3f(0, 0, 90));
        t.updateRotation();
        t.setRotatePivot(Vec3f(1, 0, 0));
    });
    expectMatrix(Matrix(0, -1, 0, 1, 1, 0, 0, -1, 0, 0, 1, 0, 0, 0, 0, 1));
}

TEST_F(OSGTransform3DTest, MatrixIsTheProductInItsOrder)
{
    setEveryComponent();

    const Matrix expected =
        translated(Vec3f(1, -2, 3)) * translated(Vec3f(0.5f, 3, -1)) * translated(Vec3f(7, -8, 9)) *
        turnedBy(yAxis, 30) * turnedBy(xAxis, 20) * turnedBy(zAxis, -40) * turnedBy(zAxis, 35) *
        turnedBy(yAxis, 25) * turnedBy(xAxis, -15) * translated(Vec3f(-7, 8, -9)) *
        translated(Vec3f(-0.5f, 0.25f, 8)) * translated(Vec3f(4, 5, 6)) *
        sheared(Vec3f(0.25f, -0.5f, 0.75f)) * scaled(Vec3f(2, 0.5f, -3)) * translated(Vec3f(-4, -5, -6));
    EXPECT_LT(difference(transform->getMatrix(), expected), 1e-6f);
}

TEST_F(OSGTransform3DTest, RotationOfAnyLengthTurnsOnly)
{
    edit(Transform3D::RotationFieldMask, [](Transform3D &t) { t.setRotation(Quaternion(0, 0, -3, -3)); });
    expectMatrix(turnedBy(zAxis, 90));
    EXPECT_EQ(transform->getRotation(), Quaternion(0, 0, -3, -3));

    edit(Transform3D::RotationFieldMask, [](Transform3D &t) { t.setRotation(Quaternion(0, 0, 0, 0)); });
    EXPECT_EQ(transform->getMatrix(), Matrix());
}

TEST_F(OSGTransform3DTest, DirectionTakesThePlaceOfTheOrientation)
{
    edit(FieldBits::AllFields, [](Transform3D &t) {
        t.setRotationOrientation(Vec3f(0, 0, 45));
        t.setRotationDirection(Vec3f(0, 0, 5));
        t.setRotationDirectionMode(0);
    });
    expectMatrix(turnedBy(zAxis, 45));

    edit(Transform3D::RotationDirectionOnFieldMask, [](Transform3D &t) { t.setRotationDirectionOn(true); });
    expectMatrix(turnedBy(yAxis, -90));

    edit(Transform3D::RotationDirectionModeFieldMask, [](Transform3D &t) { t.setRotationDirectionMode(1); });
    expectMatrix(turnedBy(xAxis, 90));

    edit(Transform3D::RotationDirectionModeFieldMask, [](Transform3D &t) { t.setRotationDirectionMode(2); });
    EXPECT_EQ(transform->getMatrix(), Matrix());

    for (const int mode : {-1, 3, 1000000}) {
        edit(Transform3D::RotationDirectionModeFieldMask,
             [&](Transform3D &t) { t.setRotationDirectionMode(mode); });
        expectMatrix(turnedBy(zAxis, 45));
    }

    edit(FieldBits::AllFields, [](Transform3D &t) {
        t.setRotationDirectionMode(0);
        t.setRotationDirection(Vec3f(0, 0, 0));
    });
    expectMatrix(turnedBy(zAxis, 45));
}

TEST_F(OSGTransform3DTest, OppositeDirectionIsAHalfTurnAboutTheNextAxis)
{
    const Vec3f axes[] = {xAxis, yAxis, zAxis};
    for (Int32 mode = 0; mode < 3; ++mode) {
        edit(FieldBits::AllFields, [&](Transform3D &t) {
            t.setRotationDirectionOn(true);
            t.setRotationDirectionMode(mode);
            t.setRotationDirection(axes[mode] * -2.0f);
        });
        expectMatrix(turnedBy(axes[(mode + 1) % 3], 180));
    }
}

TEST_F(OSGTransform3DTest, OrientedAxisPointsAlongTheDirection)
{
    const bool passed = rc::check([] {
        const Transform3DRefPtr turned(Transform3D::create());
        const auto part = [] { return number(1000, 10); };
        const Vec3f direction(part(), part(), part());
        RC_PRE(direction.length() > 0);
        const Int32 axis = *rc::gen::inRange(0, 3);
        turned->setRotationDirection(direction);
        turned->setRotationDirectionMode(axis);
        turned->setRotationDirectionOn(true);
        endEditCP(turned);

        RC_ASSERT((turned->getOrientedAxis(axis) * direction.length() - direction).length() <
                  1e-6f * direction.length());
        const auto composed = column(turned->getMatrix(), static_cast<UInt32>(axis));
        RC_ASSERT((composed - turned->getOrientedAxis(axis)).length() < 1e-6f);
    });
    EXPECT_TRUE(passed);
}

TEST_F(OSGTransform3DTest, OrientedAxesLeaveTheRotationOut)
{
    edit(FieldBits::AllFields, [](Transform3D &t) {
        t.setEulerRotation(Vec3f(10, 20, 30));
        t.setRotationOrientation(Vec3f(0, 0, 90));
    });

    EXPECT_TRUE(transform->getOrientedAxis(0).equals(yAxis, 1e-6f));
    EXPECT_TRUE(transform->getOrientedAxis(1).equals(xAxis * -1.0f, 1e-6f));
    EXPECT_TRUE(transform->getOrientedAxis(2).equals(zAxis, 1e-6f));
    EXPECT_EQ(transform->getOrientedAxis(3), Vec3f());
    EXPECT_EQ(transform->getOrientedAxis(-1), Vec3f());
}

TEST_F(OSGTransform3DTest, RotationDirectionValuesAreTheFields)
{
    edit(FieldBits::AllFields, [](Transform3D &t) {
        t.setRotationDirection(Vec3f(1, 2, 3));
        t.setRotationDirectionMode(2);
    });
    Vec3f values;
    int mode = 0;

    EXPECT_FALSE(transform->getRotationDirectionValues(values, mode));
    EXPECT_EQ(values, Vec3f(1, 2, 3));
    EXPECT_EQ(mode, 2);

    transform->setRotationDirectionOn(true);
    EXPECT_TRUE(transform->getRotationDirectionValues(values, mode));
}

TEST_F(OSGTransform3DTest, AnglesAndQuaternionConvertInTheOrderAndUnitAskedFor)
{
    edit(Transform3D::EulerRotationOrderFieldMask, [](Transform3D &t) { t.setEulerRotationOrder("ZYX"); });
    Matrix matrix;
    matrix.setRotate(transform->convertEulerToQuat(Vec3f(20, 30, -40), true));
    EXPECT_LT(difference(matrix, turnedBy(xAxis, 20) * turnedBy(yAxis, 30) * turnedBy(zAxis, -40)), 1e-6f);
    matrix.setRotate(transform->convertEulerToQuat(Vec3f(0.5f, 0, 0), false));
    EXPECT_LT(difference(matrix, turnedBy(xAxis, 28.647890f)), 1e-6f);

    const Quaternion rotation = transform->convertEulerToQuat(Vec3f(20, 30, -40), true);
    EXPECT_TRUE(transform->convertQuatToEuler(rotation, true).equals(Vec3f(20, 30, -40), 1e-5f));
    EXPECT_TRUE(transform->convertQuatToEuler(rotation, false)
                    .equals(Vec3f(0.34906585f, 0.52359878f, -0.69813170f), 1e-6f));
    edit(Transform3D::EulerRotationOrderFieldMask, [](Transform3D &t) { t.setEulerRotationOrder("XYZ"); });
    EXPECT_FALSE(transform->convertQuatToEuler(rotation, true).equals(Vec3f(20, 30, -40), 1));
}

TEST_F(OSGTransform3DTest, NewAnglesGiveTheQuaternion)
{
    edit(Transform3D::EulerRotationFieldMask,
         [](Transform3D &t) { t.setEulerRotation(Vec3f(20, 400, -40)); });

    EXPECT_EQ(transform->getEulerRotation(), Vec3f(20, 400, -40));
    EXPECT_EQ(transform->getRotation(), transform->convertEulerToQuat(Vec3f(20, 400, -40), true));
    EXPECT_EQ(recorder.take(),
              changes({Transform3D::EulerRotationFieldMask, Transform3D::RotationFieldMask}));
}

TEST_F(OSGTransform3DTest, NewQuaternionGivesTheAngles)
{
    edit(Transform3D::RotationFieldMask, [](Transform3D &t) { t.setRotation(Quaternion(0, 0, 1, 1)); });

    EXPECT_EQ(transform->getRotation(), Quaternion(0, 0, 1, 1));
    EXPECT_EQ(transform->getEulerRotation(), Vec3f(0, 0, 90));
    EXPECT_EQ(recorder.take(),
              changes({Transform3D::RotationFieldMask, Transform3D::EulerRotationFieldMask}));
}

TEST_F(OSGTransform3DTest, QuaternionThatTheAnglesGiveLeavesThem)
{
    edit(Transform3D::EulerRotationFieldMask,
         [](Transform3D &t) { t.setEulerRotation(Vec3f(20, 400, -40)); });
    recorder.take();

    edit(Transform3D::RotationFieldMask, [](Transform3D &t) { t.updateRotation(); });

    EXPECT_EQ(transform->getEulerRotation(), Vec3f(20, 400, -40));
    EXPECT_EQ(recorder.take(), changes({Transform3D::RotationFieldMask}));
}

TEST_F(OSGTransform3DTest, NewOrderLeavesTheAngles)
{
    edit(Transform3D::EulerRotationFieldMask, [](Transform3D &t) { t.setEulerRotation(Vec3f(20, 30, -40)); });
    recorder.take();

    edit(Transform3D::EulerRotationOrderFieldMask, [](Transform3D &t) { t.setEulerRotationOrder("YXZ"); });

    EXPECT_EQ(transform->getEulerRotation(), Vec3f(20, 30, -40));
    expectMatrix(turnedBy(zAxis, -40) * turnedBy(xAxis, 20) * turnedBy(yAxis, 30));
    EXPECT_EQ(recorder.take(),
              changes({Transform3D::EulerRotationOrderFieldMask, Transform3D::RotationFieldMask}));
}

TEST_F(OSGTransform3DTest, AnglesAndQuaternionGivenTogetherStay)
{
    edit(Transform3D::RotationsFieldMask, [](Transform3D &t) {
        t.setRotation(Quaternion(0, 0, 1, 1));
        t.setEulerRotation(Vec3f(1, 2, 3));
    });

    EXPECT_EQ(transform->getRotation(), Quaternion(0, 0, 1, 1));
    EXPECT_EQ(transform->getEulerRotation(), Vec3f(1, 2, 3));
    expectMatrix(turnedBy(zAxis, 90));
    EXPECT_EQ(recorder.take(), changes({Transform3D::RotationsFieldMask}));
}

TEST_F(OSGTransform3DTest, OtherFieldsLeaveTheRotationsAndAddNoRecords)
{
    edit(Transform3D::RotationsFieldMask, [](Transform3D &t) {
        t.setRotation(Quaternion(0, 0, 1, 1));
        t.setEulerRotation(Vec3f(1, 2, 3));
    });
    recorder.take();

    for (const BitVector mask :
         {Transform3D::TranslationFieldMask, Transform3D::ScaleFieldMask, Transform3D::InheritTypeFieldMask,
          Transform3D::AttachmentsFieldMask, Transform3D::RotationDirectionsFieldMask}) {
        edit(mask, [](Transform3D &) {});
        EXPECT_EQ(recorder.take(), changes({mask}));
    }

    EXPECT_EQ(transform->getRotation(), Quaternion(0, 0, 1, 1));
    EXPECT_EQ(transform->getEulerRotation(), Vec3f(1, 2, 3));
}

TEST_F(OSGTransform3DTest, NewMatrixIsDecomposed)
{
    const Matrix matrix = translated(Vec3f(1, 2, 3)) * turnedBy(yAxis, 30) * scaled(Vec3f(2, 3, 4));

    edit(Transform3D::MatrixFieldMask, [&](Transform3D &t) { t.setMatrix(matrix); });

    EXPECT_LT(difference(transform->getMatrix(), matrix), 1e-6f);
    EXPECT_EQ(transform->getTranslation(), Vec3f(1, 2, 3));
    EXPECT_TRUE(transform->getEulerRotation().equals(Vec3f(0, 30, 0), 1e-4f));
    EXPECT_EQ(transform->getRotation(), transform->convertEulerToQuat(transform->getEulerRotation(), true));
    EXPECT_TRUE(transform->getScale().equals(Vec3f(2, 3, 4), 1e-5f));
    EXPECT_TRUE(transform->getShear().equals(Vec3f(), 1e-6f));
    EXPECT_EQ(recorder.take(), changes({Transform3D::MatrixFieldMask, Transform3D::DecomposedFieldMask}));
}

TEST_F(OSGTransform3DTest, NewMatrixLeavesPivotsAndOrientation)
{
    setEveryComponent();
    const ksFieldTexts before = ksFieldTextsOf(transform);
    const Matrix original = transform->getMatrix();

    edit(Transform3D::MatrixFieldMask, [](Transform3D &t) { t.setMatrix(Matrix()); });
    EXPECT_LT(difference(transform->getMatrix(), Matrix(), 10), 1e-6f);
    edit(Transform3D::MatrixFieldMask, [&](Transform3D &t) { t.setMatrix(original); });

    EXPECT_LT(difference(transform->getMatrix(), original), 1e-6f);
    ksFieldTexts after = ksFieldTextsOf(transform);
    for (const char *derived : {"matrix", "translation", "rotation", "eulerRotation", "scale", "shear"})
        after[derived] = before.at(derived);
    EXPECT_EQ(after, before);
    EXPECT_TRUE(transform->getTranslation().equals(Vec3f(1, -2, 3), 1e-4f));
    EXPECT_TRUE(transform->getShear().equals(Vec3f(0.25f, -0.5f, 0.75f), 1e-4f));
}

TEST_F(OSGTransform3DTest, ComponentsWinOverTheMatrix)
{
    edit(Transform3D::MatrixFieldMask | Transform3D::TranslationFieldMask, [](Transform3D &t) {
        t.setMatrix(scaled(Vec3f(5, 5, 5)));
        t.setTranslation(Vec3f(1, 2, 3));
    });

    EXPECT_EQ(transform->getMatrix(), translated(Vec3f(1, 2, 3)));
    EXPECT_EQ(recorder.take(), changes({Transform3D::MatrixFieldMask | Transform3D::TranslationFieldMask}));
}

TEST_F(OSGTransform3DTest, MatrixWithoutComponentsIsDropped)
{
    setEveryComponent();
    const ksFieldTexts before = ksFieldTextsOf(transform);
    recorder.take();
    Matrix flat;
    flat[1] = flat[0];

    edit(Transform3D::MatrixFieldMask, [&](Transform3D &t) { t.setMatrix(flat); });

    EXPECT_EQ(ksFieldTextsOf(transform), before);
    EXPECT_EQ(recorder.take(), changes({Transform3D::MatrixFieldMask}));
    EXPECT_FALSE(transform->decompose(flat));
    EXPECT_EQ(ksFieldTextsOf(transform), before);
}

TEST_F(OSGTransform3DTest, DecomposeLeavesTheEditToTheCaller)
{
    EXPECT_TRUE(transform->decompose(scaled(Vec3f(2, 3, 4))));

    EXPECT_EQ(recorder.take(), ksRecords());
    EXPECT_EQ(transform->getScale(), Vec3f(2, 3, 4));
    EXPECT_EQ(transform->getMatrix(), Matrix());
    endEditCP(transform, Transform3D::DecomposedFieldMask);
    EXPECT_EQ(transform->getMatrix(), scaled(Vec3f(2, 3, 4)));
    EXPECT_EQ(recorder.take(), changes({Transform3D::DecomposedFieldMask}));
}

TEST_F(OSGTransform3DTest, DecomposedMatricesComeBack)
{
    const bool passed = rc::check([] {
        const auto vector = [](int limit) { return Vec3f(number(limit), number(limit), number(limit)); };
        const auto scale = [] {
            const Real32 factor = number(10000);
            return factor == 0 ? 0.01f : factor;
        };
        Matrix rotated;
        Quaternion rotation(number(100), number(100), number(100), number(100));
        rotation.normalize();
        rotated.setRotate(rotation);
        const Matrix matrix = translated(vector(100000)) * rotated * sheared(vector(1000)) *
                              scaled(Vec3f(scale(), scale(), scale()));
        const Transform3DRefPtr made(Transform3D::create());
        const bool withPivots = *rc::gen::arbitrary<bool>();
        if (withPivots) {
            made->setRotatePivot(vector(10000));
            made->setRotatePivotTranslation(vector(1000));
            made->setScalePivotTranslation(vector(1000));
            made->setRotationOrientation(vector(36000));
            made->setEulerRotationOrder("YZX");
        }

        RC_ASSERT(made->decompose(matrix));
        endEditCP(made, Transform3D::DecomposedFieldMask);

        RC_ASSERT(difference(made->getMatrix(), matrix, withPivots ? 200.0f : 0.0f) < 1e-5f);
        RC_ASSERT((made->getScale().x() * made->getScale().y() * made->getScale().z() < 0) ==
                  (matrix.det() < 0));
        Matrix turned;
        turned.setRotate(made->convertEulerToQuat(made->getEulerRotation(), true));
        Matrix expected;
        expected.setRotate(made->getRotation());
        RC_ASSERT(difference(turned, expected) < 1e-5f);
    });
    EXPECT_TRUE(passed);
}

TEST_F(OSGTransform3DTest, DecomposedWithScalePivotComesBack)
{
    const Matrix matrix = translated(Vec3f(1, 2, 3)) * turnedBy(yAxis, 130) * sheared(Vec3f(1, 2, -1)) *
                          scaled(Vec3f(2, -3, 4));
    transform->setScalePivot(Vec3f(10, -20, 30));

    ASSERT_TRUE(transform->decompose(matrix));
    endEditCP(transform, Transform3D::DecomposedFieldMask);

    EXPECT_LT(difference(transform->getMatrix(), matrix, 200), 1e-6f);
}

TEST_F(OSGTransform3DTest, OtherAspectComposesItsOwnMatrix)
{
    setEveryComponent();

    EXPECT_EQ(ksFieldTextsOf(transform, 1)["matrix"], "1 0 0 0 0 1 0 0 0 0 1 0 0 0 0 1");
    ksExpectSync(transform);
}

TEST_F(OSGTransform3DTest, OtherAspectIsEqualAfterEveryEdit)
{
    setEveryComponent();
    ksSyncAspects();

    edit(Transform3D::EulerRotationFieldMask, [](Transform3D &t) { t.setEulerRotation(Vec3f(1, 2, 3)); });
    ksExpectSync(transform);
    edit(Transform3D::RotationFieldMask, [](Transform3D &t) { t.setRotation(Quaternion(1, 2, 3, 4)); });
    ksExpectSync(transform);
    edit(Transform3D::EulerRotationOrderFieldMask, [](Transform3D &t) { t.setEulerRotationOrder("ZYX"); });
    ksExpectSync(transform);
    edit(Transform3D::MatrixFieldMask, [](Transform3D &t) { t.setMatrix(turnedBy(Vec3f(1, 2, 3), 50)); });
    ksExpectSync(transform);
    edit(Transform3D::RotationDirectionsFieldMask, [](Transform3D &t) {
        t.setRotationDirection(Vec3f(4, 5, 6));
        t.setRotationDirectionOn(true);
    });
    ksExpectSync(transform);
    edit(Transform3D::InheritTypeFieldMask, [](Transform3D &t) { t.setInheritType(2); });
    ksExpectSync(transform);
}

TEST_F(OSGTransform3DTest, OtherAspectIsEqualAfterManyEditsAtOnce)
{
    setEveryComponent();
    edit(Transform3D::RotationFieldMask, [](Transform3D &t) { t.setRotation(Quaternion(1, 2, 3, 4)); });
    edit(Transform3D::EulerRotationOrderFieldMask, [](Transform3D &t) { t.setEulerRotationOrder("YXZ"); });
    edit(Transform3D::MatrixFieldMask, [](Transform3D &t) { t.setMatrix(turnedBy(Vec3f(1, 2, 3), 50)); });
    edit(Transform3D::RotationFieldMask, [](Transform3D &t) { t.setRotation(Quaternion(4, 3, 2, 1)); });
    edit(Transform3D::ScalePivotFieldMask, [](Transform3D &t) { t.setScalePivot(Vec3f(9, 9, 9)); });

    ksExpectSync(transform);
}

TEST_F(OSGTransform3DTest, WhileChangesAreIgnoredFieldsWaitForTheNextEdit)
{
    FieldContainerPtr::_ignore_change = true;
    edit(Transform3D::EulerRotationFieldMask, [](Transform3D &t) { t.setEulerRotation(Vec3f(0, 0, 90)); });
    EXPECT_EQ(transform->getMatrix(), Matrix());
    EXPECT_EQ(recorder.take(), changes({Transform3D::EulerRotationFieldMask}));

    FieldContainerPtr::_ignore_change = false;
    edit(Transform3D::EulerRotationFieldMask, [](Transform3D &) {});

    expectMatrix(turnedBy(zAxis, 90));
}

TEST_F(OSGTransform3DTest, NewComponentsMakeTheVolumesInvalid)
{
    const NodeRefPtr node(Node::create());
    node->setCore(transform.get());
    endEditCP(node);
    endEditCP(transform, Transform3D::ParentsFieldMask);
    node->updateVolume();
    recorder.take();

    edit(Transform3D::InheritTypeFieldMask, [](Transform3D &t) { t.setInheritType(1); });
    EXPECT_TRUE(node->getVolume().isValid());
    EXPECT_EQ(recorder.take(), changes({Transform3D::InheritTypeFieldMask}));

    edit(Transform3D::ScaleFieldMask, [](Transform3D &t) { t.setScale(Vec3f(2, 2, 2)); });
    EXPECT_FALSE(node->getVolume().isValid());
    EXPECT_EQ(recorder.take(),
              changes({Transform3D::ScaleFieldMask}).change(recorder.idOf(node), Node::VolumeFieldMask));
}

TEST_F(OSGTransform3DTest, CopyHasTheSameComponents)
{
    setEveryComponent();
    ksSyncAspects();

    const Transform3DRefPtr copy(Transform3DPtr::dcast(transform->shallowCopy()));

    EXPECT_EQ(ksFieldTextsOf(copy), ksFieldTextsOf(transform));
    EXPECT_EQ(ksFieldTextsOf(copy, 1), ksFieldTextsOf(transform));
}

} // namespace
