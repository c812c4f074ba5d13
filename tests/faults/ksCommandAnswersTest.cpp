// SPDX-License-Identifier: MIT
#include "ksCommandFixture.h"

#include <ksundo/core/ksFindContainer.h>
#include <ksundo/core/ksUndoStack.h>

#include <OpenSG/OSGSimpleAttachments.h>

#include <map>
#include <set>
#include <support/ksAspects.h>
#include <support/ksCommandTime.h>
#include <support/ksEchoTranslator.h>
#include <support/ksStackRecorder.h>
#include <typeinfo>

namespace {

/// What commands of every class do, and say of themselves.
class ksCommandAnswers : public ksCommandFixture
{
protected:
    /// The text of a command on a target called \a name.
    static std::string textFor(const std::string &name)
    {
        std::string text = kind().text;
        const std::size_t place = text.find('*');
        return place == std::string::npos ? text : text.replace(place, 1, name);
    }

    static std::string textOf(const std::unique_ptr<QUndoCommand> &command)
    {
        return command->text().toStdString();
    }

    /// What a command for \a target adds to messages.
    ksKeys keysFor(const osg::FieldContainerPtr &target) const
    {
        const auto id = kind().messageId == nullptr ? kind().commandId : kind().messageId;
        ksKeys keys = kind().keys ? kind().keys(scene, target) : ksKeys();
        keys.push_back("id=int:" + std::to_string(id()));
        return keys;
    }

    /// Expects that a step ended exactly the edits that it is required to, each by a record and then by a
    /// call of the handler, which found what the step has written.
    void expectEdits(const Step &step, bool undoing) const
    {
        EXPECT_EQ(step.records, kind().records ? kind().records(scene, undoing) : ksRecords());
        EXPECT_EQ(editsOf(step.calls), step.records.changed);
        std::map<osg::UInt32, ksHandlerCall> last;
        for (std::size_t i = 0; i < step.calls.size(); ++i) {
            const ksHandlerCall &call = step.calls[i];
            EXPECT_EQ(call.origin, osg::ChangedOrigin::External);
            EXPECT_EQ(call.recorded, i + 1);
            last[call.id] = call;
        }
        for (const auto &[id, call] : last)
            EXPECT_EQ(call.found, ksValuesOf(ksFindContainer<osg::FieldContainerPtr>(id), call.mask));
    }
};

void tell(const QUndoCommand &command, ksMessage &message)
{
    if (const auto *multi = dynamic_cast<const ksMultiCommand *>(&command))
        multi->makeMessage(message);
    else
        dynamic_cast<const ksUndoCommand &>(command).makeMessage(message);
}

/// Calls \a visit with each command of the library that \a command is or has below it.
template <class Visit>
void forEachPart(const QUndoCommand &command, Visit visit)
{
    if (auto *part = dynamic_cast<ksUndoCommand *>(const_cast<QUndoCommand *>(&command)))
        visit(*part);
    for (int i = 0; i < command.childCount(); ++i)
        forEachPart(*command.child(i), visit);
}

void setTime(const QUndoCommand &command, double time)
{
    forEachPart(command, [time](ksUndoCommand &part) { ksCommandTime::of(part) = time; });
}

void setWindow(const QUndoCommand &command, double seconds)
{
    forEachPart(command, [seconds](ksUndoCommand &part) { part.setMergeResponseDelta(seconds); });
}

void setMergeEnabled(const QUndoCommand &command, bool enabled)
{
    forEachPart(command, [enabled](ksUndoCommand &part) { part.setMergeEnabled(enabled); });
}

void setGesture(const QUndoCommand &command, unsigned int number)
{
    forEachPart(command, [number](ksUndoCommand &part) { part.setGesture(number); });
}

std::vector<double> timesOf(const QUndoCommand &command)
{
    std::vector<double> times;
    forEachPart(command, [&times](ksUndoCommand &part) { times.push_back(ksCommandTime::of(part)); });
    return times;
}

bool canMerge(const QUndoCommand &older, const QUndoCommand &newer)
{
    const auto *command = dynamic_cast<const ksUndoCommand *>(&older);
    return command == nullptr || command->canMergeWith(&newer);
}

/// An older command that has run, and newer ones made an eighth of a second later.
class ksMergingCommands : public ksCommandFixture
{
protected:
    ksMergingCommands()
        : older(make())
    {
        redo(*older);
        setTime(*older, 0.0);
    }

