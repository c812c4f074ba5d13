// SPDX-License-Identifier: MIT
#include <ksundo/core/ksUndoCommand.h>

#include <QUndoStack>
#include <gmock/gmock.h>

#include <cmath>
#include <limits>
#include <support/ksCommandTime.h>
#include <support/ksDescribe.h>
#include <support/ksProbeCommand.h>
#include <sys/time.h>

using testing::ElementsAre;

namespace {

double now()
{
    timeval time;
    gettimeofday(&time, nullptr);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
}

constexpr double forever = std::numeric_limits<double>::infinity();

/// Two commands that merge; each test changes one thing about them.
class ksUndoCommandMerging : public testing::Test
{
protected:
    ksUndoCommandMerging() { setTimes(0.0, 0.125); }

    void setTimes(double olderTime, double newerTime)
    {
        ksCommandTime::of(older) = olderTime;
        ksCommandTime::of(newer) = newerTime;
    }

    ksProbeLog log;
    ksProbeCommand<> older{QStringLiteral("older"), log};
    ksProbeCommand<> newer{QStringLiteral("newer"), log};
};

} // namespace

TEST(ksUndoCommand, RunsItsChildrenUnlessOverridden)
{
    ksProbeLog log;
    ksUndoCommand parent{QString()};
    new ksProbeCommand<>(QStringLiteral("A"), log, &parent);
    new ksProbeCommand<>(QStringLiteral("B"), log, &parent);
    parent.redo();
    parent.undo();
    EXPECT_THAT(log, ElementsAre("redo A", "redo B", "undo B", "undo A"));
}

TEST(ksUndoCommand, TakesItsCreationTimeFromTheWallClockInSeconds)
{
    const double before = now();
    ksUndoCommand command{QString()};
    const double after = now();
    EXPECT_GE(ksCommandTime::of(command), before);
    EXPECT_LE(ksCommandTime::of(command), after);
}

TEST(ksUndoCommand, HasNoClassIdWhenBare)
{
    EXPECT_EQ(ksUndoCommand(QString()).id(), -1);
}

TEST(ksUndoCommand, NeverMergesWhenBare)
{
    ksUndoCommand older{QString()};
    ksUndoCommand newer{QString()};
    newer.setMergeResponseDelta(-1.0);
    EXPECT_FALSE(older.mergeWith(&newer));

    QUndoStack stack;
    for (int i = 0; i < 2; ++i) {
        auto *command = new ksUndoCommand(QString());
        command->setMergeResponseDelta(-1.0);
        stack.push(command);
    }
    EXPECT_EQ(stack.count(), 2);
}

TEST(ksUndoCommand, TellsOnlyItsIdAsAnInt)
{
    ksMessage bare;
    ksUndoCommand(QString()).makeMessage(bare);
    EXPECT_EQ(ksDescribe(bare), "id=int:-1");

    ksProbeLog log;
    EXPECT_EQ(ksMessageOf(ksProbeCommand<>(QString(), log)),
              "id=int:" + std::to_string(ksProbeCommand<>::commandId()));
}

TEST(ksUndoCommand, NumbersClassesInTheOrderInWhichTheyAsk)
{
    const int first = ksUndoCommand::makeId(typeid(ksProbeCommand<100>));
    EXPECT_EQ(ksUndoCommand::makeId(typeid(ksProbeCommand<101>)), first + 1);
    EXPECT_EQ(ksUndoCommand::makeId(typeid(ksProbeCommand<100>)), first);
    EXPECT_EQ(ksUndoCommand::makeId(typeid(ksProbeCommand<102>)), first + 2);
}

TEST_F(ksUndoCommandMerging, HappensWithinTheWindowAndTakesOverTheTime)
{
    EXPECT_TRUE(older.canMergeWith(&newer));
    EXPECT_TRUE(older.mergeWith(&newer));
    EXPECT_EQ(ksCommandTime::of(older), 0.125);
}

TEST_F(ksUndoCommandMerging, LeavesTheTimeWhenRefused)
{
    setTimes(0.0, 1.0);
    EXPECT_FALSE(older.mergeWith(&newer));
    EXPECT_EQ(ksCommandTime::of(older), 0.0);
}

TEST_F(ksUndoCommandMerging, HappensUntilTheEndOfTheWindow)
{
    for (const double distance : {0.39, std::nextafter(0.4, 0.0), 0.4, 0.41}) {
        setTimes(0.0, distance);
        EXPECT_EQ(older.canMergeWith(&newer), distance < 0.4) << distance;
    }
    const double present = 1.7e9;
    setTimes(present, present + 0.39);
    EXPECT_TRUE(older.canMergeWith(&newer));
    setTimes(present, present + 0.41);
    EXPECT_FALSE(older.canMergeWith(&newer));
}

TEST_F(ksUndoCommandMerging, GoesByTheWindowOfTheNewcomer)
{
    setTimes(0.0, 1.0);
    newer.setMergeResponseDelta(1.5);
    EXPECT_TRUE(older.canMergeWith(&newer));
    newer.setMergeResponseDelta(1.0);
    EXPECT_FALSE(older.canMergeWith(&newer));
}

TEST_F(ksUndoCommandMerging, IgnoresTheWindowOfTheOlderOne)
{
    older.setMergeResponseDelta(0.0);
    EXPECT_TRUE(older.canMergeWith(&newer));
    older.setMergeResponseDelta(-1.0);
    setTimes(0.0, 1.0);
    EXPECT_FALSE(older.canMergeWith(&newer));
}

TEST_F(ksUndoCommandMerging, HasNoLimitInTimeWithoutAWindow)
{
    setTimes(0.0, 1e9);
    for (const double window : {-1.0, -1e-300, -forever, forever, std::nan("")}) {
        newer.setMergeResponseDelta(window);
        EXPECT_TRUE(older.canMergeWith(&newer)) << window;
    }
}

TEST_F(ksUndoCommandMerging, IsRefusedAtTheSameTimeWithAWindowOfZero)
{
    setTimes(1.0, 1.0);
    for (const double window : {0.0, -0.0}) {
        newer.setMergeResponseDelta(window);
        EXPECT_FALSE(older.canMergeWith(&newer)) << window;
    }
}

TEST_F(ksUndoCommandMerging, HappensWhenTheClockWasSetBack)
{
    setTimes(10.0, 1.0);
    newer.setMergeResponseDelta(0.0);
    EXPECT_TRUE(older.canMergeWith(&newer));
}

TEST_F(ksUndoCommandMerging, SlidesItsWindowOverALongRun)
{
    QUndoStack stack;
    for (int i = 0; i < 1000; ++i) {
        auto *command = new ksProbeCommand<>(QString::number(i), log);
        ksCommandTime::of(*command) = 0.375 * i;
        stack.push(command);
    }
    EXPECT_EQ(stack.count(), 1);
}

TEST_F(ksUndoCommandMerging, IsRefusedWhenSwitchedOffOnTheNewcomer)
{
    newer.setMergeEnabled(false);
    EXPECT_FALSE(older.canMergeWith(&newer));
    newer.setMergeResponseDelta(-1.0);
    EXPECT_FALSE(older.canMergeWith(&newer));
    newer.setMergeEnabled(true);
    EXPECT_TRUE(older.canMergeWith(&newer));
}
