// SPDX-License-Identifier: MIT
#include "ksFunctionTarget.h"
#include "ksTransformFixture.h"
#include "ksTransformValueRow.h"

#include <memory>
#include <type_traits>
#include <utility>

namespace {

using osg::Vec3f;
using Row = ksTransformValueRow;
using Form = ksTransformValueForm;
using Command = std::unique_ptr<Row::Command>;

static_assert(!std::is_constructible_v<ksShearUndoCommand, osg::NodePtr, Vec3f, bool, QUndoCommand *>);
static_assert(!std::is_constructible_v<ksShearUndoCommand, osg::NodePtr, Vec3f, double, QUndoCommand *>);

const Vec3f target(-3.3f, 0.1f, 7.7f);

/// Equal, also in the sign of zeros.
bool sameBits(const Vec3f &a, const Vec3f &b)
{
    return ksTextOf(a) == ksTextOf(b);
}

bool isNear(const Vec3f &actual, const Vec3f &expected)
{
    return (actual - expected).length() <= 1e-5f * (1 + expected.length());
}

class ksTransformValueUndoCommandsTest : public ksTransformFixture, public testing::WithParamInterface<Row>
{
protected:
    ksTransformValueUndoCommandsTest() { addVariants(node, "abc"); }
    ~ksTransformValueUndoCommandsTest() override
    {
        for (const Row &row : ksTransformValueRows::all)
            row.setSync({});
    }

    static const Row &row() { return GetParam(); }

    Command make(const Form &form = {}, const Vec3f &value = target) const
    {
        return Command(row().make(node, value, form));
    }

    /// What the application reads from the node.
    Vec3f read(const Form &form = {}) const { return row().read(node, form.mode, form.index); }

    /// Every mode with every index.
    static std::vector<Form> places()
    {
        std::vector<Form> result;
        for (const int index : row().indexes())
            for (const bool mode : row().modes())
                result.push_back({mode, index});
        return result;
    }

    /// Lets the class's sync function write what it is told, and what is there by then, to the events.
    void logSync(const char *name = "sync")
    {
        row().setSync([this, name](const osg::NodePtr &synced, const Vec3f &value, const std::string &mode) {
            events.push_back(std::string(name) + ' ' + std::to_string(synced.getFieldContainerId()) + ' ' +
                             ksTextOf(value) + ' ' + mode + whatIsThere(value));
        });
    }

    /// A change callback that does the same.
    ksTransformCallback loggingCallback()
    {
        return [this](unsigned int id, const Vec3f &value, int index) {
            events.push_back("callback " + std::to_string(id) + ' ' + ksTextOf(value) + ' ' +
                             std::to_string(index) + whatIsThere(value));
        };
    }

    /// What the events of one step of a command of \a form that writes \a value must be.
    ksTransformEvents stepEvents(const Form &form, const Vec3f &value) const
    {
        const std::string start = std::to_string(nodeId()) + ' ' + ksTextOf(value) + ' ';
        ksTransformEvents expected;
        if (row().hasCallback)
            expected.push_back("callback " + start + std::to_string(form.index) + whatIsThere(value));
        if (row().syncsEveryIndex || form.index == -1)
            expected.push_back("sync " + start + (row().hasMode ? (form.mode ? "true" : "false") : "-") +
                               whatIsThere(value));
        return expected;
    }

    ksTransformEvents take() { return std::exchange(events, {}); }

    /// Whether the node has \a value, which is converted in a mode.
    bool isThere(const Vec3f &value, const Form &form) const
    {
        return form.mode ? isNear(read(form), value) : sameBits(read(form), value);
    }

    Form watched;
    ksTransformEvents events;

private:
    std::string whatIsThere(const Vec3f &value) const
    {
        return isThere(value, watched) ? " which is there"
                                       : " while " + ksTextOf(read(watched)) + " is there";
    }
};

} // namespace

INSTANTIATE_TEST_SUITE_P(, ksTransformValueUndoCommandsTest, testing::ValuesIn(ksTransformValueRows::all),
                         [](const auto &info) { return info.param.className; });

