// SPDX-License-Identifier: MIT
#include <ksundo/core/ksMultiCommand.h>
#include <ksundo/core/ksUndoGesture.h>
#include <ksundo/core/ksUndoMacro.h>

#include <QAction>
#include <QUndoCommand>
#include <gmock/gmock.h>

#include <memory>
#include <optional>
#include <stdexcept>
#include <support/ksCommandTime.h>
#include <support/ksProbeCommand.h>
#include <support/ksQtWarnings.h>
#include <support/ksStackRecorder.h>
#include <support/ksStackState.h>
#include <type_traits>

static_assert(!std::is_copy_constructible_v<ksUndoGesture> && !std::is_copy_assignable_v<ksUndoGesture>);

namespace {

class ksUndoGestureTest : public testing::Test
{
protected:
    /// A command made \a seconds after the beginning.
    template <int kind = 0>
    QUndoCommand *command(const char *text, double seconds, QUndoCommand *parent = nullptr)
    {
        auto *made = new ksProbeCommand<kind>(QString::fromLatin1(text), log, parent);
        ksCommandTime::of(*made) = 1000.0 + seconds;
        return made;
    }

    template <int kind = 0>
    void add(const char *text, double seconds)
    {
        stack.add(command<kind>(text, seconds));
    }

    /// Adds a composite of two commands of different kinds.
    void addPair(const char *text, double seconds)
    {
        auto *pair = new ksMultiCommand(QString::fromLatin1(text));
        command<0>("a", seconds, pair);
        command<1>("b", seconds, pair);
        stack.add(pair);
    }

    ksProbeLog log;
    ksUndoStack stack;
};

} // namespace

TEST_F(ksUndoGestureTest, IsOneStepWhateverItsPace)
{
    ksStackRecorder recorder(stack);
    const ksUndoGesture gesture(&stack);
    add("A", 0.0);
    add("B", 0.1);
    add("C", 3600.0);
    add("D", -3600.0);
    EXPECT_EQ(ksStateOf(stack), ksHolding({"A"}, 1));
    ksEvents expected;
    for (int i = 0; i < 4; ++i)
        expected =
            expected + ksStep::added("A", 0, {"id=int:" + std::to_string(ksProbeCommand<>::commandId())});
    EXPECT_EQ(recorder.take(), expected);
}

TEST_F(ksUndoGestureTest, MergesWithNothingBeforeAndNothingAfter)
{
    add("before", 0.0);
    {
        const ksUndoGesture gesture(&stack);
        add("A", 0.0);
    }
    add("after", 0.0);
    EXPECT_EQ(ksStateOf(stack), ksHolding({"before", "A", "after"}, 3));
    auto *unlimited = new ksProbeCommand<>(QStringLiteral("unlimited"), log);
    unlimited->setMergeResponseDelta(-1.0);
    stack.undo();
    stack.add(unlimited);
    EXPECT_EQ(ksStateOf(stack), ksHolding({"before", "A", "unlimited"}, 3));
}

TEST_F(ksUndoGestureTest, IsApartFromTheNext)
{
    for (const char *text : {"A", "B"}) {
        const ksUndoGesture gesture(&stack);
        add(text, 0.0);
    }
    EXPECT_EQ(ksStateOf(stack), ksHolding({"A", "B"}, 2));
    stack.undo();
    {
        const ksUndoGesture gesture(&stack);
        add("C", 0.0);
    }
    EXPECT_EQ(ksStateOf(stack), ksHolding({"A", "C"}, 2));
}

TEST_F(ksUndoGestureTest, TakesCompositesChildByChild)
{
    addPair("before", 0.0);
    {
        const ksUndoGesture gesture(&stack);
        addPair("A", 0.0);
        addPair("B", 60.0);
    }
    addPair("after", 60.0);
    EXPECT_EQ(ksStateOf(stack), ksHolding({"before", "A", "after"}, 3));
}

