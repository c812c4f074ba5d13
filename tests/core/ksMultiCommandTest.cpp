// SPDX-License-Identifier: MIT
#include <ksundo/core/ksMultiCommand.h>

#include <gmock/gmock.h>

#include <memory>
#include <support/ksCommandTime.h>
#include <support/ksDescribe.h>
#include <support/ksProbeCommand.h>
#include <support/ksStackRecorder.h>
#include <support/ksStackState.h>
#include <support/ksVirtualSlot.h>
#include <type_traits>

using testing::ElementsAre;

static_assert(!std::is_base_of_v<ksUndoCommand, ksMultiCommand>);
static_assert(!std::is_constructible_v<ksMultiCommand, QString, QUndoCommand *>,
              "always a top-level command");

namespace {

/// A kind of multi-command with an id of its own.
class ksOtherMultiCommand : public ksMultiCommand
{
    KS_UNDO_COMMAND(ksOtherMultiCommand)

public:
    using ksMultiCommand::ksMultiCommand;
};

/// Says that it can merge, but does not.
class ksReluctantCommand : public ksUndoCommand
{
    KS_UNDO_COMMAND(ksReluctantCommand)

public:
    using ksUndoCommand::ksUndoCommand;
};

/// Has a key of its own in its message.
class ksTalkingCommand : public ksUndoCommand
{
public:
    using ksUndoCommand::ksUndoCommand;
    void makeMessage(ksMessage &message) const override { message.set("own", true, true); }
};

class ksMultiCommandRuns : public testing::Test
{
protected:
    void addChildren(QUndoCommand *command)
    {
        new ksProbeCommand<>(QStringLiteral("A"), log, command);
        new QUndoCommand(QStringLiteral("plain"), command);
        new ksProbeCommand<>(QStringLiteral("B"), log, command);
    }

    ksProbeLog log;
    std::function<void()> action = [this] { log.push_back("action"); };
};

/// Two multi-commands whose two children merge; each test changes one thing about them.
class ksMultiCommandMerging : public testing::Test
{
protected:
    template <int kind = 0>
    ksProbeCommand<kind> *add(ksMultiCommand &command, double time)
    {
        auto *child = new ksProbeCommand<kind>(QString(), log, &command);
        ksCommandTime::of(*child) = time;
        return child;
    }

    void addFirstPair()
    {
        olderFirst = add(older, 0.0);
        newerFirst = add(newer, 0.125);
    }

    void addBothPairs()
    {
        addFirstPair();
        olderSecond = add<1>(older, 0.25);
        newerSecond = add<1>(newer, 0.5);
    }

    void expectNothingMerged()
    {
        EXPECT_FALSE(older.mergeWith(&newer));
        EXPECT_EQ(ksCommandTime::of(*olderFirst), 0.0);
    }

    ksProbeLog log;
    ksMultiCommand older{QStringLiteral("older")};
    ksMultiCommand newer{QStringLiteral("newer")};
    ksUndoCommand *olderFirst = nullptr;
    ksUndoCommand *olderSecond = nullptr;
    ksUndoCommand *newerFirst = nullptr;
    ksUndoCommand *newerSecond = nullptr;
};

} // namespace

TEST_F(ksMultiCommandRuns, RedoesChildrenInOrderThenTheAction)
{
    ksMultiCommand command(QString(), action);
    addChildren(&command);
    command.redo();
    EXPECT_THAT(log, ElementsAre("redo A", "redo B", "action"));
}

TEST_F(ksMultiCommandRuns, UndoesChildrenInReverseThenTheAction)
{
    ksMultiCommand command(QString(), action);
    addChildren(&command);
    command.redo();
    log.clear();
    command.undo();
    EXPECT_THAT(log, ElementsAre("undo B", "undo A", "action"));
}

TEST_F(ksMultiCommandRuns, NeedsNoAction)
{
    ksMultiCommand bare{QString()};
    ksMultiCommand empty(QString(), nullptr);
    for (ksMultiCommand *command : {&bare, &empty}) {
        log.clear();
        addChildren(command);
        command->redo();
        command->undo();
        EXPECT_THAT(log, ElementsAre("redo A", "redo B", "undo B", "undo A"));
    }
}

TEST_F(ksMultiCommandRuns, RunsTheActionWithoutChildren)
{
    ksMultiCommand command(QString(), action);
    command.redo();
    command.undo();
    EXPECT_THAT(log, ElementsAre("action", "action"));
}

TEST_F(ksMultiCommandRuns, DoesNotRunWhenBuiltOrDestroyed)
{
    {
        ksMultiCommand command(QString(), action);
        addChildren(&command);
    }
    EXPECT_THAT(log, ElementsAre("delete A", "delete B"));
}

TEST_F(ksMultiCommandRuns, DropsTheActionBeforeTheChildren)
{
    {
        std::shared_ptr<void> state(nullptr, [this](void *) { log.push_back("delete action"); });
        ksMultiCommand command(QString(), [state] {});
        addChildren(&command);
        state.reset();
    }
    EXPECT_THAT(log, ElementsAre("delete action", "delete A", "delete B"));
}