TEST_P(ksTransformValueUndoCommandsTest, ExchangesTheValueThenCallsTheCallbackThenTheSyncFunction)
{
    logSync();
    for (const ksMergeForm &merge : row().mergeForms())
        for (const Form &place : places()) {
            QUndoCommand parent;
            watched = {place.mode, place.index, merge, loggingCallback(), &parent};
            const Vec3f before = read(place);
            ASSERT_FALSE(isNear(before, target));
            const QUndoCommand *command = row().make(node, target, watched);
            ASSERT_EQ(parent.child(0), command);
            EXPECT_EQ(command->text(), make()->text());
            EXPECT_EQ(take(), ksTransformEvents());
            parent.redo();
            EXPECT_EQ(take(), stepEvents(watched, target));
            parent.undo();
            EXPECT_EQ(take(), stepEvents(watched, before));
        }
}

TEST_P(ksTransformValueUndoCommandsTest, TellsByItsConstructorWhetherAndForHowLongItMerges)
{
    const Command older = make();
    std::vector<double> windows;
    for (const ksMergeForm &merge : row().mergeForms())
        windows.push_back(ksMergeWindow(*older, *make({false, -1, merge})));
    std::vector<double> expected{0.375, 0.375, 0, 1.875, 2.125};
    expected.resize(windows.size());
    EXPECT_EQ(windows, expected);
}

TEST_P(ksTransformValueUndoCommandsTest, ChangesOnlyTheTransformOfItsIndex)
{
    for (const int index : row().indexes()) {
        auto expected = scene();
        make({false, index})->redo();
        const long long changed = recorder.idOf(ksNodeUtils::getTransform3D(node, index));
        auto actual = scene();
        EXPECT_NE(actual[changed], expected[changed]);
        actual.erase(changed);
        expected.erase(changed);
        EXPECT_EQ(actual, expected);
    }
}

TEST_P(ksTransformValueUndoCommandsTest, ReadsAndWritesThroughTheApplication)
{
    for (const Form &place : places()) {
        const Command command = make(place);
        EXPECT_TRUE(sameBits(command->get(node), read(place)));
        command->set(node, target);
        EXPECT_TRUE(isThere(target, place));
        EXPECT_TRUE(sameBits(command->get(node), read(place)));
    }
}

TEST_P(ksTransformValueUndoCommandsTest, CallsItsCallbackWhateverTheIndexAndItsSyncFunctionByTheTable)
{
    logSync();
    for (const int index : {-2, 1, 77}) {
        Form place{false, index, {}, loggingCallback()};
        make(place)->redo();
        std::size_t expected = row().hasCallback ? 1 : 0;
        if (row().syncsEveryIndex)
            ++expected;
        EXPECT_EQ(take().size(), expected) << index;
    }
}

TEST_P(ksTransformValueUndoCommandsTest, HandsItsModeToTheApplication)
{
    if (!row().hasMode)
        return;
    const Vec3f world = read({true, -1});
    ASSERT_FALSE(isNear(read(), world)) << "the modes differ here";
    EXPECT_TRUE(sameBits(make({true, -1})->get(node), world));
    make({true, -1})->redo();
    EXPECT_FALSE(isNear(read(), target));
    EXPECT_TRUE(isNear(read({true, -1}), target));
}

TEST_P(ksTransformValueUndoCommandsTest, CallsNoOtherClassesSyncFunction)
{
    for (const Row &other : ksTransformValueRows::all)
        other.setSync([this, &other](const osg::NodePtr &, const Vec3f &, const std::string &) {
            events.push_back(other.className);
        });
    make()->redo();
    EXPECT_THAT(take(), testing::ElementsAre(row().className));
}

TEST_P(ksTransformValueUndoCommandsTest, MergesOnlyInTheSameModeAndIndex)
{
    for (const Form &place : places()) {
        const Command older = make(place);
        for (const Form &other : places()) {
            const Command newer = make(other);
            if (other.mode == place.mode && other.index == place.index)
                EXPECT_TRUE(older->canMergeWith(newer.get()));
            else
                expectNoMerge(*older, *newer);
        }
    }
}