    std::unique_ptr<QUndoCommand> later(QUndoCommand *newer) const
    {
        setTime(*newer, 0.125);
        return std::unique_ptr<QUndoCommand>(newer);
    }

    std::unique_ptr<QUndoCommand> later() { return later(kind().make(scene, nullptr)); }

    /// Expects that the older command leaves \a newer alone, and stays as it is.
    void expectNoMerge(const QUndoCommand &newer)
    {
        const std::vector<double> times = timesOf(*older);
        EXPECT_FALSE(older->mergeWith(&newer));
        EXPECT_EQ(timesOf(*older), times);
        EXPECT_TRUE(isComposite() || !canMerge(*older, newer));
    }

    void expectMerge(const QUndoCommand &newer)
    {
        EXPECT_TRUE(canMerge(*older, newer));
        EXPECT_TRUE(older->mergeWith(&newer));
        EXPECT_EQ(timesOf(*older), timesOf(newer));
    }

    /// Only their mergeWith() tells whether composites merge.
    bool isComposite() const { return dynamic_cast<ksUndoCommand *>(older.get()) == nullptr; }

    std::unique_ptr<QUndoCommand> older;
};

/// Commands of the classes that never merge.
class ksLonelyCommands : public ksMergingCommands
{};

std::vector<ksFaultKind> kindsThatMerge(bool merge)
{
    return ksFaultKindsWith(
        [merge](const ksFaultKind &kind) { return (kind.merging == ksFaultKind::Merging::runs) == merge; });
}

} // namespace

INSTANTIATE_TEST_SUITE_P(, ksCommandAnswers, testing::ValuesIn(ksFaultKinds()), ksNameOfKind);
INSTANTIATE_TEST_SUITE_P(, ksMergingCommands, testing::ValuesIn(kindsThatMerge(true)), ksNameOfKind);
INSTANTIATE_TEST_SUITE_P(, ksLonelyCommands, testing::ValuesIn(kindsThatMerge(false)), ksNameOfKind);

/// Every class of the list is among the kinds, and none that is not there.
TEST(ksFaultKinds, HoldEveryCommandClass)
{
#define KS_NAME(Class) #Class,
    const std::set<std::string> listed{KS_COMMAND_LIST(KS_NAME)};
#undef KS_NAME
    std::set<std::string> tested;
    for (const ksFaultKind &kind : ksFaultKinds())
        tested.insert(kind.className);
    EXPECT_EQ(tested, listed);
}

TEST(ksFaultKinds, HaveIdsThatAreAllDistinct)
{
#define KS_ID(Class) Class::commandId(),
    const std::vector<int> ids{KS_COMMAND_LIST(KS_ID)};
#undef KS_ID
    EXPECT_EQ(std::set<int>(ids.begin(), ids.end()).size(), ids.size());
    EXPECT_GT(*std::min_element(ids.begin(), ids.end()), 0);
}

TEST_P(ksCommandAnswers, HaveTheIdOfTheirClass)
{
    const auto command = make();
    const QUndoCommand &object = *command;
    EXPECT_EQ(object.id(), kind().commandId());
    EXPECT_EQ(object.id(), ksUndoCommand::makeId(typeid(object)));
}

TEST_P(ksCommandAnswers, KeepTheirVirtualFunctionsInOrder)
{
    for (std::size_t i = 0; i < kind().slots.size(); ++i)
        EXPECT_EQ(kind().slots[i], i + 2) << "after the two destructors";
}