TEST(ksMultiCommand, HasItsText)
{
    const ksMultiCommand bare(QStringLiteral("bare"));
    const ksMultiCommand active(QStringLiteral("active"), [] {});
    EXPECT_EQ(bare.text(), QStringLiteral("bare"));
    EXPECT_EQ(active.text(), QStringLiteral("active"));
}

TEST(ksMultiCommand, HasAnIdOfItsOwn)
{
    EXPECT_EQ(ksMultiCommand(QString()).id(), ksMultiCommand::commandId());
    EXPECT_EQ(ksMultiCommand::commandId(), ksUndoCommand::makeId(typeid(ksMultiCommand)));
    EXPECT_NE(ksOtherMultiCommand(QString()).id(), ksMultiCommand::commandId());
    EXPECT_GT(ksMultiCommand::commandId(), 0);
}

TEST(ksMultiCommand, KeepsItsVirtualFunctionsInOrder)
{
    EXPECT_EQ(ksVirtualSlot(&ksMultiCommand::undo), 2u);
    EXPECT_EQ(ksVirtualSlot(&ksMultiCommand::redo), 3u);
    EXPECT_EQ(ksVirtualSlot(&ksMultiCommand::id), 4u);
    EXPECT_EQ(ksVirtualSlot(&ksMultiCommand::mergeWith), 5u);
    EXPECT_EQ(ksVirtualSlot(&ksMultiCommand::makeMessage), 6u);
}

TEST_F(ksMultiCommandMerging, MergesEachPairAndSlidesEachWindow)
{
    addBothPairs();
    EXPECT_TRUE(older.mergeWith(&newer));
    EXPECT_EQ(ksCommandTime::of(*olderFirst), 0.125);
    EXPECT_EQ(ksCommandTime::of(*olderSecond), 0.5);
}

TEST_F(ksMultiCommandMerging, HappensWithoutChildren)
{
    EXPECT_TRUE(older.mergeWith(&newer));
}

TEST_F(ksMultiCommandMerging, IsRefusedForAnotherClass)
{
    addFirstPair();
    ksOtherMultiCommand other{QString()};
    add(other, 0.125);
    EXPECT_FALSE(older.mergeWith(&other));
    EXPECT_FALSE(other.mergeWith(&older));
    EXPECT_EQ(ksCommandTime::of(*olderFirst), 0.0);

    ksOtherMultiCommand childless{QString()};
    EXPECT_FALSE(ksMultiCommand(QString()).mergeWith(&childless));
}

TEST_F(ksMultiCommandMerging, IsRefusedWhenTheNewcomerHasMoreChildren)
{
    addFirstPair();
    add<1>(newer, 0.5);
    expectNothingMerged();
}

TEST_F(ksMultiCommandMerging, IsRefusedWhenTheNewcomerHasFewerChildren)
{
    addFirstPair();
    add<1>(older, 0.5);
    expectNothingMerged();
}

TEST_F(ksMultiCommandMerging, IsRefusedWhenOnlyTheNewcomerHasChildren)
{
    add(newer, 0.0);
    EXPECT_FALSE(older.mergeWith(&newer));
}

TEST_F(ksMultiCommandMerging, MergesNoChildWhenTheSecondPairCannot)
{
    addBothPairs();
    newerSecond->setMergeEnabled(false);
    expectNothingMerged();
}

TEST_F(ksMultiCommandMerging, IsRefusedWhenOnePairIsOutOfItsWindow)
{
    addBothPairs();
    ksCommandTime::of(*newerSecond) = 0.75;
    expectNothingMerged();
}

TEST_F(ksMultiCommandMerging, PairsChildrenByPosition)
{
    olderFirst = add<0>(older, 0.0);
    add<1>(older, 0.0);
    add<1>(newer, 0.125);
    add<0>(newer, 0.125);
    expectNothingMerged();
}

TEST_F(ksMultiCommandMerging, IsRefusedWhenAnOlderChildIsNotOfTheLibrary)
{
    addFirstPair();
    new QUndoCommand(&older);
    add(newer, 0.125);
    expectNothingMerged();
}

TEST_F(ksMultiCommandMerging, IsRefusedWhenANewerChildIsNotOfTheLibrary)
{
    addFirstPair();
    add(older, 0.0);
    new QUndoCommand(&newer);
    expectNothingMerged();
}

TEST_F(ksMultiCommandMerging, IsRefusedWhenBothChildrenAreNotOfTheLibrary)
{
    addFirstPair();
    new QUndoCommand(&older);
    new QUndoCommand(&newer);
    expectNothingMerged();
}

TEST_F(ksMultiCommandMerging, DoesNotAskWhetherAChildDidMerge)
{
    new ksReluctantCommand(QString(), &older);
    auto *child = new ksReluctantCommand(QString(), &newer);
    child->setMergeResponseDelta(-1.0);
    EXPECT_TRUE(older.mergeWith(&newer));
}