TEST_P(ksTransformValueUndoCommandsTest, NotifiesAlsoForANodeWithoutATransform)
{
    logSync();
    const osg::NodePtr plain = group;
    const Command command(row().make(plain, target, {false, -1, {}, loggingCallback()}));
    const auto before = scene();
    forget();
    command->redo();
    EXPECT_EQ(scene(), before);
    EXPECT_EQ(recorder.take(), ksRecords());
    EXPECT_EQ(take().size(), row().hasCallback ? 2u : 1u);
    EXPECT_TRUE(sameBits(ksFunctionTarget<Vec3f>::valueOf(*command), Vec3f(0, 0, 0)));
}

namespace {

/// What all classes have from the base of sync functions.
class ksTransformSyncTest : public ksTransformFixture
{
protected:
    using Sync = ksRotationUndoCommand;

    ~ksTransformSyncTest() override { Sync::setSyncFunction({}); }

    /// A sync function that logs its name.
    auto logging(const char *name)
    {
        return [this, name](const osg::NodePtr &, const Vec3f &) { events.push_back(name); };
    }

    ksTransformEvents events;
};

class ksRotationPivotDirectionUndoCommandTest : public ksTransformFixture
{
protected:
    ksRotationPivotDirectionUndoCommandTest() { addVariants(node, "ab"); }
};

} // namespace

TEST_F(ksTransformSyncTest, ReachesAllCommandsOfTheClass)
{
    Sync early(node, target);
    early.redo();
    Sync::setSyncFunction(logging("first"));
    early.undo();
    Sync::setSyncFunction(logging("second"));
    early.redo();
    Sync(node, target).redo();
    Sync::setSyncFunction({});
    early.undo();
    EXPECT_THAT(events, testing::ElementsAre("first", "second", "second"));
}

TEST_F(ksTransformSyncTest, LetsGoOfTheFunctionThatIsReplaced)
{
    const auto held = std::make_shared<int>();
    Sync::setSyncFunction([held](const osg::NodePtr &, const Vec3f &) {});
    EXPECT_EQ(held.use_count(), 2);
    Sync::setSyncFunction({});
    EXPECT_EQ(held.use_count(), 1);
}

TEST_F(ksRotationPivotDirectionUndoCommandTest, WritesAxisAndFlagAtEveryStep)
{
    for (const int index : {-1, 1}) {
        const osg::Transform3DPtr transform = ksNodeUtils::getTransform3D(node, index);
        for (const int axis : {2, 0, 7}) {
            for (const bool flag : {true, false}) {
                ksRotationPivotDirectionUndoCommand command(node, target, axis, flag, nullptr, index);
                for (const auto step : {&QUndoCommand::redo, &QUndoCommand::undo}) {
                    transform->setRotationDirectionMode(1);
                    transform->setRotationDirectionOn(!flag);
                    (command.*step)();
                    EXPECT_EQ(transform->getRotationDirectionMode(), axis);
                    EXPECT_EQ(transform->getRotationDirectionOn(), flag);
                }
            }
        }
    }
}

TEST_F(ksRotationPivotDirectionUndoCommandTest, ReadsTheDirectionAsItWasSetWhateverItsAxis)
{
    for (const int index : {-1, 0, 1}) {
        const Vec3f set = ksNodeUtils::getTransform3D(node, index)->getRotationDirection();
        for (const int axis : {0, 1, 2}) {
            ksRotationPivotDirectionUndoCommand command(node, target, axis, true, nullptr, index);
            EXPECT_TRUE(sameBits(command.get(node), set));
            EXPECT_FALSE(sameBits(set, ksNodeUtils::getTransformNodeRotationDirection(node, index, axis)));
        }
    }
}

TEST_F(ksRotationPivotDirectionUndoCommandTest, MergesWhateverItsAxisAndFlag)
{
    ksRotationPivotDirectionUndoCommand older(node, target, 0, true);
    ksRotationPivotDirectionUndoCommand newer(node, target, 1, false);
    EXPECT_TRUE(older.canMergeWith(&newer));
}