TEST_P(ksCommandAnswers, HaveTheRequiredText)
{
    EXPECT_EQ(textOf(make()), textFor("Box"));
    {
        const ksEchoTranslator translator;
        const std::string context = kind().isTranslated ? kind().className + '|' : std::string();
        EXPECT_EQ(textOf(make()), context + textFor("Box"));
    }
    if (kind().makeWithoutTarget) {
        const std::unique_ptr<QUndoCommand> command(kind().makeWithoutTarget(scene));
        EXPECT_EQ(textOf(command), textFor(""));
    }
    if (kind().text == textFor(""))
        return;
    const auto node = osg::NodePtr::dcast(kind().target(scene));
    osg::setName(node, "K\xc3\xb6rper %1");
    EXPECT_EQ(textOf(make()), textFor("K\xc3\xb6rper %1"));
    osg::setName(node, nullptr);
    EXPECT_EQ(textOf(make()), textFor(node->getCore()->getType().getCName()));
}

TEST_P(ksCommandAnswers, ComeBackAtEveryUndo)
{
    auto command = make();
    expectScene(before, held);
    redo(*command);
    const State after = scene.state();
    EXPECT_EQ(after == before, kind().isEmpty);
    for (int i = 0; i < 2; ++i) {
        undo(*command);
        expectUndone(held);
        if (kind().undoIsEmpty)
            return;
        redo(*command);
        expectScene(after, held);
    }
}

TEST_P(ksCommandAnswers, RecordEachEditBeforeItsHandlerHearsOfIt)
{
    auto command = make();
    for (int i = 0; i < 2; ++i) {
        const Step done = step(*command, false);
        expectEdits(done, false);
        const Step undone = step(*command, true);
        if (kind().undoIsEmpty) {
            EXPECT_EQ(undone.records, ksRecords());
            expectSame(undone.state, done.state);
        } else {
            expectEdits(undone, true);
        }
    }
}

TEST_P(ksCommandAnswers, ReachTheOtherAspectAtEveryStep)
{
    const std::unique_ptr<QUndoCommand> command(kind().make(scene, nullptr));
    ksSyncAspects();
    for (int i = 0; i < 2; ++i) {
        command->redo();
        ksSyncAspects();
        expectSame(scene.state(1), scene.state(0));
        command->undo();
        ksSyncAspects();
        expectSame(scene.state(1), scene.state(0));
    }
}

TEST_P(ksCommandAnswers, BelongToTheirParentAndRunWithIt)
{
    if (kind().isTopLevel)
        return;
    auto parent = std::make_unique<QUndoCommand>();
    const QUndoCommand *command = make(parent.get()).release();
    ASSERT_EQ(parent->childCount(), 1);
    EXPECT_EQ(parent->child(0), command);
    redo(*parent);
    EXPECT_EQ(scene.state() == before, kind().isEmpty);
    undo(*parent);
    expectUndone(held);
    parent.reset();
    scene.expectCounts({});
}

TEST_P(ksCommandAnswers, AreReportedByTheStack)
{
    ksUndoStack stack;
    ksStackRecorder events(stack);
    const std::string text = textFor("Box");
    const ksKeys keys = keysFor(kind().target(scene));
    stack.add(kind().make(scene, nullptr));
    EXPECT_EQ(events.take(), ksStep::added(text, 0, keys));
    stack.undo();
    EXPECT_EQ(events.take(), ksStep::undone(text, 0, keys));
    stack.redo();
    EXPECT_EQ(events.take(), ksStep::redone(text, 0, keys));
    scene.drop(kind().target(scene));
    stack.undo();
    EXPECT_EQ(events.take(), ksStep::undone(text, 0, keys)) << "also when the target has gone";
}

TEST_P(ksCommandAnswers, ReplaceWhatAMessageHoldsAlready)
{
    const auto command = make();
    ksMessage expected;
    tell(*command, expected);
    ksMessage message;
    for (const auto &[key, value] : expected.values())
        message.set(key, std::string("stale"), true);
    tell(*command, message);
    EXPECT_EQ(ksDescribe(message), ksDescribe(expected));
}

