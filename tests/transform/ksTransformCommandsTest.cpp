// SPDX-License-Identifier: MIT
#include "ksTransformFixture.h"
#include "ksTransformValueRow.h"

#include <ksundo/transform/ksEulerRotationOrderUndoCommand.h>
#include <ksundo/transform/ksRotationAsQuaternionUndoCommand.h>
#include <ksundo/transform/ksTransformationUndoCommand.h>

#include <algorithm>
#include <memory>

namespace {

using osg::NodePtr;
using osg::Vec3f;

/// One command on a node with variants, and what its undo cannot bring back exactly.
struct Kind
{
    std::string name;
    std::function<ksUndoCommand *(const NodePtr &)> make;
    /// Values in world space come back as exactly as they are converted.
    bool inWorldSpace = false;
    /// A field that follows from others, which do come back exactly.
    std::string derivedField = {};

    friend std::ostream &operator<<(std::ostream &stream, const Kind &kind) { return stream << kind.name; }
};

std::string placeOf(int index)
{
    return index == -1 ? "" : "_variant" + std::to_string(index);
}

std::vector<Kind> allKinds()
{
    std::vector<Kind> kinds;
    for (const ksTransformValueRow &row : ksTransformValueRows::all)
        for (const int index : row.indexes())
            for (const bool mode : row.modes())
                kinds.push_back({row.className + placeOf(index) + (mode ? "_world" : ""),
                                 [&row, index, mode](const NodePtr &node) -> ksUndoCommand * {
                                     return row.make(node, Vec3f(3, 0.1f, -0.7f), {mode, index});
                                 },
                                 mode});
    for (const int index : {-1, 2}) {
        kinds.push_back({"ksEulerRotationOrderUndoCommand" + placeOf(index), [index](const NodePtr &node) {
                             return new ksEulerRotationOrderUndoCommand(node, "ZXY", nullptr, {}, index);
                         }});
        kinds.push_back({"ksTransformationUndoCommand" + placeOf(index), [index](const NodePtr &node) {
                             const osg::Transform3DRefPtr pattern(osg::Transform3D::create());
                             ksFillTransform(pattern, 9);
                             return new ksTransformationUndoCommand(node, ksTransformation::of(pattern), true,
                                                                    nullptr, {}, index);
                         }});
    }
    kinds.push_back({"ksRotationAsQuaternionUndoCommand",
                     [](const NodePtr &node) {
                         return new ksRotationAsQuaternionUndoCommand(
                             QString(), node, osg::Quaternion(0.5f, 0.5f, -0.5f, 0.5f));
                     },
                     false, "eulerRotation"});
    return kinds;
}

bool isNear(const osg::Matrix &actual, const osg::Matrix &expected)
{
    float scale = 1;
    for (osg::UInt32 i = 0; i < 4; ++i)
        scale = std::max(scale, expected[i].length());
    return actual.equals(expected, 1e-5f * scale);
}

class ksTransformCommandsTest : public ksTransformFixture, public testing::WithParamInterface<Kind>
{
protected:
    using Matrices = std::vector<osg::Matrix>;

    ksTransformCommandsTest()
    {
        addVariants(node, "abcd");
        // The direction commands leave switch and axis as they set them, so that these have to be there.
        for (const int index : {-1, 0, 2}) {
            const osg::Transform3DPtr transform = ksNodeUtils::getTransform3D(node, index);
            const osg::CPEditor edit(transform, osg::Transform3D::RotationDirectionsFieldMask);
            transform->setRotationDirectionOn(ksTransformValueRow::directionFlag);
            transform->setRotationDirectionMode(ksTransformValueRow::directionAxis);
        }
    }

    Matrices worldMatrices() const
    {
        Matrices matrices;
        for (osg::NodePtr start : {root.get(), group.get(), node.get(), child.get()}) {
            osg::Matrix world;
            for (osg::NodePtr at = start; at != osg::NullFC; at = at->getParent())
                if (const auto transform = osg::TransformPtr::dcast(at->getCore()))
                    world.multLeft(transform->getMatrix());
            matrices.push_back(world);
        }
        return matrices;
    }

