// SPDX-License-Identifier: MIT
#include "ksFunctionTarget.h"
#include "ksTransformFixture.h"
#include "ksTransformValueRow.h"

#include <ksundo/core/ksUndoStack.h>

#include <algorithm>
#include <iterator>
#include <memory>
#include <support/ksEchoTranslator.h>
#include <type_traits>

namespace {

using Row = ksTransformValueRow;
using Form = ksTransformValueForm;
using Command = std::unique_ptr<Row::Command>;

static_assert(!std::is_constructible_v<ksShearUndoCommand, osg::NodePtr, osg::Vec3f, bool, QUndoCommand *>);
static_assert(!std::is_constructible_v<ksShearUndoCommand, osg::NodePtr, osg::Vec3f, double, QUndoCommand *>);

const osg::Vec3f target(-3.3f, 0.1f, 7.7f);

/// Equal, also in the sign of zeros.
bool sameBits(const osg::Vec3f &a, const osg::Vec3f &b)
{
    return ksTextOf(a) == ksTextOf(b);
}

bool isNear(const osg::Vec3f &actual, const osg::Vec3f &expected)
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

    Command make(const Form &form = {}, const osg::Vec3f &value = target) const
    {
        return Command(row().make(node, value, form));
    }

    /// What the application reads from the node.
    osg::Vec3f read(const Form &form = {}) const { return row().read(node, form.mode, form.index); }

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
        row().setSync(
            [this, name](const osg::NodePtr &synced, const osg::Vec3f &value, const std::string &mode) {
                events.push_back(std::string(name) + ' ' + std::to_string(synced.getFieldContainerId()) +
                                 ' ' + ksTextOf(value) + ' ' + mode + whatIsThere(value));
            });
    }

    /// A change callback that does the same.
    ksTransformCallback loggingCallback()
    {
        return [this](unsigned int id, const osg::Vec3f &value, int index) {
            events.push_back("callback " + std::to_string(id) + ' ' + ksTextOf(value) + ' ' +
                             std::to_string(index) + whatIsThere(value));
        };
    }

    /// What the events of one step of a command of \a form that writes \a value must be.
    ksTransformEvents stepEvents(const Form &form, const osg::Vec3f &value) const
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

    Form watched;
    ksTransformEvents events;

private:
    std::string whatIsThere(const osg::Vec3f &value) const
    {
        const osg::Vec3f there = read(watched);
        const bool same = watched.mode ? isNear(there, value) : sameBits(there, value);
        return same ? " which is there" : " while " + ksTextOf(there) + " is there";
    }
};

/// The classes with three constructors.
class ksTransformValueMergeForms : public ksTransformValueUndoCommandsTest
{};

/// The classes with a mode.
class ksTransformValueModes : public ksTransformValueUndoCommandsTest
{};

std::string nameOf(const testing::TestParamInfo<Row> &info)
{
    return info.param.className;
}

std::vector<Row> rowsWithForms()
{
    std::vector<Row> rows = ksTransformValueRows::all;
    rows.pop_back();
    return rows;
}

std::vector<Row> rowsWithModes()
{
    std::vector<Row> rows;
    std::copy_if(ksTransformValueRows::all.begin(), ksTransformValueRows::all.end(), std::back_inserter(rows),
                 [](const Row &row) { return row.hasMode; });
    return rows;
}

} // namespace

INSTANTIATE_TEST_SUITE_P(, ksTransformValueUndoCommandsTest, testing::ValuesIn(ksTransformValueRows::all),
                         nameOf);
INSTANTIATE_TEST_SUITE_P(, ksTransformValueMergeForms, testing::ValuesIn(rowsWithForms()), nameOf);
INSTANTIATE_TEST_SUITE_P(, ksTransformValueModes, testing::ValuesIn(rowsWithModes()), nameOf);