TEST(ksMultiCommandInAStack, MergesBatchesIntoOneStep)
{
    int x = 1;
    int y = 10;
    ksUndoStack stack;
    for (int i = 0; i < 3; ++i) {
        auto *batch = new ksMultiCommand(QStringLiteral("batch"));
        new ksSetNumberCommand(QString(), x, x + 1, batch);
        new ksSetNumberCommand(QString(), y, y + 10, batch);
        stack.add(batch);
    }
    EXPECT_EQ(stack.count(), 1);
    EXPECT_THAT(std::make_pair(x, y), testing::Pair(4, 40));
    stack.undo();
    EXPECT_THAT(std::make_pair(x, y), testing::Pair(1, 10));
    stack.redo();
    EXPECT_THAT(std::make_pair(x, y), testing::Pair(4, 40));
}

TEST(ksMultiCommandInAStack, MergesBatchesWithinTheDefaultWindowOfTheirChildren)
{
    ksProbeLog log;
    ksUndoStack stack;
    for (const double time : {0.0, 0.1, 0.2, 0.625}) {
        auto *batch = new ksMultiCommand(QStringLiteral("batch"));
        ksCommandTime::of(*new ksProbeCommand<1>(QString(), log, batch)) = time;
        ksCommandTime::of(*new ksProbeCommand<2>(QString(), log, batch)) = time;
        stack.add(batch);
    }
    EXPECT_EQ(ksStateOf(stack), ksHolding({"batch", "batch"}, 2)) << "only the last is too late";
}

TEST(ksMultiCommandInAStack, StaysBesideABatchThatCannotMerge)
{
    int x = 0;
    ksUndoStack stack;
    for (int i = 0; i < 2; ++i) {
        auto *batch = new ksMultiCommand(QString());
        new ksSetNumberCommand(QString(), x, i + 1, batch);
        (new ksSetNumberCommand(QString(), x, i + 10, batch))->setMergeEnabled(false);
        stack.add(batch);
    }
    EXPECT_EQ(stack.count(), 2);
    stack.undo();
    EXPECT_EQ(x, 10);
    stack.undo();
    EXPECT_EQ(x, 0);
}

TEST(ksMultiCommandInAStack, RunsOnlyTheActionOfTheSurvivor)
{
    std::string actions;
    ksUndoStack stack;
    stack.add(new ksMultiCommand(QString(), [&actions] { actions += 'a'; }));
    stack.add(new ksMultiCommand(QString(), [&actions] { actions += 'b'; }));
    EXPECT_EQ(actions, "ab");
    stack.undo();
    stack.redo();
    EXPECT_EQ(actions, "abaa");
}

TEST(ksMultiCommandMessage, IsThatOfTheFirstChild)
{
    ksProbeLog log;
    ksMultiCommand command{QString()};
    new ksProbeCommand<1>(QString(), log, &command);
    new ksProbeCommand<2>(QString(), log, &command);
    EXPECT_EQ(ksMessageOf(command), "id=int:" + std::to_string(ksProbeCommand<1>::commandId()));
}

TEST(ksMultiCommandMessage, HasTheKeysThatTheFirstChildAdds)
{
    ksMultiCommand command{QString()};
    new ksTalkingCommand(QString(), &command);
    EXPECT_EQ(ksMessageOf(command), "own=bool:true");
}

TEST(ksMultiCommandMessage, IsEmptyWithoutChildren)
{
    EXPECT_EQ(ksMessageOf(ksMultiCommand(QString())), "");
}

TEST(ksMultiCommandMessage, IsEmptyWhenTheFirstChildIsNotOfTheLibrary)
{
    ksProbeLog log;
    ksMultiCommand command{QString()};
    new QUndoCommand(&command);
    new ksProbeCommand<>(QString(), log, &command);
    EXPECT_EQ(ksMessageOf(command), "");
}

TEST(ksMultiCommandMessage, ReachesTheApplicationThroughTheStack)
{
    ksProbeLog log;
    ksUndoStack stack;
    ksStackRecorder recorder(stack);

    auto *batch = new ksMultiCommand(QStringLiteral("batch"));
    new ksProbeCommand<1>(QString(), log, batch);
    stack.add(batch);
    EXPECT_EQ(recorder.take(),
              ksStep::added("batch", 0, "id=int:" + std::to_string(ksProbeCommand<1>::commandId())));

    auto *foreign = new ksMultiCommand(QStringLiteral("foreign"));
    new QUndoCommand(foreign);
    stack.add(foreign);
    EXPECT_EQ(recorder.take(), ksStep::added("foreign", 1));

    auto *childless = new ksMultiCommand(QStringLiteral("childless"));
    stack.add(childless);
    EXPECT_EQ(recorder.take(), ksStep::added("childless", 2));
}
