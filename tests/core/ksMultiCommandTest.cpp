// SPDX-License-Identifier: MIT
#include <ksundo/core/ksMultiCommand.h>
#include <ksundo/core/ksUndoStack.h>

#include <gmock/gmock.h>

#include <memory>
#include <support/ksCommandTime.h>
#include <support/ksDescribe.h>
#include <support/ksProbeCommand.h>
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

TEST_F(ksMultiCommandMerging, MergesEachPairAndSlidesEachWindow)
{
    addBothPairs();
    EXPECT_TRUE(older.mergeWith(&newer));
    EXPECT_EQ(ksCommandTime::of(*olderFirst), 0.125);
    EXPECT_EQ(ksCommandTime::of(*olderSecond), 0.5);
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

TEST_F(ksMultiCommandMerging, MergesNoChildWhenTheSecondPairCannot)
{
    addBothPairs();
    newerSecond->setMergeEnabled(false);
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

TEST_F(ksMultiCommandMerging, NeedsNoChildrenButTheSameClass)
{
    EXPECT_TRUE(older.mergeWith(&newer));
    const ksOtherMultiCommand other{QString()};
    EXPECT_FALSE(older.mergeWith(&other));
}

TEST_F(ksMultiCommandMerging, IsRefusedForChildrenThatAreNotOfTheLibrary)
{
    const auto addSecond = [this](ksMultiCommand &command, bool isForeign) {
        if (isForeign)
            new QUndoCommand(&command);
        else
            add(command, 0.0);
    };
    for (const auto &[olderIsForeign, newerIsForeign] :
         {std::pair(true, false), {false, true}, {true, true}}) {
        ksMultiCommand first{QString()};
        ksMultiCommand second{QString()};
        auto *child = add(first, 0.0);
        add(second, 0.125);
        addSecond(first, olderIsForeign);
        addSecond(second, newerIsForeign);
        EXPECT_FALSE(first.mergeWith(&second));
        EXPECT_EQ(ksCommandTime::of(*child), 0.0);
    }
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