TEST_P(ksCommandAnswers, StandInTheHistoryAlsoWithoutATarget)
{
    if (!kind().makeWithoutTarget)
        return;
    ksUndoStack stack;
    ksStackRecorder events(stack);
    const std::string text = textFor("");
    const ksKeys keys = keysFor(osg::NullFC);
    stack.add(kind().makeWithoutTarget(scene));
    stack.undo();
    stack.redo();
    EXPECT_EQ(events.take(),
              ksStep::added(text, 0, keys) + ksStep::undone(text, 0, keys) + ksStep::redone(text, 0, keys));
    expectSame(comparable(scene.state()), comparable(before));
}

TEST_P(ksMergingCommands, MergeWithinTheWindowOfTheNewerOne)
{
    expectMerge(*later());
    const auto last = later();
    setTime(*last, 0.125 + 0.39);
    expectMerge(*last);
    undo(*older);
    expectScene(before, held);
}

TEST_P(ksMergingCommands, MergeWhateverTheOlderOneWasTold)
{
    setMergeEnabled(*older, false);
    setWindow(*older, 0.0);
    expectMerge(*later());
}

TEST_P(ksMergingCommands, DoNotMergeWhenTheNewerOneIsSwitchedOff)
{
    const auto newer = later();
    setMergeEnabled(*newer, false);
    setWindow(*newer, -1.0);
    expectNoMerge(*newer);
}

TEST_P(ksMergingCommands, DoNotMergeAtTheEndOfTheWindow)
{
    const auto newer = later();
    setTime(*newer, 0.4);
    expectNoMerge(*newer);
}

TEST_P(ksMergingCommands, MergeWithinOneGestureWheneverTheyWereMade)
{
    setGesture(*older, 1);
    for (const double time : {3600.0, -3600.0}) {
        const auto newer = later();
        setTime(*newer, time);
        setWindow(*newer, 0.0);
        setGesture(*newer, 1);
        expectMerge(*newer);
    }
    undo(*older);
    expectScene(before, held);
}

TEST_P(ksMergingCommands, DoNotMergeAcrossTheEndsOfGestures)
{
    const auto expectNoMergeOf = [this](unsigned int first, unsigned int second) {
        const auto newer = later();
        setWindow(*newer, -1.0);
        setGesture(*older, first);
        setGesture(*newer, second);
        expectNoMerge(*newer);
    };
    expectNoMergeOf(0, 1);
    expectNoMergeOf(1, 0);
    expectNoMergeOf(1, 2);
}

TEST_P(ksMergingCommands, DoNotMergeWithoutATarget)
{
    expectNoMerge(*later(kind().makeWithoutTarget(scene)));
}

TEST_P(ksMergingCommands, DoNotMergeWithAnotherClass)
{
    for (const ksFaultKind &other : ksFaultKinds()) {
        if (other.className == kind().className)
            continue;
        const auto newer = later(other.make(scene, nullptr));
        // A stack offers commands of one id only; those of the library are not asked for composites.
        if (isComposite() || dynamic_cast<ksUndoCommand *>(newer.get()) != nullptr)
            expectNoMerge(*newer);
    }
}

TEST_P(ksMergingCommands, AreOneStepOnAStack)
{
    const State after = scene.state();
    undo(*older);
    ksUndoStack stack;
    stack.add(older.release());
    stack.add(later().release());
    EXPECT_EQ(stack.count(), 1);
    stack.undo();
    expectScene(before, held);
    stack.redo();
    expectScene(after, held);
}

TEST_P(ksLonelyCommands, NeverMerge)
{
    const auto newer = later(kind().make(scene, nullptr));
    setWindow(*newer, -1.0);
    const std::vector<double> times = timesOf(*older);
    EXPECT_EQ(canMerge(*older, *newer), kind().merging == ksFaultKind::Merging::unsupported);
    EXPECT_FALSE(older->mergeWith(newer.get()));
    EXPECT_EQ(timesOf(*older), times);
}

TEST_P(ksLonelyCommands, AreStepsOfTheirOwnOnAStack)
{
    undo(*older);
    ksUndoStack stack;
    stack.add(older.release());
    QUndoCommand *newer = kind().make(scene, nullptr);
    setWindow(*newer, -1.0);
    stack.add(newer);
    EXPECT_EQ(stack.count(), 2);
}
