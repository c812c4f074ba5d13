// SPDX-License-Identifier: MIT
#include "ksTransformFixture.h"
#include "ksTransformValueRow.h"

#include <ksundo/core/ksUndoStack.h>
#include <ksundo/transform/ksAddTransformVariantUndoCommand.h>
#include <ksundo/transform/ksEulerRotationOrderUndoCommand.h>
#include <ksundo/transform/ksRemoveTransformSwitchVariantUndoCommand.h>
#include <ksundo/transform/ksRotationAsQuaternionUndoCommand.h>
#include <ksundo/transform/ksTransformVariantMoveCommand.h>
#include <ksundo/transform/ksTransformVariantNameUndoCommand.h>
#include <ksundo/transform/ksTransformVariantOptionsUndoCommand.h>
#include <ksundo/transform/ksTransformationUndoCommand.h>

#include <algorithm>
#include <memory>
#include <set>
#include <support/ksStackRecorder.h>

namespace {

using osg::NodePtr;
using osg::Vec3f;

/// Where commands of all kinds find something to do.
struct Places
{
    /// A transform below others, with four variants.
    NodePtr full;
    /// One with a single variant.
    NodePtr single;
    /// One whose variants attachment is empty.
    NodePtr empty;
    /// One without a variants attachment.
    NodePtr bare;
    /// A variant that no node has.
    osg::TransformVariantPtr loose;
};

/// One command and what its undo cannot bring back exactly.
struct Kind
{
    std::string name;
    std::function<ksUndoCommand *(const Places &)> make;
    /// Values in world space come back as exactly as they are converted.
    bool inWorldSpace = false;
    /// A field that follows from others, which do come back exactly.
    std::string derivedField;