TEST_P(ksTransformValueUndoCommandsTest, ExchangesTheValueAtEveryStep)
{
    for (const Form &place : places()) {
        const osg::Vec3f before = read(place);
        ASSERT_FALSE(isNear(before, target));
        const Command command = make(place);
        EXPECT_TRUE(sameBits(read(place), before)) << "nothing is written before the command runs";
        for (int i = 0; i < 2; ++i) {
            command->redo();
            EXPECT_TRUE(place.mode ? isNear(read(place), target) : sameBits(read(place), target));
            command->undo();
            EXPECT_TRUE(place.mode ? isNear(read(place), before) : sameBits(read(place), before));
        }
    }
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

TEST_P(ksTransformValueUndoCommandsTest, ExchangesAsWellWhenUndoComesFirst)
{
    const osg::Vec3f before = read();
    const Command command = make();
    command->undo();
    EXPECT_TRUE(sameBits(read(), target));
    command->redo();
    EXPECT_TRUE(sameBits(read(), before));
}

TEST_P(ksTransformValueUndoCommandsTest, ReadsAndWritesThroughTheApplication)
{
    for (const Form &place : places()) {
        const Command command = make(place);
        EXPECT_TRUE(sameBits(command->get(node), read(place)));
        command->set(node, target);
        EXPECT_TRUE(place.mode ? isNear(read(place), target) : sameBits(read(place), target));
        EXPECT_TRUE(sameBits(command->get(node), read(place)));
    }
}

TEST_P(ksTransformValueUndoCommandsTest, RecordsOneEditPerStep)
{
    for (const Form &place : places()) {
        const osg::Transform3DPtr transform = ksNodeUtils::getTransform3D(node, place.index);
        const ksRecords edit = ksRecords().change(recorder.idOf(transform), row().mask);
        const Command command = make(place);
        forget();
        command->redo();
        EXPECT_EQ(recorder.take(), edit);
        command->undo();
        EXPECT_EQ(recorder.take(), edit);
        make(place, read(place))->redo();
        EXPECT_EQ(recorder.take(), edit) << "what is there already is written as well";
    }
}

TEST_P(ksTransformValueUndoCommandsTest, CallsTheCallbackThenTheSyncFunctionAfterItHasWritten)
{
    logSync();
    for (Form place : places()) {
        SCOPED_TRACE("index " + std::to_string(place.index) + (place.mode ? " in mode" : ""));
        watched = place;
        place.callback = loggingCallback();
        const osg::Vec3f before = read(place);
        const Command command = make(place);
        EXPECT_EQ(take(), ksTransformEvents());
        command->redo();
        EXPECT_EQ(take(), stepEvents(place, target));
        command->undo();
        EXPECT_EQ(take(), stepEvents(place, before));
        command->redo();
        EXPECT_EQ(take().size(), stepEvents(place, target).size());
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

TEST_P(ksTransformValueUndoCommandsTest, DoesWithoutCallbackAndSyncFunction)
{
    const Command command = make();
    command->redo();
    EXPECT_TRUE(sameBits(read(), target));
    command->undo();
    EXPECT_FALSE(sameBits(read(), target));
}

TEST_P(ksTransformValueUndoCommandsTest, SharesTheSyncFunctionOfItsClass)
{
    const Command early = make();
    const auto syncs = [this] {
        ksTransformEvents names;
        for (const std::string &event : take())
            names.push_back(event.substr(0, event.find(' ')));
        return names;
    };
    early->redo();
    EXPECT_THAT(syncs(), testing::IsEmpty());
    logSync("first");
    early->undo();
    EXPECT_THAT(syncs(), testing::ElementsAre("first"));
    logSync("second");
    early->redo();
    make()->redo();
    EXPECT_THAT(syncs(), testing::ElementsAre("second", "second"));
    row().setSync({});
    early->undo();
    EXPECT_THAT(syncs(), testing::IsEmpty());
}

TEST_P(ksTransformValueUndoCommandsTest, CallsNoOtherClassesSyncFunction)
{
    for (const Row &other : ksTransformValueRows::all)
        other.setSync([this, &other](const osg::NodePtr &, const osg::Vec3f &, const std::string &) {
            events.push_back(other.className);
        });
    make()->redo();
    EXPECT_THAT(take(), testing::ElementsAre(row().className));
}

TEST_P(ksTransformValueUndoCommandsTest, LetsGoOfTheSyncFunctionThatIsReplaced)
{
    auto held = std::make_shared<int>();
    const std::weak_ptr<int> watch = held;
    const auto hold = [held](const osg::NodePtr &, const osg::Vec3f &, const std::string &) {};
    row().setSync(hold);
    held.reset();
    make()->redo();
    EXPECT_GE(watch.use_count(), 2) << "one here, one in the class";
    row().setSync({});
    EXPECT_EQ(watch.use_count(), 1);
}

TEST_P(ksTransformValueUndoCommandsTest, IsCalledByVerbAndNode)
{
    EXPECT_EQ(make()->text().toStdString(), row().verb + std::string(" 'Box'"));
    osg::setName(node.get(), "K\xc3\xb6rper %1");
    EXPECT_EQ(make()->text().toStdString(), row().verb + std::string(" 'K\xc3\xb6rper %1'"));
    osg::setName(node.get(), nullptr);
    EXPECT_EQ(make()->text().toStdString(), row().verb + std::string(" 'Transform3D'"));
    node = osg::NullFC;
    EXPECT_EQ(make()->text().toStdString(), row().verb + std::string(" ''"));
}

TEST_P(ksTransformValueUndoCommandsTest, TranslatesTheVerbInTheContextOfItsClass)
{
    const ksEchoTranslator translator;
    EXPECT_EQ(make()->text().toStdString(), std::string(row().className) + '|' + row().verb + " 'Box'");
}

TEST_P(ksTransformValueUndoCommandsTest, TellsTheNodeAndThatItIsATransformCommand)
{
    EXPECT_EQ(ksMessageOf(*make()), "id=int:" + std::to_string(row().commandId()) + " node=uint:" +
                                        std::to_string(nodeId()) + " transformCommand=bool:true");
}

TEST_P(ksTransformValueUndoCommandsTest, HasAnIdOfItsOwn)
{
    const Command command = make();
    EXPECT_EQ(command->id(), row().commandId());
    EXPECT_EQ(command->id(), ksUndoCommand::makeId(typeid(*command)));
}

TEST_P(ksTransformValueUndoCommandsTest, BelongsToItsParent)
{
    QUndoCommand parent;
    const QUndoCommand *command = row().make(node, target, {false, -1, {}, {}, &parent});
    ASSERT_EQ(parent.childCount(), 1);
    EXPECT_EQ(parent.child(0), command);
}

TEST_P(ksTransformValueUndoCommandsTest, MergesWithCommandsOfItsClassOnlyOnTheSameNode)
{
    const Command older = make();
    const Command newer = make({}, osg::Vec3f(1, 2, 3));
    EXPECT_TRUE(older->canMergeWith(newer.get()));
    const Command elsewhere(row().make(child, target, {}));
    expectNoMerge(*older, *elsewhere);
    for (const Row &other : ksTransformValueRows::all) {
        const Command command(other.make(node, target, {}));
        if (other.className != row().className)
            expectNoMerge(*older, *command);
    }
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

TEST_P(ksTransformValueUndoCommandsTest, MergesOnlyInTimeAndUnlessSwitchedOff)
{
    const Command older = make();
    const Command newer = make();
    ksCommandTime::of(*older) = 1000;
    ksCommandTime::of(*newer) = 1000.5;
    EXPECT_FALSE(older->mergeWith(newer.get()));
    ksCommandTime::of(*newer) = 1000.375;
    EXPECT_TRUE(older->mergeWith(newer.get()));
    EXPECT_EQ(ksCommandTime::of(*older), 1000.375);
    newer->setMergeEnabled(false);
    EXPECT_FALSE(older->mergeWith(newer.get()));
}

TEST_P(ksTransformValueUndoCommandsTest, UndoesADragAtOnce)
{
    const osg::Vec3f before = read();
    ksUndoStack stack;
    for (int i = 1; i <= 5; ++i) {
        Row::Command *command = row().make(node, osg::Vec3f(i, 2 * i, 3 * i), {});
        ksCommandTime::of(*command) = 1000 + 0.375 * i;
        stack.add(command);
    }
    EXPECT_EQ(stack.count(), 1);
    stack.undo();
    EXPECT_TRUE(sameBits(read(), before));
    stack.redo();
    EXPECT_TRUE(sameBits(read(), osg::Vec3f(5, 10, 15)));
}

TEST_P(ksTransformValueUndoCommandsTest, StartsANewStepWhenModeOrIndexChanges)
{
    ksUndoStack stack;
    for (const Form &place : places())
        for (int i = 0; i < 2; ++i) {
            Row::Command *command = row().make(node, osg::Vec3f(i, 1, 2), place);
            command->setMergeResponseDelta(-1.0);
            stack.add(command);
        }
    EXPECT_EQ(stack.count(), static_cast<int>(places().size()));
}

TEST_P(ksTransformValueUndoCommandsTest, IsIdleWithANullNode)
{
    logSync();
    const Command command(row().make(osg::NullFC, target, {false, -1, {}, loggingCallback()}));
    expectIdle(*command);
    EXPECT_EQ(events, ksTransformEvents());
}

TEST_P(ksTransformValueUndoCommandsTest, IsIdleWhenTheNodeHasGone)
{
    logSync();
    const Form form{false, -1, {}, loggingCallback()};
    const Command fresh = make(form);
    const Command applied = make(form);
    applied->redo();
    const Command undone = make(form);
    undone->redo();
    undone->undo();
    take();
    destroyNode();
    for (const Command *command : {&fresh, &applied, &undone})
        expectIdle(**command);
    EXPECT_EQ(events, ksTransformEvents());
}

TEST_P(ksTransformValueUndoCommandsTest, IsIdleWhileItsIdNamesAnotherKindOfContainer)
{
    logSync();
    const Command command = make({false, -1, {}, loggingCallback()});
    {
        const ksSlotSwap swap(nodeId(), node->getCore());
        expectIdle(*command);
    }
    EXPECT_EQ(events, ksTransformEvents());
    command->redo();
    EXPECT_TRUE(sameBits(read(), target));
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
    EXPECT_TRUE(sameBits(ksFunctionTarget<osg::Vec3f>::valueOf(*command), osg::Vec3f(0, 0, 0)));
}

TEST_P(ksTransformValueModes, ReachGetterAndSetter)
{
    const osg::Vec3f local = read({false, -1});
    const osg::Vec3f world = read({true, -1});
    ASSERT_FALSE(isNear(local, world)) << "the modes differ here";
    EXPECT_TRUE(sameBits(make({true, -1})->get(node), world));
    make({true, -1})->redo();
    EXPECT_FALSE(isNear(read(), target));
    EXPECT_TRUE(isNear(read({true, -1}), target));
}

TEST_P(ksTransformValueMergeForms, TellWhetherAndForHowLongACommandMerges)
{
    const Command older = make();
    ksCommandTime::of(*older) = 1000;
    const auto mergesAfter = [&](const ksMergeForm &form, double seconds) {
        const Command newer = make({false, -1, form});
        ksCommandTime::of(*newer) = 1000 + seconds;
        return older->canMergeWith(newer.get());
    };
    EXPECT_TRUE(mergesAfter({}, 0.375));
    EXPECT_FALSE(mergesAfter({}, 0.5));
    EXPECT_TRUE(mergesAfter(true, 0.375));
    EXPECT_FALSE(mergesAfter(true, 0.5));
    EXPECT_FALSE(mergesAfter(false, 0));
    EXPECT_TRUE(mergesAfter(2.0, 1.5));
    EXPECT_FALSE(mergesAfter(2.0, 2.5));
    EXPECT_TRUE(mergesAfter(-1.0, 1e6));
}

TEST_P(ksTransformValueMergeForms, DifferInNothingElse)
{
    logSync();
    for (const ksMergeForm &form : {ksMergeForm(), ksMergeForm(true), ksMergeForm(2.0)}) {
        for (const Form &place : places()) {
            const Form with{place.mode, place.index, form, loggingCallback()};
            watched = with;
            const osg::Vec3f before = read(place);
            const Command command = make(with);
            EXPECT_EQ(command->text(), make()->text());
            command->redo();
            EXPECT_EQ(take(), stepEvents(with, target));
            command->undo();
            EXPECT_TRUE(place.mode ? isNear(read(place), before) : sameBits(read(place), before));
            take();
        }
        QUndoCommand parent;
        row().make(node, target, {false, -1, form, {}, &parent});
        EXPECT_EQ(parent.childCount(), 1);
    }
}

namespace {

class ksRotationPivotDirectionUndoCommandTest : public ksTransformFixture
{
protected:
    ksRotationPivotDirectionUndoCommandTest() { addVariants(node, "ab"); }
};

} // namespace

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
        const osg::Vec3f set = ksNodeUtils::getTransform3D(node, index)->getRotationDirection();
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
