// SPDX-License-Identifier: MIT
#include <ksundo/core/ksUndoMacro.h>

#include <QUndoCommand>
#include <gmock/gmock.h>

#include <stdexcept>
#include <support/ksProbeCommand.h>
#include <support/ksStackRecorder.h>
#include <support/ksStackState.h>
#include <type_traits>

static_assert(!std::is_copy_constructible_v<ksUndoMacro> && !std::is_copy_assignable_v<ksUndoMacro>);

TEST(ksUndoMacro, MakesOneStepOfItsScope)
{
    int number = 0;
    ksUndoStack stack;
    ksStackRecorder recorder(stack);
    {
        const ksUndoMacro macro(QStringLiteral("M"), &stack);
        stack.add(new ksSetNumberCommand(QStringLiteral("A"), number, 5));
        stack.add(new QUndoCommand(QStringLiteral("B")));
        EXPECT_FALSE(stack.canUndo());
        EXPECT_THAT(recorder.take(), testing::IsEmpty());
    }
    EXPECT_EQ(recorder.take(), ksStep::added("M", 0));
    EXPECT_EQ(ksStateOf(stack), ksHolding({"M"}, 1));
    stack.undo();
    EXPECT_EQ(number, 0);
}

TEST(ksUndoMacro, Nests)
{
    ksUndoStack stack;
    ksStackRecorder recorder(stack);
    {
        const ksUndoMacro outer(QStringLiteral("outer"), &stack);
        const ksUndoMacro inner(QStringLiteral("inner"), &stack);
        stack.add(new QUndoCommand);
    }
    EXPECT_EQ(recorder.take(), ksStep::added("outer", 0));
    EXPECT_EQ(ksStateOf(stack), ksHolding({"outer"}, 1));
    ASSERT_EQ(stack.currentCommand()->childCount(), 1);
    EXPECT_EQ(stack.currentCommand()->child(0)->text(), QStringLiteral("inner"));
}

TEST(ksUndoMacro, EndsWhenAnExceptionPasses)
{
    int number = 0;
    ksUndoStack stack;
    try {
        const ksUndoMacro macro(QStringLiteral("M"), &stack);
        stack.add(new ksSetNumberCommand(QStringLiteral("A"), number, 5));
        throw std::runtime_error("stop");
    } catch (const std::runtime_error &) {
    }
    EXPECT_EQ(ksStateOf(stack), ksHolding({"M"}, 1));
    EXPECT_EQ(number, 5);
    stack.undo();
    EXPECT_EQ(number, 0);
}

namespace {

constexpr auto takeBack = ksUndoMacro::OnException::takeBack;

/// Adds two steps to \a stack within a macro, and throws.
void failWithin(ksUndoStack &stack, int &number)
{
    const ksUndoMacro macro(QStringLiteral("M"), &stack, takeBack);
    stack.add(new ksSetNumberCommand(QStringLiteral("A"), number, 5));
    stack.add(new ksSetNumberCommand(QStringLiteral("B"), number, 6));
    throw std::runtime_error("stop");
}

} // namespace

TEST(ksUndoMacro, TakesBackWhatItHoldsWhenAnExceptionPasses)
{
    int number = 0;
    ksUndoStack stack;
    stack.add(new QUndoCommand(QStringLiteral("before")));
    ksStackRecorder recorder(stack);
    EXPECT_THROW(failWithin(stack, number), std::runtime_error);
    EXPECT_EQ(number, 0);
    EXPECT_EQ(ksStateOf(stack), ksHolding({"before"}, 1));
    EXPECT_EQ(recorder.take(), ksStep::added("M", 1) + ksStep::undone("M", 1));
}

TEST(ksUndoMacro, IsTakenBackAsAWholeOnly)
{
    int number = 0;
    ksUndoStack stack;
    {
        const ksUndoMacro outer(QStringLiteral("outer"), &stack, takeBack);
        EXPECT_THROW(failWithin(stack, number), std::runtime_error);
        EXPECT_EQ(number, 6);
    }
    EXPECT_EQ(ksStateOf(stack), ksHolding({"outer"}, 1));
    stack.undo();
    EXPECT_EQ(number, 0);
    stack.clear();
    const auto failOutside = [&] {
        const ksUndoMacro outer(QStringLiteral("outer"), &stack, takeBack);
        failWithin(stack, number);
    };
    EXPECT_THROW(failOutside(), std::runtime_error);
    EXPECT_EQ(number, 0);
    EXPECT_EQ(ksStateOf(stack), ksHolding({}, 0, true));
}

TEST(ksUndoMacro, StaysWhenItEndsInOrderWhileAnExceptionIsOnItsWay)
{
    struct Cleaner
    {
        ksUndoStack &stack;
        ~Cleaner() { const ksUndoMacro macro(QStringLiteral("M"), &stack, takeBack); }
    };
    ksUndoStack stack;
    try {
        const Cleaner cleaner{stack};
        throw std::runtime_error("stop");
    } catch (const std::runtime_error &) {
    }
    EXPECT_EQ(ksStateOf(stack), ksHolding({"M"}, 1));
}

TEST(ksUndoMacro, PassesOnWhatReceiversThrowAtItsEnd)
{
    int number = 0;
    ksUndoStack stack;
    QObject receiver;
    QObject::connect(&stack, &ksUndoStack::redoPerformed, &receiver, [] { throw 1; });
    EXPECT_THROW({ const ksUndoMacro macro(QStringLiteral("M"), &stack); }, int);
    EXPECT_EQ(ksStateOf(stack), ksHolding({"M"}, 1));
    EXPECT_THROW(failWithin(stack, number), std::runtime_error);
    EXPECT_EQ(ksStateOf(stack), ksHolding({"M"}, 1));
    EXPECT_EQ(number, 0);
}

TEST(ksUndoMacro, GoesToInstanceZeroByDefault)
{
    {
        const ksUndoMacro macro(QStringLiteral("M"));
        ksUndoStack::get(0)->add(new QUndoCommand);
    }
    EXPECT_EQ(ksUndoStack::get(0)->undoText(), QStringLiteral("M"));
    EXPECT_TRUE(ksUndoStack::get(1)->isEmpty());
    ksUndoStack::clearAll();
}