    friend std::ostream &operator<<(std::ostream &stream, const Kind &kind) { return stream << kind.name; }
};

ksUndoCommand *transformation(const NodePtr &node, int index)
{
    return new ksTransformationUndoCommand(node, Vec3f(1, 2, 3), Vec3f(11, 12, 13), Vec3f(2, 3, 4),
                                           Vec3f(0.5f, 0.25f, 0.75f), Vec3f(4, 5, 6), Vec3f(5, 6, 7),
                                           Vec3f(6, 7, 8), Vec3f(7, 8, 9), 8, "ZXY", true, Vec3f(9, 1, 2), 2,
                                           true, nullptr, {}, index);
}

ksTransformVariantMoveCommand::Notification noMoveNotification()
{
    return [](unsigned int, const QList<int> &, const QList<int> &) {};
}

std::vector<Kind> valueKinds()
{
    std::vector<Kind> kinds;
    for (const ksTransformValueRow &row : ksTransformValueRows::all)
        for (const int index : row.indexes())
            for (const bool mode : row.modes()) {
                const std::string place =
                    (index == -1 ? "" : "_variant" + std::to_string(index)) + (mode ? "_world" : "");
                kinds.push_back({row.className + place,
                                 [&row, index, mode](const Places &places) -> ksUndoCommand * {
                                     return row.make(places.full, Vec3f(3, 0.1f, -0.7f), {mode, index});
                                 },
                                 mode,
                                 {}});
            }
    return kinds;
}

std::vector<Kind> allKinds()
{
    std::vector<Kind> kinds = valueKinds();
    const auto add = [&kinds](const char *name, std::function<ksUndoCommand *(const Places &)> make,
                              const char *derivedField = "") {
        kinds.push_back({name, std::move(make), false, derivedField});
    };
    add("ksEulerRotationOrder",
        [](const Places &places) { return new ksEulerRotationOrderUndoCommand(places.full, "ZXY"); });
    add("ksEulerRotationOrder_variant1", [](const Places &places) {
        return new ksEulerRotationOrderUndoCommand(places.full, "ZXY", nullptr, {}, 1);
    });
    add(
        "ksRotationAsQuaternion",
        [](const Places &places) {
            return new ksRotationAsQuaternionUndoCommand(QStringLiteral("Turn"), places.full,
                                                         osg::Quaternion(0.5f, 0.5f, -0.5f, 0.5f));
        },
        "eulerRotation");
    add("ksTransformVariantOptions", [](const Places &places) {
        return new ksTransformVariantOptionsUndoCommand(ksNodeUtils::getTransformVariant(places.full, 1), 3,
                                                        nullptr, [] {});
    });
    add("ksTransformVariantName", [](const Places &places) {
        return new ksTransformVariantNameUndoCommand(ksNodeUtils::getTransformVariant(places.full, 1), "new",
                                                     nullptr,
                                                     [](const std::string &, const std::string &) {});
    });
    add("ksTransformVariantMove_one", [](const Places &places) {
        return new ksTransformVariantMoveCommand(places.full, 0, 2, nullptr, noMoveNotification());
    });
    add("ksTransformVariantMove_several", [](const Places &places) {
        return new ksTransformVariantMoveCommand(places.full, std::vector<int>{3, 1}, 0, nullptr,
                                                 noMoveNotification());
    });
    const auto addVariant = [&](const char *name, NodePtr Places::*node) {
        add(name, [node](const Places &places) {
            return new ksAddTransformVariantUndoCommand(places.*node, places.loose, 0, nullptr,
                                                        [](unsigned int, int) {});
        });
    };
    addVariant("ksAddTransformVariant_toSeveral", &Places::full);
    addVariant("ksAddTransformVariant_toNone", &Places::empty);
    addVariant("ksAddTransformVariant_withAttachment", &Places::bare);
    const auto removeVariant = [&](const char *name, NodePtr Places::*node) {
        add(name, [node](const Places &places) {
            return new ksRemoveTransformSwitchVariantUndoCommand(places.*node, 0, nullptr,
                                                                 [](unsigned int, int) {});
        });
    };
    removeVariant("ksRemoveTransformSwitchVariant_ofSeveral", &Places::full);
    removeVariant("ksRemoveTransformSwitchVariant_last", &Places::single);
    add("ksTransformation", [](const Places &places) { return transformation(places.full, -1); });
    add("ksTransformation_variant2", [](const Places &places) { return transformation(places.full, 2); });
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
    ksTransformCommandsTest()
    {
        addVariants(node, "abcd");
        addVariants(root, "e");
        addVariants(other, "");
        append(root, other);
        fill(ownTransformOf(other), 5);
        // The direction commands leave switch and axis as they set them, so that these have to be there.
        for (const int index : {-1, 0, 2}) {
            const osg::Transform3DPtr transform = ksNodeUtils::getTransform3D(node, index);
            const osg::CPEditor edit(transform, osg::Transform3D::RotationDirectionsFieldMask);
            transform->setRotationDirectionOn(ksTransformValueRow::directionFlag);
            transform->setRotationDirectionMode(ksTransformValueRow::directionAxis);
        }
    }

    std::unique_ptr<ksUndoCommand> make() const { return std::unique_ptr<ksUndoCommand>(build()); }

    ksUndoCommand *build() const { return GetParam().make({node, root, other, child, loose}); }

    std::vector<osg::Matrix> worldMatrices() const
    {
        std::vector<osg::Matrix> matrices;
        for (osg::NodePtr start : {root.get(), group.get(), node.get(), child.get(), other.get()}) {
            osg::Matrix world;
            for (osg::NodePtr at = start; at != osg::NullFC; at = at->getParent())
                if (const auto transform = osg::TransformPtr::dcast(at->getCore()))
                    world.multLeft(transform->getMatrix());
            matrices.push_back(world);
        }
        return matrices;
    }

    static void expectMatrices(const std::vector<osg::Matrix> &actual,
                               const std::vector<osg::Matrix> &expected,
                               bool exactly = !GetParam().inWorldSpace)
    {
        for (std::size_t i = 0; i < expected.size(); ++i)
            EXPECT_TRUE(exactly ? actual[i] == expected[i] : isNear(actual[i], expected[i])) << "node " << i;
    }

    /// The scene without what the command's undo need not bring back, as far as it is in \a reference.
    std::map<long long, ksFieldTexts> comparable(const std::map<long long, ksFieldTexts> &reference) const
    {
        std::map<long long, ksFieldTexts> result;
        for (auto &[id, texts] : scene()) {
            if (reference.count(id) == 0)
                continue;
            result[id] = texts;
            result[id].erase(GetParam().derivedField);
        }
        return result;
    }

    osg::NodeRefPtr other{nodeWith(osg::Transform3D::create())};
    osg::TransformVariantRefPtr loose{variant("x")};
};

/// The kinds whose undo brings back every bit.
class ksExactTransformCommandsTest : public ksTransformCommandsTest
{};

std::vector<Kind> exactKinds()
{
    std::vector<Kind> kinds = allKinds();
    kinds.erase(
        std::remove_if(kinds.begin(), kinds.end(), [](const Kind &kind) { return kind.inWorldSpace; }),
        kinds.end());
    return kinds;
}

std::string nameOf(const testing::TestParamInfo<Kind> &info)
{
    return info.param.name;
}

} // namespace

INSTANTIATE_TEST_SUITE_P(, ksTransformCommandsTest, testing::ValuesIn(allKinds()), nameOf);
INSTANTIATE_TEST_SUITE_P(, ksExactTransformCommandsTest, testing::ValuesIn(exactKinds()), nameOf);

