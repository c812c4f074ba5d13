// SPDX-License-Identifier: MIT
#include "ksTransformFixture.h"

#include <ksundo/core/ksUndoStack.h>
#include <ksundo/transform/ksTransformationUndoCommand.h>

#include <memory>
#include <support/ksEchoTranslator.h>
#include <type_traits>

static_assert(std::is_base_of_v<ksUndoCommand, ksTransformationUndoCommand> &&
              std::is_base_of_v<ksTransformUndoBaseCommand, ksTransformationUndoCommand>);

namespace {

using Command = ksTransformationUndoCommand;
using osg::Vec3f;

/// How to build a command, apart from its node and its values.
struct Form
{
    int index = -1;
    bool syncs = true;
    Command::Notification notification = {};
    QUndoCommand *parent = nullptr;
};

/// Box has the variants a, b and c. All commands write the same new values, no two of which are the same.
class ksTransformationUndoCommandTest : public ksTransformFixture
{
protected:
    ksTransformationUndoCommandTest() { addVariants(node, "abc"); }
    ~ksTransformationUndoCommandTest() override { Command::setSyncFunction({}); }

    static std::unique_ptr<Command> make(const osg::NodePtr &target, const Form &form = {})
    {
        return std::make_unique<Command>(
            target, Vec3f(1, 2, 3), Vec3f(11, 12, 13), Vec3f(21, 22, 23), Vec3f(31, 32, 33),
            Vec3f(41, 42, 43), Vec3f(51, 52, 53), Vec3f(61, 62, 63), Vec3f(71, 72, 73), 8, "ZXY", true,
            Vec3f(91, 92, 93), 2, form.syncs, form.parent, form.notification, form.index);
    }

    /// The fields of a transform that a command is about, but for the quaternion and the matrix.
    static ksFieldTexts valuesOf(const osg::Transform3DPtr &transform)
    {
        ksFieldTexts values = ksFieldTextsOf(transform);
        for (const char *field : {"rotation", "matrix", "attachments", "parents", "rotationOrientation"})
            values.erase(field);
        return values;
    }

    static const ksFieldTexts &newValues()
    {
        static const ksFieldTexts values = {{"translation", ksTextOf(Vec3f(1, 2, 3))},
                                            {"eulerRotation", ksTextOf(Vec3f(11, 12, 13))},
                                            {"scale", ksTextOf(Vec3f(21, 22, 23))},
                                            {"shear", ksTextOf(Vec3f(31, 32, 33))},
                                            {"scalePivot", ksTextOf(Vec3f(41, 42, 43))},
                                            {"rotatePivot", ksTextOf(Vec3f(51, 52, 53))},
                                            {"scalePivotTranslation", ksTextOf(Vec3f(61, 62, 63))},
                                            {"rotatePivotTranslation", ksTextOf(Vec3f(71, 72, 73))},
                                            {"inheritType", "8"},
                                            {"eulerRotationOrder", "ZXY"},
                                            {"rotationDirectionOn", "TRUE"},
                                            {"rotationDirection", ksTextOf(Vec3f(91, 92, 93))},
                                            {"rotationDirectionMode", "2"}};
        return values;
    }

    /// What a command finds where there is no transform.
    static const ksFieldTexts &noValues()
    {
        static const ksFieldTexts values = {{"translation", ksTextOf(Vec3f())},
                                            {"eulerRotation", ksTextOf(Vec3f())},
                                            {"scale", ksTextOf(Vec3f())},
                                            {"shear", ksTextOf(Vec3f())},
                                            {"scalePivot", ksTextOf(Vec3f())},
                                            {"rotatePivot", ksTextOf(Vec3f())},
                                            {"scalePivotTranslation", ksTextOf(Vec3f())},
                                            {"rotatePivotTranslation", ksTextOf(Vec3f())},
                                            {"inheritType", "0"},
                                            {"eulerRotationOrder", ""},
                                            {"rotationDirectionOn", "FALSE"},
                                            {"rotationDirection", ksTextOf(Vec3f())},
                                            {"rotationDirectionMode", "0"}};
        return values;
    }

    Command::Notification loggingNotification()
    {
        return [this](int index) {
            events.push_back("notification " + std::to_string(index) + whatIsThere(index));
        };
    }

    void logSync(const char *name = "sync")
    {
        Command::setSyncFunction([this, name](const osg::NodePtr &synced) {
            events.push_back(std::string(name) + ' ' + std::to_string(synced.getFieldContainerId()) +
                             whatIsThere(-1));
        });
    }

    ksTransformEvents take() { return std::exchange(events, {}); }

    osg::Transform3DPtr transform(int index = -1) const { return ksNodeUtils::getTransform3D(node, index); }

    ksTransformEvents events;

private:
    std::string whatIsThere(int index) const
    {
        return valuesOf(transform(index)) == newValues() ? " at new" : " at old";
    }
};

} // namespace