TEST_F(ksUndoGestureTest, KeepsApartWhatDoesNotMerge)
{
    const ksUndoGesture gesture(&stack);
    add<0>("A", 0.0);
    add<1>("other kind", 0.0);
    auto *stubborn = new ksProbeCommand<1>(QStringLiteral("switched off"), log);
    stubborn->setMergeEnabled(false);
    stack.add(stubborn);
    stack.setClean();
    add<1>("saved", 0.0);
    stack.add(new QUndoCommand(QStringLiteral("plain")));
    EXPECT_EQ(ksStateOf(stack), ksHolding({"A", "other kind", "switched off", "saved", "plain"}, 5));
}

TEST_F(ksUndoGestureTest, BeginsAnewWithinAMacro)
{
    {
        const ksUndoMacro macro(QStringLiteral("M"), &stack);
        add("A", 0.0);
        {
            ksUndoGesture gesture(&stack);
            add("B", 0.0);
            add("C", 60.0);
            gesture.takeBack();
        }
        add("D", 60.0);
    }
    EXPECT_EQ(ksStateOf(stack), ksHolding({"M"}, 1));
    ASSERT_EQ(stack.currentCommand()->childCount(), 3);
    EXPECT_EQ(stack.currentCommand()->child(1)->text(), QStringLiteral("B"));
}

TEST_F(ksUndoGestureTest, JoinsTheOneAroundIt)
{
    {
        const ksUndoGesture outer(&stack);
        add("A", 0.0);
        {
            const ksUndoGesture inner(&stack);
            add("B", 60.0);
        }
        add("C", 120.0);
    }
    add("D", 120.0);
    EXPECT_EQ(ksStateOf(stack), ksHolding({"A", "D"}, 2));
}

TEST_F(ksUndoGestureTest, EndsWhenAnExceptionPasses)
{
    try {
        const ksUndoGesture gesture(&stack);
        add("A", 0.0);
        throw std::runtime_error("stop");
    } catch (const std::runtime_error &) {
    }
    add("B", 0.0);
    EXPECT_EQ(ksStateOf(stack), ksHolding({"A", "B"}, 2));
}

TEST_F(ksUndoGestureTest, GoesOnAfterTheStackIsCleared)
{
    const ksUndoGesture gesture(&stack);
    add("A", 0.0);
    stack.clear();
    add("B", 0.0);
    add("C", 60.0);
    EXPECT_EQ(ksStateOf(stack), ksHolding({"B"}, 1));
}

TEST_F(ksUndoGestureTest, IsOfOneStackOnly)
{
    ksUndoStack other;
    const ksUndoGesture gesture(&stack);
    other.add(command("A", 0.0));
    other.add(command("B", 60.0));
    EXPECT_EQ(ksStateOf(other), ksHolding({"A", "B"}, 2));
}

TEST_F(ksUndoGestureTest, TakesBackItsStepsAndForgetsThem)
{
    const std::unique_ptr<QAction> redo(stack.createRedoAction(nullptr));
    add("before", 0.0);
    log.clear();
    ksStackRecorder recorder(stack);
    ksUndoGesture gesture(&stack);
    add<0>("A", 0.0);
    add<0>("B", 60.0);
    addPair("pair", 0.0);
    recorder.take();
    gesture.takeBack();
    EXPECT_EQ(ksStateOf(stack), ksHolding({"before"}, 1));
    EXPECT_FALSE(redo->isEnabled());
    EXPECT_EQ(redo->text(), QStringLiteral("Redo"));
    const ksKeys id = {"id=int:" + std::to_string(ksProbeCommand<>::commandId())};
    EXPECT_EQ(recorder.take(), ksStep::undone("pair", 2, id) + ksStep::undone("A", 1, id));
    EXPECT_THAT(log, testing::ElementsAre("redo A", "redo B", "delete B", "redo a", "redo b", "undo b",
                                          "undo a", "delete a", "delete b", "undo A", "delete A"));
    // It goes on, and there is nothing to take back that is not its own.
    gesture.takeBack();
    add("C", 0.0);
    add("D", 60.0);
    EXPECT_EQ(ksStateOf(stack), ksHolding({"before", "C"}, 2));
}

