// SPDX-License-Identifier: MIT
#include <ksNodeUtils.h>

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <functional>
#include <string>
#include <support/ksAspects.h>
#include <support/ksRecords.h>
#include <vector>

namespace {

using osg::BitVector;
using osg::CPEditor;
using osg::Matrix;
using osg::Node;
using osg::NodePtr;
using osg::NullFC;
using osg::Transform3D;
using osg::Transform3DPtr;
using osg::Vec3f;

void setCoreOf(const NodePtr &node, const osg::NodeCorePtr &core)
{
    const CPEditor edit(node, Node::CoreFieldMask);
    node->setCore(core);
}

NodePtr nodeWithCore(const osg::NodeCorePtr &core)
{
    const NodePtr node = Node::create();
    setCoreOf(node, core);
    return node;
}

void addChild(const NodePtr &parent, const NodePtr &child)
{
    const CPEditor edit(parent, Node::ChildrenFieldMask);
    parent->addChild(child);
}

/// Adds a variant that stores \a transform to the node.
void addVariant(const NodePtr &node, const Transform3DPtr &transform)
{
    const osg::TransformVariantPtr variant = osg::TransformVariant::create();
    {
        const CPEditor edit(variant, osg::TransformVariant::TransformFieldMask);
        variant->setTransform(transform);
    }
    ksNodeUtils::createTransformVariantsAttachment(node);
    ksNodeUtils::insertTransformVariant(node, ksNodeUtils::getTransformVariantCount(node), variant);
}

/// Equal, also in the sign of zeros.
bool sameBits(const Vec3f &a, const Vec3f &b)
{
    const auto signs = [](const Vec3f &v) {
        return std::array{std::signbit(v.x()), std::signbit(v.y()), std::signbit(v.z())};
    };
    return a == b && signs(a) == signs(b);
}

/// One pair of accessors, without their space.
struct Component
{
    const char *name;
    /// The field that keeps the value.
    const char *field;
    /// What an edit names.
    BitVector mask;
    std::function<Vec3f(const NodePtr &, int index)> get;
    std::function<void(const NodePtr &, const Vec3f &, int index)> set;
};

void PrintTo(const Component &component, std::ostream *stream)
{
    *stream << component.name;
}

/// The name of the accessors is Transform3D's name of the field.
#define KS_COMPONENT(Name, field)                                                                       \
    {                                                                                                   \
#Name, #field, Transform3D::Name##FieldMask,                                                          \
            [](const NodePtr &node, int index) { return ksNodeUtils::getTransformNode##Name(node, index); },  \
            [](const NodePtr &node, const Vec3f &v, int index) {                                              \
                ksNodeUtils::setTransformNode##Name(node, v.x(), v.y(), v.z(), index);                        \
            } \
    }

#define KS_POSITION(Name, field)                                                                        \
    {                                                                                                   \
#Name, #field, Transform3D::Name##FieldMask,                                                          \
            [](const NodePtr &node, int index) {                                                              \
                return ksNodeUtils::getTransformNode##Name(node, false, index);                               \
            },                                                                                                \
            [](const NodePtr &node, const Vec3f &v, int index) {                                              \
                ksNodeUtils::setTransformNode##Name(node, v.x(), v.y(), v.z(), false, index);                 \
            } \
    }

const Component components[] = {
    KS_POSITION(Translation, translation),
    {"Rotation", "eulerRotation", Transform3D::EulerRotationFieldMask | Transform3D::RotationFieldMask,
     [](const NodePtr &node, int index) { return ksNodeUtils::getTransformNodeRotation(node, index); },
     [](const NodePtr &node, const Vec3f &v, int index) {
         ksNodeUtils::setTransformNodeRotation(node, v.x(), v.y(), v.z(), index);
     }},
    KS_COMPONENT(Scale, scale),
    KS_POSITION(ScalePivot, scalePivot),
    KS_POSITION(RotatePivot, rotatePivot),
    KS_COMPONENT(ScalePivotTranslation, scalePivotTranslation),
    KS_COMPONENT(RotatePivotTranslation, rotatePivotTranslation),
    KS_COMPONENT(RotationOrientation, rotationOrientation),
    {"RotationDirection", "rotationDirection",
     Transform3D::RotationDirectionFieldMask | Transform3D::RotationDirectionModeFieldMask |
         Transform3D::RotationDirectionOnFieldMask,
     [](const NodePtr &node, int index) {
         return ksNodeUtils::getTransformNodeRotationDirection(node, index, -1);
     },
     [](const NodePtr &node, const Vec3f &v, int index) {
         ksNodeUtils::setTransformNodeRotationDirection(node, v.x(), v.y(), v.z(), 2, true, index);
     }},
};

const Component shearComponent = {
    "Shear", "shear", Transform3D::ShearFieldMask,
    [](const NodePtr &node, int) { return ksNodeUtils::getTransformNodeShear(node); },
    [](const NodePtr &node, const Vec3f &v, int) {
        ksNodeUtils::setTransformNodeShear(node, v.x(), v.y(), v.z());
    }};

std::vector<Component> allComponents()
{
    std::vector<Component> all(std::begin(components), std::end(components));
    all.push_back(shearComponent);
    return all;
}

/// A node with a transform as its core and two variants, the second of which stores a transform as well,
/// under a parent.
class ksNodeUtilsTransformTest : public testing::Test
{
protected:
    ksNodeUtilsTransformTest()
    {
        setCoreOf(node, own.get());
        addVariant(node, NullFC);
        addVariant(node, stored.get());
        addChild(parent, node);
        ksSyncAspects();
        recorder.take();
    }
    ~ksNodeUtilsTransformTest() override
    {
        parent = NullFC;
        node = NullFC;
        own = NullFC;
        stored = NullFC;
        ksSyncAspects();
    }

    ksRecords edit(const osg::FieldContainerPtr &container, BitVector mask) const
    {
        return ksRecords().change(recorder.idOf(container), mask);
    }

    void giveParentMatrix(const Matrix &matrix)
    {
        const osg::TransformPtr core = osg::Transform::create();
        core->setMatrix(matrix);
        setCoreOf(parent, core);
        recorder.take();
    }

    /// Nodes and indexes that mean no transform.
    std::vector<std::pair<NodePtr, int>> withoutTransform()
    {
        coreless = Node::create();
        grouped = nodeWithCore(osg::Group::create());
        plain = nodeWithCore(osg::Transform::create());
        recorder.take();
        return {{NullFC, -1},        {NullFC, 0},       {coreless.get(), -1},  {coreless.get(), 0},
                {grouped.get(), -1}, {plain.get(), -1}, {node.get(), -2},      {node.get(), 0},
                {node.get(), 2},     {node.get(), 100}, {node.get(), -1000000}};
    }

    ksRecorder recorder;
    osg::NodeRefPtr parent{Node::create()};
    osg::NodeRefPtr node{Node::create()};
    osg::Transform3DRefPtr own{Transform3D::create()};
    osg::Transform3DRefPtr stored{Transform3D::create()};
    osg::NodeRefPtr coreless;
    osg::NodeRefPtr grouped;
    osg::NodeRefPtr plain;
};

class ksNodeUtilsComponentTest : public ksNodeUtilsTransformTest,
                                 public testing::WithParamInterface<Component>
{
protected:
    /// The indexes of the transforms that the accessors reach, with those transforms.
    std::vector<std::pair<int, Transform3DPtr>> targets() const
    {
        if (GetParam().name == std::string("Shear"))
            return {{-1, own.get()}};
        return {{-1, own.get()}, {1, stored.get()}};
    }
};

TEST_P(ksNodeUtilsComponentTest, SetsItsFieldInOneEdit)
{
    for (const auto &[index, transform] : targets()) {
        ksFieldTexts expected = ksFieldTextsOf(transform);

        GetParam().set(node, Vec3f(1.5f, -2, 0.1f), index);

        EXPECT_EQ(recorder.take(), edit(transform, GetParam().mask));
        ksFieldTexts texts = ksFieldTextsOf(transform);
        EXPECT_EQ(texts[GetParam().field], "1.5 -2 0.1");
        // What goes along with it.
        expected[GetParam().field] = texts[GetParam().field];
        expected["matrix"] = texts["matrix"];
        if (GetParam().mask & Transform3D::RotationFieldMask)
            expected["rotation"] = texts["rotation"];
        if (GetParam().mask & Transform3D::RotationDirectionFieldMask) {
            expected["rotationDirectionMode"] = "2";
            expected["rotationDirectionOn"] = "TRUE";
        }
        EXPECT_EQ(texts, expected);
    }
}

TEST_P(ksNodeUtilsComponentTest, LeavesTheOtherTransforms)
{
    for (const auto &[index, transform] : targets()) {
        const Transform3DPtr other = transform == own.get() ? stored.get() : own.get();
        const ksFieldTexts before = ksFieldTextsOf(other);

        GetParam().set(node, Vec3f(1.5f, -2, static_cast<float>(index)), index);

        EXPECT_EQ(ksFieldTextsOf(other), before);
    }
}

TEST_P(ksNodeUtilsComponentTest, ReadsWhatWasSetBitForBit)
{
    for (const auto &[index, transform] : targets()) {
        for (const Vec3f &value : {Vec3f(0.1f, 16777217, -1e-30f), Vec3f(-0.0f, 0, 1e-45f),
                                   Vec3f(3.4e38f, -720.25f, 1.0000001f), Vec3f(0, 0, 0)}) {
            GetParam().set(node, value, index);
            EXPECT_TRUE(sameBits(GetParam().get(node, index), value));
        }
    }
}

TEST_P(ksNodeUtilsComponentTest, SameValueIsAnEditAsWell)
{
    GetParam().set(node, Vec3f(1, 2, 3), -1);
    recorder.take();

    GetParam().set(node, Vec3f(1, 2, 3), -1);

    EXPECT_EQ(recorder.take(), edit(own, GetParam().mask));
}

TEST_P(ksNodeUtilsComponentTest, OtherAspectFollows)
{
    for (const auto &[index, transform] : targets()) {
        GetParam().set(node, Vec3f(10, 20, 30), index);
        ksExpectSync(transform);
    }
}

TEST_P(ksNodeUtilsComponentTest, MatrixFollows)
{
    GetParam().set(node, Vec3f(4, 5, 6), -1);
    const ksFieldTexts texts = ksFieldTextsOf(own);

    endEditCP(own, Transform3D::ComponentsFieldMask);

    EXPECT_EQ(ksFieldTextsOf(own), texts);
}

TEST_P(ksNodeUtilsComponentTest, WithoutTransformReadsZerosAndSetsNothing)
{
    const auto targets = withoutTransform();
    const ksFieldTexts ownBefore = ksFieldTextsOf(own);
    const ksFieldTexts storedBefore = ksFieldTextsOf(stored);
    for (const auto &[target, index] : targets) {
        if (GetParam().name == std::string("Shear") && target == node.get())
            continue;
        GetParam().set(target, Vec3f(1, 2, 3), index);
        EXPECT_EQ(recorder.take(), ksRecords()) << index;
        EXPECT_EQ(GetParam().get(target, index), Vec3f(0, 0, 0)) << index;
    }
    EXPECT_EQ(ksFieldTextsOf(own), ownBefore);
    EXPECT_EQ(ksFieldTextsOf(stored), storedBefore);
}

INSTANTIATE_TEST_SUITE_P(Components, ksNodeUtilsComponentTest, testing::ValuesIn(allComponents()),
                         [](const auto &info) { return std::string(info.param.name); });

TEST_F(ksNodeUtilsTransformTest, RotationSetsTheQuaternionInTheOrder)
{
    ksNodeUtils::setTransformNodeEulerRotationOrder(node, "ZYX", -1);

    ksNodeUtils::setTransformNodeRotation(node, 20, 30, -40, -1);

    EXPECT_EQ(own->getRotation(), own->convertEulerToQuat(Vec3f(20, 30, -40), true));
}

TEST_F(ksNodeUtilsTransformTest, OrderIsSetWithTheQuaternionInOneEdit)
{
    for (const auto &[index, transform] : {std::pair(-1, own.get()), std::pair(1, stored.get())}) {
        ksNodeUtils::setTransformNodeRotation(node, 20, 30, -40, index);
        const osg::Quaternion before = transform->getRotation();
        ksSyncAspects();

        ksNodeUtils::setTransformNodeEulerRotationOrder(node, "ZYX", index);

        EXPECT_EQ(ksNodeUtils::getTransformNodeEulerRotationOrder(node, index), "ZYX");
        EXPECT_EQ(ksNodeUtils::getTransformNodeRotation(node, index), Vec3f(20, 30, -40));
        EXPECT_NE(transform->getRotation(), before);
        EXPECT_EQ(transform->getRotation(), transform->convertEulerToQuat(Vec3f(20, 30, -40), true));
        EXPECT_EQ(recorder.read(*osg::Thread::getCurrentChangeList()),
                  edit(transform, Transform3D::EulerRotationOrderFieldMask | Transform3D::RotationFieldMask));
        ksExpectSync(transform);
    }
}

TEST_F(ksNodeUtilsTransformTest, OrderIsKeptAsGiven)
{
    for (const char *order : {"", "zyx", "an order"}) {
        ksNodeUtils::setTransformNodeEulerRotationOrder(node, order, -1);
        EXPECT_EQ(ksNodeUtils::getTransformNodeEulerRotationOrder(node, -1), order);
    }
}

TEST_F(ksNodeUtilsTransformTest, WithoutTransformThereIsNoOrder)
{
    for (const auto &[target, index] : withoutTransform()) {
        ksNodeUtils::setTransformNodeEulerRotationOrder(target, "ZYX", index);
        EXPECT_EQ(recorder.take(), ksRecords()) << index;
        EXPECT_EQ(ksNodeUtils::getTransformNodeEulerRotationOrder(target, index), "") << index;
    }
}

TEST_F(ksNodeUtilsTransformTest, DirectionOfAnAxisIsThatOfTheOrientation)
{
    ksNodeUtils::setTransformNodeRotationDirection(node, 0, 0, 7, 0, true, -1);

    EXPECT_EQ(ksNodeUtils::getTransformNodeRotationDirection(node, -1, -1), Vec3f(0, 0, 7));
    const auto axis = [&](int i) { return ksNodeUtils::getTransformNodeRotationDirection(node, -1, i); };
    EXPECT_TRUE(axis(0).equals(Vec3f(0, 0, 1), 1e-6f));
    EXPECT_TRUE(axis(1).equals(Vec3f(0, 1, 0), 1e-6f));
    EXPECT_TRUE(axis(2).equals(Vec3f(-1, 0, 0), 1e-6f));
    EXPECT_EQ(axis(3), Vec3f());
    EXPECT_EQ(axis(-2), Vec3f());
}

TEST_F(ksNodeUtilsTransformTest, DirectionKeepsAxisAndSwitchAsGiven)
{
    for (const int axis : {-1, 0, 1, 2, 3, -1000000}) {
        for (const bool on : {false, true}) {
            ksNodeUtils::setTransformNodeRotationDirection(node, 1, 2, 3, axis, on, -1);
            Vec3f values;
            int mode = 77;
            EXPECT_EQ(own->getRotationDirectionValues(values, mode), on);
            EXPECT_EQ(values, Vec3f(1, 2, 3));
            EXPECT_EQ(mode, axis);
        }
    }
}

TEST_F(ksNodeUtilsTransformTest, AllValuesAreSetInOneEdit)
{
    for (const auto &[index, transform] : {std::pair(-1, own.get()), std::pair(1, stored.get())}) {
        ksNodeUtils::setTransformNodeRotationOrientation(node, 5, 6, 7, index);
        ksSyncAspects();

        ksNodeUtils::setTransformNodeValues(node, Vec3f(1, 2, 3), Vec3f(4, 5, 6), Vec3f(7, 8, 9),
                                            Vec3f(10, 11, 12), Vec3f(13, 14, 15), Vec3f(16, 17, 18),
                                            Vec3f(19, 20, 21), Vec3f(22, 23, 24), 25, "YZX", true,
                                            Vec3f(26, 27, 28), 2, index);

        EXPECT_EQ(recorder.read(*osg::Thread::getCurrentChangeList()),
                  edit(transform,
                       Transform3D::TranslationFieldMask | Transform3D::RotationFieldMask |
                           Transform3D::EulerRotationFieldMask | Transform3D::EulerRotationOrderFieldMask |
                           Transform3D::ScaleFieldMask | Transform3D::ShearFieldMask |
                           Transform3D::ScalePivotFieldMask | Transform3D::RotatePivotFieldMask |
                           Transform3D::ScalePivotTranslationFieldMask |
                           Transform3D::RotatePivotTranslationFieldMask | Transform3D::InheritTypeFieldMask |
                           Transform3D::RotationDirectionFieldMask |
                           Transform3D::RotationDirectionModeFieldMask |
                           Transform3D::RotationDirectionOnFieldMask));
        ksFieldTexts texts = ksFieldTextsOf(transform);
        const ksFieldTexts expected = {{"attachments", texts["attachments"]},
                                       {"parents", texts["parents"]},
                                       {"matrix", texts["matrix"]},
                                       {"rotation", texts["rotation"]},
                                       {"translation", "1 2 3"},
                                       {"eulerRotation", "4 5 6"},
                                       {"scale", "7 8 9"},
                                       {"shear", "10 11 12"},
                                       {"scalePivot", "13 14 15"},
                                       {"rotatePivot", "16 17 18"},
                                       {"scalePivotTranslation", "19 20 21"},
                                       {"rotatePivotTranslation", "22 23 24"},
                                       {"inheritType", "25"},
                                       {"eulerRotationOrder", "\"YZX\""},
                                       {"rotationOrientation", "5 6 7"},
                                       {"rotationDirectionOn", "TRUE"},
                                       {"rotationDirection", "26 27 28"},
                                       {"rotationDirectionMode", "2"}};
        EXPECT_EQ(texts, expected);
        EXPECT_EQ(transform->getRotation(), transform->convertEulerToQuat(Vec3f(4, 5, 6), true));
        ksExpectSync(transform);
    }
}

TEST_F(ksNodeUtilsTransformTest, WithoutTransformNoValuesAreSet)
{
    for (const auto &[target, index] : withoutTransform()) {
        const Vec3f one(1, 1, 1);
        ksNodeUtils::setTransformNodeValues(target, one, one, one, one, one, one, one, one, 1, "YZX", true,
                                            one, 1, index);
        EXPECT_EQ(recorder.take(), ksRecords()) << index;
    }
}

TEST_F(ksNodeUtilsTransformTest, TransformByIndex)
{
    EXPECT_TRUE(ksNodeUtils::getTransform3D(node, -1) == own.get());
    EXPECT_TRUE(ksNodeUtils::getTransform3D(node, 1) == stored.get());
    for (const auto &[target, index] : withoutTransform())
        EXPECT_TRUE(ksNodeUtils::getTransform3D(target, index) == NullFC) << index;
}

TEST_F(ksNodeUtilsTransformTest, TransformOfAVariantNeedsNoTransformAsCore)
{
    setCoreOf(node, NullFC);

    EXPECT_TRUE(ksNodeUtils::getTransform3D(node, -1) == NullFC);
    EXPECT_TRUE(ksNodeUtils::getTransform3D(node, 1) == stored.get());
}

TEST_F(ksNodeUtilsTransformTest, GoverningTransformIsTheNearest)
{
    const NodePtr child = nodeWithCore(osg::Transform::create());
    const NodePtr grandchild = Node::create();
    addChild(node, child);
    addChild(child, grandchild);
    setCoreOf(parent, Transform3D::create());

    EXPECT_TRUE(ksNodeUtils::findTransform(node) == node.get());
    EXPECT_TRUE(ksNodeUtils::findTransform(child) == node.get());
    EXPECT_TRUE(ksNodeUtils::findTransform(grandchild) == node.get());
    EXPECT_TRUE(ksNodeUtils::findTransform(parent) == parent.get());

    setCoreOf(parent, NullFC);
    EXPECT_TRUE(ksNodeUtils::findTransform(parent) == NullFC);
    EXPECT_TRUE(ksNodeUtils::findTransform(NullFC) == NullFC);
}

/// The accessors of a position, with their space.
struct Position
{
    const char *name;
    BitVector mask;
    Vec3f (*get)(const NodePtr &, bool world, int index);
    void (*set)(const NodePtr &, float, float, float, bool world, int index);
};

void PrintTo(const Position &position, std::ostream *stream)
{
    *stream << position.name;
}

const Position positions[] = {
    {"Translation", Transform3D::TranslationFieldMask, &ksNodeUtils::getTransformNodeTranslation,
     &ksNodeUtils::setTransformNodeTranslation},
    {"ScalePivot", Transform3D::ScalePivotFieldMask, &ksNodeUtils::getTransformNodeScalePivot,
     &ksNodeUtils::setTransformNodeScalePivot},
    {"RotatePivot", Transform3D::RotatePivotFieldMask, &ksNodeUtils::getTransformNodeRotatePivot,
     &ksNodeUtils::setTransformNodeRotatePivot},
};

class ksNodeUtilsPositionTest : public ksNodeUtilsTransformTest, public testing::WithParamInterface<Position>
{
protected:
    Vec3f get(bool world, int index = -1) const { return GetParam().get(node, world, index); }
    void set(const Vec3f &value, bool world, int index = -1) const
    {
        GetParam().set(node, value.x(), value.y(), value.z(), world, index);
    }
};

/// Twice as large, a quarter turn about z, then moved by (10, 20, 30).
const Matrix placed(0, -2, 0, 10, 2, 0, 0, 20, 0, 0, 2, 30, 0, 0, 0, 1);

TEST_P(ksNodeUtilsPositionTest, WorldSpaceIsThatOfTheAncestors)
{
    giveParentMatrix(placed);
    for (const int index : {-1, 1}) {
        set(Vec3f(1, 2, 3), false, index);
        EXPECT_EQ(get(true, index), Vec3f(6, 22, 36));

        set(Vec3f(6, 24, 36), true, index);
        EXPECT_EQ(get(false, index), Vec3f(2, 2, 3));
        EXPECT_EQ(get(true, index), Vec3f(6, 24, 36));
    }
}

TEST_P(ksNodeUtilsPositionTest, AllAncestorsCountWithTheOutermostLast)
{
    giveParentMatrix(placed);
    const osg::NodeRefPtr middle(nodeWithCore(osg::Group::create()));
    const osg::NodeRefPtr outer(nodeWithCore(Transform3D::create()));
    const osg::NodeRefPtr root(Node::create());
    addChild(root, outer);
    addChild(outer, middle);
    addChild(middle, parent);
    ksNodeUtils::setTransformNodeScale(outer, 1, 3, 1, -1);

    set(Vec3f(1, 2, 3), false);
    EXPECT_EQ(get(true), Vec3f(6, 66, 36));
    set(Vec3f(6, 72, 36), true);
    EXPECT_EQ(get(false), Vec3f(2, 2, 3));
}

TEST_P(ksNodeUtilsPositionTest, OwnComponentsDoNotCount)
{
    ksNodeUtils::setTransformNodeScale(node, 5, 5, 5, -1);
    ksNodeUtils::setTransformNodeRotation(node, 10, 20, 30, -1);

    set(Vec3f(1, 2, 3), true);

    EXPECT_EQ(get(false), Vec3f(1, 2, 3));
    EXPECT_EQ(get(true), Vec3f(1, 2, 3));
}

TEST_P(ksNodeUtilsPositionTest, WithoutAncestorsBothSpacesAreTheSame)
{
    {
        const CPEditor edit(parent, Node::ChildrenFieldMask);
        parent->subChild(node.get());
    }
    const Vec3f value(0.1f, 1e-30f, -3e38f);

    set(value, true);

    EXPECT_TRUE(sameBits(get(false), value));
    EXPECT_TRUE(sameBits(get(true), value));
}

TEST_P(ksNodeUtilsPositionTest, SettingInWorldSpaceIsTheSameEdit)
{
    giveParentMatrix(placed);

    set(Vec3f(1, 2, 3), true);

    EXPECT_EQ(recorder.take(), edit(own, GetParam().mask));
}

TEST_P(ksNodeUtilsPositionTest, WithSingularAncestorsNothingIsSetInWorldSpace)
{
    Matrix flat(placed);
    flat[2] = osg::Vec4f(0, 0, 0, 0);
    giveParentMatrix(flat);
    set(Vec3f(1, 2, 3), false);
    recorder.take();

    set(Vec3f(4, 5, 6), true);

    EXPECT_EQ(recorder.take(), ksRecords());
    EXPECT_EQ(get(false), Vec3f(1, 2, 3));
    EXPECT_EQ(get(true), Vec3f(6, 22, 30));
}

TEST_P(ksNodeUtilsPositionTest, FarAwayFromTheOriginPositionsComeBack)
{
    Matrix far;
    far.setTransform(Vec3f(1e6f, -2e6f, 3e6f), osg::Quaternion(Vec3f(1, 2, 3), 1),
                     Vec3f(0.001f, 0.002f, 0.003f));
    giveParentMatrix(far);

    set(Vec3f(1e6f, -2e6f, 3e6f), true);

    EXPECT_TRUE(get(true).equals(Vec3f(1e6f, -2e6f, 3e6f), 0.25f));
    EXPECT_TRUE(get(false).equals(Vec3f(0, 0, 0), 1e-3f));
}

TEST_P(ksNodeUtilsPositionTest, WithoutTransformWorldSpaceIsZeroAsWell)
{
    giveParentMatrix(placed);
    for (const auto &[target, index] : withoutTransform()) {
        if (target != NullFC && target != node.get())
            addChild(parent, target);
        recorder.take();

        GetParam().set(target, 1, 2, 3, true, index);

        EXPECT_EQ(recorder.take(), ksRecords()) << index;
        EXPECT_EQ(GetParam().get(target, true, index), Vec3f(0, 0, 0)) << index;
    }
}

INSTANTIATE_TEST_SUITE_P(Positions, ksNodeUtilsPositionTest, testing::ValuesIn(positions),
                         [](const auto &info) { return std::string(info.param.name); });

} // namespace