TEST_F(ksTransformationUndoCommandTest, WritesTheNewAndTheOldSet)
{
    for (const int index : {-1, 0, 2}) {
        const ksFieldTexts before = ksFieldTextsOf(transform(index));
        const auto command = make(node, {index});
        EXPECT_EQ(ksFieldTextsOf(transform(index)), before);
        command->redo();
        const ksFieldTexts after = ksFieldTextsOf(transform(index));
        EXPECT_EQ(valuesOf(transform(index)), newValues());
        command->undo();
        EXPECT_EQ(ksFieldTextsOf(transform(index)), before);
        command->redo();
        EXPECT_EQ(ksFieldTextsOf(transform(index)), after);
    }
}

TEST_F(ksTransformationUndoCommandTest, ChangesNothingElse)
{
    for (const int index : {-1, 1}) {
        auto before = scene();
        make(node, {index})->redo();
        auto after = scene();
        before.erase(recorder.idOf(transform(index)));
        after.erase(recorder.idOf(transform(index)));
        EXPECT_EQ(after, before);
    }
}

TEST_F(ksTransformationUndoCommandTest, RestoresRotationDirectionsThatWereOn)
{
    transform()->setRotationDirectionOn(true);
    transform()->setRotationDirectionMode(0);
    const auto command = make(node);
    command->redo();
    transform()->setRotationDirectionOn(false);
    command->undo();
    EXPECT_TRUE(transform()->getRotationDirectionOn());
    EXPECT_EQ(transform()->getRotationDirectionMode(), 0);
}

TEST_F(ksTransformationUndoCommandTest, CapturesTheOldSetOnceWhenItIsBuilt)
{
    const ksFieldTexts before = valuesOf(transform());
    const auto command = make(node);
    fill(transform(), 7);
    command->redo();
    EXPECT_EQ(valuesOf(transform()), newValues());
    fill(transform(), 8);
    command->undo();
    EXPECT_EQ(valuesOf(transform()), before);
    fill(transform(), 9);
    command->redo();
    EXPECT_EQ(valuesOf(transform()), newValues());
    command->undo();
    EXPECT_EQ(valuesOf(transform()), before);
}

TEST_F(ksTransformationUndoCommandTest, WritesTheOldSetWhenUndoComesFirst)
{
    const ksFieldTexts before = valuesOf(transform());
    const auto command = make(node);
    fill(transform(), 7);
    command->undo();
    EXPECT_EQ(valuesOf(transform()), before);
}

TEST_F(ksTransformationUndoCommandTest, RecordsOneEditPerStep)
{
    const osg::BitVector mask =
        (osg::Transform3D::ComponentsFieldMask & ~osg::Transform3D::RotationOrientationFieldMask) |
        osg::Transform3D::InheritTypeFieldMask;
    const ksRecords edit = ksRecords().change(recorder.idOf(transform(1)), mask);
    forget();
    {
        const auto command = make(node, {1});
        EXPECT_EQ(recorder.take(), ksRecords());
        command->redo();
        EXPECT_EQ(recorder.take(), edit);
        command->undo();
        EXPECT_EQ(recorder.take(), edit);
        EXPECT_EQ(countOf(node), 2);
    }
    EXPECT_EQ(recorder.take(), ksRecords());
}

TEST_F(ksTransformationUndoCommandTest, FindsDefaultsWhereThereIsNoTransform)
{
    const osg::NodeRefPtr loose(nodeWith(osg::Group::create()));
    const auto command = make(loose);
    loose->setCore(osg::Transform3D::create());
    fill(ownTransformOf(loose), 5);
    command->redo();
    EXPECT_EQ(valuesOf(ownTransformOf(loose)), newValues());
    command->undo();
    EXPECT_EQ(valuesOf(ownTransformOf(loose)), noValues());
}

TEST_F(ksTransformationUndoCommandTest, FindsDefaultsForAnIndexWithoutAVariant)
{
    for (const int index : {3, -2}) {
        const auto command = make(node, {index});
        forget();
        command->redo();
        EXPECT_EQ(recorder.take(), ksRecords());
    }
    const auto command = make(node, {3});
    addVariants(node, "d");
    command->undo();
    EXPECT_EQ(valuesOf(transform(3)), noValues());
}

TEST_F(ksTransformationUndoCommandTest, ReadsTheTransformThatGovernsTheNodeAndWritesTheNodesOwn)
{
    const ksFieldTexts ofRoot = valuesOf(ownTransformOf(root));
    const auto command = make(group);
    const auto before = scene();
    forget();
    command->redo();
    EXPECT_EQ(scene(), before) << "the node has no transform that could be written";
    EXPECT_EQ(recorder.take(), ksRecords());

    group->setCore(osg::Transform3D::create());
    command->redo();
    EXPECT_EQ(valuesOf(ownTransformOf(group)), newValues());
    command->undo();
    EXPECT_EQ(valuesOf(ownTransformOf(group)), ofRoot);
    EXPECT_EQ(valuesOf(ownTransformOf(root)), ofRoot);
}