TEST_F(ksUndoGestureTest, TakesBackToTheStepThatIsSaved)
{
    add("before", 0.0);
    stack.setClean();
    ksUndoGesture gesture(&stack);
    add("A", 0.0);
    gesture.takeBack();
    EXPECT_EQ(ksStateOf(stack), ksHolding({"before"}, 1, true));
}

TEST_F(ksUndoGestureTest, TakesBackToWhereItWasSaved)
{
    ksUndoGesture gesture(&stack);
    add("A", 0.0);
    stack.setClean();
    add("B", 60.0);
    add("C", 120.0);
    EXPECT_EQ(ksStateOf(stack), ksHolding({"A", "B"}, 2));
    gesture.takeBack();
    EXPECT_EQ(ksStateOf(stack), ksHolding({"A"}, 1, true));
}

TEST_F(ksUndoGestureTest, IsOneStillWhenSavingIsRefused)
{
    const ksQtWarnings warnings;
    const ksUndoGesture gesture(&stack);
    {
        const ksUndoMacro macro(QStringLiteral("M"), &stack);
        add("A", 0.0);
        stack.setClean();
        add("B", 60.0);
    }
    EXPECT_EQ(stack.currentCommand()->childCount(), 1);
}

TEST_F(ksUndoGestureTest, TakesBackAMacroThatAPartOfItIsIn)
{
    ksUndoGesture gesture(&stack);
    {
        const ksUndoMacro macro(QStringLiteral("M"), &stack);
        stack.add(new QUndoCommand(QStringLiteral("plain")));
        add("A", 0.0);
    }
    gesture.takeBack();
    EXPECT_EQ(ksStateOf(stack), ksHolding({}, 0, true));
}

TEST_F(ksUndoGestureTest, TakesBackNoCommandThatIsNoneOfTheLibrarys)
{
    ksUndoGesture gesture(&stack);
    add("A", 0.0);
    stack.add(new QUndoCommand(QStringLiteral("plain")));
    add("B", 0.0);
    gesture.takeBack();
    EXPECT_EQ(ksStateOf(stack), ksHolding({"A", "plain"}, 2));
}

TEST_F(ksUndoGestureTest, HasNothingToTakeBackWhenUndone)
{
    add("before", 0.0);
    ksUndoGesture gesture(&stack);
    add("A", 0.0);
    stack.undo();
    gesture.takeBack();
    EXPECT_EQ(ksStateOf(stack), ksHolding({"before", "A"}, 1));
}

TEST_F(ksUndoGestureTest, IsNoneWithoutABracket)
{
    stack.endGesture();
    stack.takeBackGesture();
    add("A", 0.0);
    stack.takeBackGesture();
    add("B", 0.1);
    add("C", 60.0);
    EXPECT_EQ(ksStateOf(stack), ksHolding({"A", "C"}, 2));
    {
        const ksUndoGesture gesture(&stack);
        add("D", 60.0);
        add("E", 120.0);
    }
    EXPECT_EQ(ksStateOf(stack), ksHolding({"A", "C", "D"}, 3));
    stack.takeBackGesture();
    EXPECT_EQ(ksStateOf(stack), ksHolding({"A", "C", "D"}, 3));
}

TEST(ksUndoGesture, GoesToInstanceZeroByDefault)
{
    ksProbeLog log;
    {
        const ksUndoGesture gesture;
        for (const double seconds : {0.0, 60.0}) {
            auto *command = new ksProbeCommand<>(QStringLiteral("A"), log);
            ksCommandTime::of(*command) += seconds;
            ksUndoStack::get(0)->add(command);
        }
    }
    EXPECT_EQ(ksUndoStack::get(0)->count(), 1);
    ksUndoStack::clearAll();
}