TEST_P(ksTransformCommandsTest, BringBackEveryWorldMatrix)
{
    const auto before = worldMatrices();
    const auto command = make();
    expectMatrices(worldMatrices(), before);
    command->redo();
    const auto after = worldMatrices();
    for (int i = 0; i < 3; ++i) {
        command->undo();
        expectMatrices(worldMatrices(), before);
        command->redo();
        expectMatrices(worldMatrices(), after);
    }
}

/// Angles are what commands remember of such a turn.
TEST_P(ksTransformCommandsTest, BringBackTurnsThatWereSetAsQuaternionsNearly)
{
    for (const osg::Quaternion &turn :
         {osg::Quaternion(0.3f, -0.7f, 0.2f, 0.6f), osg::Quaternion(0.5f, 0.5f, 0.5f, 0.5f),
          osg::Quaternion(0.1f, 0.70710678f, 0.1f, 0.6928203f)}) {
        ownTransformOf(node)->setRotationAsQuaternion(turn);
        const auto before = worldMatrices();
        const auto command = make();
        command->redo();
        const auto after = worldMatrices();
        for (int i = 0; i < 3; ++i) {
            command->undo();
            expectMatrices(worldMatrices(), before, false);
            command->redo();
            expectMatrices(worldMatrices(), after, false);
        }
        command->undo();
    }
}

TEST_P(ksExactTransformCommandsTest, BringBackTheWholeScene)
{
    const auto reference = scene();
    const auto before = comparable(reference);
    const auto command = make();
    EXPECT_EQ(comparable(reference), before) << "nothing happens before the command runs";
    command->redo();
    const auto after = comparable(reference);
    EXPECT_NE(after, before);
    for (int i = 0; i < 2; ++i) {
        command->undo();
        EXPECT_EQ(comparable(reference), before);
        command->redo();
        EXPECT_EQ(comparable(reference), after);
    }
}

TEST_P(ksTransformCommandsTest, ReachTheOtherAspect)
{
    expectAspectsInStep();
    const auto command = make();
    expectAspectsInStep();
    for (int i = 0; i < 2; ++i) {
        command->redo();
        EXPECT_NE(scene(1), scene(0));
        expectAspectsInStep();
        command->undo();
        EXPECT_NE(scene(1), scene(0));
        expectAspectsInStep();
    }
}

TEST_P(ksTransformCommandsTest, AreReportedByTheStack)
{
    ksUndoStack stack;
    ksStackRecorder events(stack);
    ksUndoCommand *const command = build();
    const std::string text = command->text().toStdString();
    ksMessage message;
    command->makeMessage(message);
    const bool tellsOfTransforms = message.has("transformCommand");
    std::string keys = "id=int:" + std::to_string(command->id());
    std::string keysAfterIndex;
    if (message.has("node"))
        keysAfterIndex += " node=uint:" + std::to_string(*message.get<unsigned int>("node"));
    const auto line = [&](const char *name, bool added) {
        return std::string(name) + "(added=bool:" + (added ? "true" : "false") + ' ' + keys + " index=int:0" +
               keysAfterIndex + " text=string:" + text +
               (tellsOfTransforms ? " transformCommand=bool:true" : "") + ", 0)";
    };
    stack.add(command);
    EXPECT_THAT(events.take(),
                testing::ElementsAre("redoPerformed(" + text + ", true)", line("ksURManager::redo", true)));
    stack.undo();
    EXPECT_THAT(events.take(),
                testing::ElementsAre("undoPerformed(" + text + ")", line("ksURManager::undo", false)));
    stack.redo();
    EXPECT_THAT(events.take(),
                testing::ElementsAre("redoPerformed(" + text + ", false)", line("ksURManager::redo", false)));
}

TEST(ksTransformCommandIds, AreAllDistinct)
{
    std::set<int> ids{ksEulerRotationOrderUndoCommand::commandId(),
                      ksRotationAsQuaternionUndoCommand::commandId(),
                      ksTransformVariantOptionsUndoCommand::commandId(),
                      ksTransformVariantNameUndoCommand::commandId(),
                      ksTransformVariantMoveCommand::commandId(),
                      ksAddTransformVariantUndoCommand::commandId(),
                      ksRemoveTransformSwitchVariantUndoCommand::commandId(),
                      ksTransformationUndoCommand::commandId()};
    EXPECT_EQ(ids.size(), 8u);
    for (const ksTransformValueRow &row : ksTransformValueRows::all)
        EXPECT_TRUE(ids.insert(row.commandId()).second) << row;
    EXPECT_GT(*ids.begin(), 0);
}