    /// The scene without what the command's undo need not bring back.
    std::map<long long, ksFieldTexts> comparable() const
    {
        auto result = scene();
        for (auto &[id, texts] : result)
            texts.erase(GetParam().derivedField);
        return result;
    }

    /// Expects that a command brings back all matrices, and the whole scene, if \a exactly.
    void expectWayBack(bool exactly)
    {
        const Matrices before = worldMatrices();
        const auto sceneBefore = comparable();
        const std::unique_ptr<ksUndoCommand> command(GetParam().make(node));
        command->redo();
        const Matrices after = worldMatrices();
        const auto sceneAfter = comparable();
        EXPECT_NE(sceneAfter, sceneBefore);
        for (int i = 0; i < 3; ++i) {
            command->undo();
            expectMatrices(worldMatrices(), before, exactly);
            EXPECT_TRUE(!exactly || comparable() == sceneBefore);
            command->redo();
            expectMatrices(worldMatrices(), after, exactly);
            EXPECT_TRUE(!exactly || comparable() == sceneAfter);
        }
        command->undo();
    }

    /// The fields of the node's transforms by their indexes, its own at -1.
    std::map<int, ksFieldTexts> transforms() const
    {
        std::map<int, ksFieldTexts> result;
        for (int index = -1; index < static_cast<int>(ksNodeUtils::getTransformVariantCount(node)); ++index)
            result[index] = ksFieldTextsOf(ksNodeUtils::getTransform3D(node, index));
        return result;
    }

    /// The indexes of the transforms that \a step changes.
    template <class Step>
    std::vector<int> changedBy(Step step) const
    {
        const auto before = transforms();
        step();
        std::vector<int> indexes;
        for (const auto &[index, texts] : transforms())
            if (texts != before.at(index))
                indexes.push_back(index);
        return indexes;
    }

private:
    static void expectMatrices(const Matrices &actual, const Matrices &expected, bool exactly)
    {
        for (std::size_t i = 0; i < expected.size(); ++i)
            EXPECT_TRUE(exactly ? actual[i] == expected[i] : isNear(actual[i], expected[i])) << "node " << i;
    }
};

} // namespace

INSTANTIATE_TEST_SUITE_P(, ksTransformCommandsTest, testing::ValuesIn(allKinds()),
                         [](const auto &info) { return info.param.name; });

TEST_P(ksTransformCommandsTest, BringBackEveryWorldMatrixAndTheWholeScene)
{
    expectWayBack(!GetParam().inWorldSpace);
}

/// Angles are what commands remember of such a turn.
TEST_P(ksTransformCommandsTest, BringBackTurnsThatWereSetAsQuaternionsNearly)
{
    for (const osg::Quaternion &turn :
         {osg::Quaternion(0.3f, -0.7f, 0.2f, 0.6f), osg::Quaternion(0.5f, 0.5f, 0.5f, 0.5f),
          osg::Quaternion(0.1f, 0.70710678f, 0.1f, 0.6928203f)}) {
        ownTransformOf(node)->setRotationAsQuaternion(turn);
        expectWayBack(false);
    }
}

TEST_P(ksTransformCommandsTest, ConcernWhatStandsAtTheirIndexThen)
{
    const std::unique_ptr<ksUndoCommand> command(GetParam().make(node));
    const std::vector<int> changed = changedBy([&] { command->redo(); });
    ASSERT_EQ(changed.size(), 1u);
    ksNodeUtils::setTransformNodeEulerRotationOrder(node, "YXZ", 1); // another than that of all the others
    ksNodeUtils::insertTransformVariant(node, 0, variant("x"));
    EXPECT_EQ(changedBy([&] { command->undo(); }), changed);
}