TEST_F(ksTransformationUndoCommandTest, ReadsTheVariantOfTheNodeThatGoverns)
{
    addVariants(root, "x");
    const ksFieldTexts ofRoot = valuesOf(ksNodeUtils::getTransform3D(root, 0));
    const auto command = make(group, {0});
    addVariants(group, "y");
    command->undo();
    EXPECT_EQ(valuesOf(ksNodeUtils::getTransform3D(group, 0)), ofRoot);
}

TEST_F(ksTransformationUndoCommandTest, NotifiesThenSyncsAfterItHasWritten)
{
    logSync();
    const auto command = make(node, {-1, true, loggingNotification()});
    EXPECT_EQ(take(), ksTransformEvents());
    const std::string sync = "sync " + std::to_string(nodeId());
    command->redo();
    EXPECT_THAT(take(), testing::ElementsAre("notification -1 at new", sync + " at new"));
    command->undo();
    EXPECT_THAT(take(), testing::ElementsAre("notification -1 at old", sync + " at old"));
    command->redo();
    EXPECT_THAT(take(), testing::ElementsAre("notification -1 at new", sync + " at new"));
}

TEST_F(ksTransformationUndoCommandTest, SyncsOnlyTheNodesOwnTransform)
{
    logSync();
    const auto command = make(node, {2, true, loggingNotification()});
    command->redo();
    command->undo();
    EXPECT_THAT(take(), testing::ElementsAre("notification 2 at new", "notification 2 at old"));
}

TEST_F(ksTransformationUndoCommandTest, SyncsOnlyWhenSwitchedOn)
{
    logSync();
    for (const int index : {-1, 0}) {
        const auto command = make(node, {index, false, loggingNotification()});
        command->redo();
        command->undo();
        const std::string start = "notification " + std::to_string(index);
        EXPECT_THAT(take(), testing::ElementsAre(start + " at new", start + " at old"));
    }
}

TEST_F(ksTransformationUndoCommandTest, DoesWithoutNotificationAndSyncFunction)
{
    const auto command = make(node);
    command->redo();
    EXPECT_EQ(valuesOf(transform()), newValues());
    logSync();
    command->undo();
    EXPECT_THAT(take(), testing::ElementsAre("sync " + std::to_string(nodeId()) + " at old"));
}

TEST_F(ksTransformationUndoCommandTest, SharesTheSyncFunctionOfItsClass)
{
    const std::string id = std::to_string(nodeId());
    const auto command = make(node);
    logSync("first");
    command->redo();
    logSync("second");
    command->undo();
    Command::setSyncFunction({});
    command->redo();
    EXPECT_THAT(take(), testing::ElementsAre("first " + id + " at new", "second " + id + " at old"));
}

TEST_F(ksTransformationUndoCommandTest, IsIdleWithoutANode)
{
    logSync();
    const Form form{-1, true, loggingNotification()};
    const auto nowhere = make(osg::NullFC, form);
    const auto fresh = make(node, form);
    const auto undone = make(node, form);
    undone->redo();
    undone->undo();
    const auto applied = make(node, form);
    applied->redo();
    {
        const ksSlotSwap swap(nodeId(), node->getCore());
        take();
        expectIdle(*fresh);
    }
    EXPECT_EQ(take(), ksTransformEvents());
    destroyNode();
    for (const auto *command : {&nowhere, &fresh, &undone, &applied})
        expectIdle(**command);
    EXPECT_EQ(take(), ksTransformEvents());
}

TEST_F(ksTransformationUndoCommandTest, IsCalledByTheNodeUntranslatedAndUnquoted)
{
    const ksEchoTranslator translator;
    EXPECT_EQ(make(node)->text(), QStringLiteral("Apply transformation to Box"));
    EXPECT_EQ(make(group)->text(), QStringLiteral("Apply transformation to Group"));
    EXPECT_EQ(make(osg::NullFC)->text(), QStringLiteral("Apply transformation to "));
    osg::setName(node.get(), "K\xc3\xb6rper %1");
    EXPECT_EQ(make(node)->text().toStdString(), "Apply transformation to K\xc3\xb6rper %1");
}

TEST_F(ksTransformationUndoCommandTest, TellsItsIdAndBelongsToItsParent)
{
    QUndoCommand parent;
    const Command *command = make(node, {-1, true, {}, &parent}).release();
    ASSERT_EQ(parent.childCount(), 1);
    EXPECT_EQ(parent.child(0), command);
    EXPECT_EQ(command->id(), Command::commandId());
    EXPECT_EQ(ksMessageOf(*command), "id=int:" + std::to_string(Command::commandId()));
}

TEST_F(ksTransformationUndoCommandTest, NeverMerges)
{
    const auto older = make(node);
    const auto newer = make(node);
    expectNoMerge(*older, *newer);

    ksUndoStack stack;
    for (int i = 0; i < 2; ++i) {
        Command *command = make(node).release();
        command->setMergeResponseDelta(-1.0);
        stack.add(command);
    }
    EXPECT_EQ(stack.count(), 2);
}
