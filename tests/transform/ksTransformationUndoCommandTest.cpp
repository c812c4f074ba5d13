// SPDX-License-Identifier: MIT
#include "ksTransformFixture.h"

#include <ksundo/transform/ksTransformationUndoCommand.h>

#include <memory>
#include <type_traits>
#include <utility>

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

/// Box has the variants a, b and c. All commands write the same new values.
class ksTransformationUndoCommandTest : public ksTransformFixture
{
protected:
    ksTransformationUndoCommandTest()
    {
        addVariants(node, "abc");
        ksFillTransform(pattern, 21);
        pattern->setEulerRotationOrder("ZXY");
        pattern->setRotationDirectionOn(true);
        pattern->setRotationDirectionMode(2);
    }
    ~ksTransformationUndoCommandTest() override { Command::setSyncFunction({}); }

    std::unique_ptr<Command> make(const osg::NodePtr &target, const Form &form = {}) const
    {
        return std::make_unique<Command>(target, ksTransformation::of(pattern), form.syncs, form.parent,
                                         form.notification, form.index);
    }

    /// The fields of a transform that a command is about, but for the quaternion and the matrix.
    static ksFieldTexts valuesOf(const osg::Transform3DPtr &transform)
    {
        ksFieldTexts values = ksFieldTextsOf(transform);
        for (const char *field : {"rotation", "matrix", "attachments", "parents", "rotationOrientation"})
            values.erase(field);
        return values;
    }

    ksFieldTexts newValues() const { return valuesOf(pattern); }

    /// What a command finds where there is no transform.
    ksFieldTexts noValues() const
    {
        ksFieldTexts values = newValues();
        for (auto &[field, text] : values)
            text = ksTextOf(Vec3f());
        values["inheritType"] = values["rotationDirectionMode"] = "0";
        values["eulerRotationOrder"] = "\"\"";
        values["rotationDirectionOn"] = "FALSE";
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

    /// A transform with the new values, no two of which are the same.
    const osg::Transform3DRefPtr pattern{osg::Transform3D::create()};
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

TEST_F(ksTransformationUndoCommandTest, TakesTheValuesOneByOneAsWell)
{
    logSync();
    const ksTransformation v = ksTransformation::of(pattern);
    QUndoCommand parent;
    new Command(node, v.translation, v.rotation, v.scale, v.shear, v.scalePivot, v.rotatePivot,
                v.scalePivotTranslation, v.rotatePivotTranslation, v.inheritType, v.eulerRotationOrder,
                v.rotationDirectionOn, v.rotationDirection, v.rotationDirectionMode, true, &parent,
                loggingNotification(), -1);
    ASSERT_EQ(parent.childCount(), 1);
    parent.redo();
    EXPECT_EQ(valuesOf(transform()), newValues());
    EXPECT_EQ(take().size(), 2u);
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

TEST_F(ksTransformationUndoCommandTest, CapturesTheOldSetOnceWhenItIsBuilt)
{
    const ksFieldTexts before = valuesOf(transform());
    const auto command = make(node);
    ksFillTransform(transform(), 7);
    command->redo();
    EXPECT_EQ(valuesOf(transform()), newValues());
    ksFillTransform(transform(), 8);
    command->undo();
    EXPECT_EQ(valuesOf(transform()), before);
    ksFillTransform(transform(), 9);
    command->redo();
    EXPECT_EQ(valuesOf(transform()), newValues());
    command->undo();
    EXPECT_EQ(valuesOf(transform()), before);
}

TEST_F(ksTransformationUndoCommandTest, FindsDefaultsWhereThereIsNoTransform)
{
    const osg::NodeRefPtr loose(nodeWith(osg::Group::create()));
    const auto command = make(loose);
    loose->setCore(osg::Transform3D::create());
    ksFillTransform(ownTransformOf(loose), 5);
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

TEST_F(ksTransformationUndoCommandTest, SyncsOnlyTheNodesOwnTransformAndOnlyWhenSwitchedOn)
{
    logSync();
    for (const Form &form : {Form{2, true}, Form{-1, false}, Form{0, false}}) {
        const auto command = make(node, {form.index, form.syncs, loggingNotification()});
        command->redo();
        command->undo();
        const std::string start = "notification " + std::to_string(form.index);
        EXPECT_THAT(take(), testing::ElementsAre(start + " at new", start + " at old"));
    }
}
