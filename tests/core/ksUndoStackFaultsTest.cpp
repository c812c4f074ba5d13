// SPDX-License-Identifier: MIT
#include <ksundo/core/ksMultiCommand.h>
#include <ksundo/core/ksUndoGesture.h>
#include <ksundo/core/ksUndoMacro.h>

#include <QAction>
#include <QApplication>
#include <QUndoView>
#include <gmock/gmock.h>

#include <algorithm>
#include <functional>
#include <iterator>
#include <memory>
#include <stdexcept>
#include <support/ksProbeCommand.h>
#include <support/ksQtWarnings.h>
#include <support/ksStackRecorder.h>
#include <support/ksStackState.h>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

struct Fault
{};

/// Sets a number, and calls the application before it does, after it has, and when it goes.
class NoisyCommand : public QUndoCommand
{
public:
    NoisyCommand(const char *text, int &number, int value, QUndoCommand *parent = nullptr)
        : QUndoCommand(QString::fromLatin1(text), parent)
        , number(number)
        , value(value)
    {}
    ~NoisyCommand() override { onEnd(); }

    void redo() override
    {
        onRun();
        std::swap(number, value);
    }
    void undo() override { redo(); }

    std::function<void()> onRun = [] {};
    std::function<void()> onEnd = [] {};

private:
    int &number;
    int value;
};

/// What the application may call, wherever it is called itself.
struct StackUse
{
    const char *name;
    std::function<void(ksUndoStack &)> perform;
};

std::ostream &operator<<(std::ostream &out, const StackUse &use)
{
    return out << use.name;
}

const std::vector<StackUse> stackUses = {
    {"add", [](ksUndoStack &stack) { stack.add(new QUndoCommand(QStringLiteral("more"))); }},
    {"undo", [](ksUndoStack &stack) { stack.undo(); }},
    {"redo", [](ksUndoStack &stack) { stack.redo(); }},
    {"clear", [](ksUndoStack &stack) { stack.clear(); }},
    {"mark", [](ksUndoStack &stack) { stack.mark(); }},
    {"reset", [](ksUndoStack &stack) { stack.reset(); }},
    {"setClean", [](ksUndoStack &stack) { stack.setClean(); }},
    {"macro", [](ksUndoStack &stack) { const ksUndoMacro macro(QStringLiteral("macro"), &stack); }},
    {"beginMacro", [](ksUndoStack &stack) { stack.beginMacro(QStringLiteral("macro")); }},
    {"endMacro", [](ksUndoStack &stack) { stack.endMacro(); }},
    {"gesture",
     [](ksUndoStack &stack) {
         ksUndoGesture gesture(&stack);
         stack.add(new ksMultiCommand(QStringLiteral("drag")));
         gesture.takeBack();
     }},
    {"forgetUndone", [](ksUndoStack &stack) { stack.forgetUndone(); }},
    {"delete the history window",
     [](ksUndoStack &) {
         for (QWidget *window : QApplication::topLevelWidgets())
             if (qobject_cast<QUndoView *>(window) != nullptr)
                 delete window;
     }},
};

/// A stack with the commands A, B, C, D, the last of which is undone, marked after the first.
class StackFixture
{
public:
    StackFixture()
    {
        for (const char *text : {"A", "B", "C", "D"}) {
            stack.add(new NoisyCommand(text, number, number + 1));
            if (stack.count() == 1)
                stack.mark();
        }
        stack.undo();
        stack.showHistory();
    }

    ksStackState state() const { return ksStateOf(stack); }

    int number = 0;
    ksUndoStack stack;
    QObject receiver;
};

const std::vector<StackUse> steps = {
    {"addition", [](ksUndoStack &stack) { stack.add(new QUndoCommand(QStringLiteral("E"))); }},
    {"undo", [](ksUndoStack &stack) { stack.undo(); }},
    {"redo", [](ksUndoStack &stack) { stack.redo(); }},
    {"reset", [](ksUndoStack &stack) { stack.reset(); }},
    {"macro",
     [](ksUndoStack &stack) {
         stack.beginMacro(QStringLiteral("M"));
         stack.endMacro();
     }},
    {"clear", [](ksUndoStack &stack) { stack.clear(); }},
};

/// A place where receivers hear of a step: how one starts to listen there, and how it stops.
struct Place
{
    const char *name;
    std::function<void(StackFixture &, std::function<void()>)> listen;

    /// Whether one hears there of the step \a step.
    bool hearsOf(const StackUse &step) const
    {
        const bool isClear = step.name == std::string("clear");
        return name == std::string("signal") || isClear == (name == std::string("cleared"));
    }
};

std::function<void()> onMessage;

const std::vector<Place> places = {
    {"signal",
     [](StackFixture &fixture, const std::function<void()> &call) {
         QObject::connect(&fixture.stack, &ksUndoStack::redoPerformed, &fixture.receiver, call);
         QObject::connect(&fixture.stack, &ksUndoStack::undoPerformed, &fixture.receiver, call);
     }},
    {"cleared",
     [](StackFixture &fixture, const std::function<void()> &call) {
         QObject::connect(&fixture.stack, &ksUndoStack::cleared, &fixture.receiver, call);
     }},
    {"message",
     [](StackFixture &fixture, const std::function<void()> &call) {
         onMessage = call;
         fixture.stack.setMessageCallback([](const char *, ksMessage &, int) {
             onMessage();
             return true;
         });
     }},
};

/// Calls \a action the first time that it is called.
std::function<void()> once(std::function<void()> action)
{
    return [action = std::move(action), isDone = std::make_shared<bool>(false)] {
        if (!std::exchange(*isDone, true))
            action();
    };
}

/// The name of \a use in names of tests.
std::string nameOf(const StackUse &use)
{
    std::string name = use.name;
    std::replace(name.begin(), name.end(), ' ', '_');
    return name;
}

/// The places where one hears of the step \a step.
std::vector<Place> placesThatHearOf(const StackUse &step)
{
    std::vector<Place> result;
    std::copy_if(places.begin(), places.end(), std::back_inserter(result),
                 [&](const Place &place) { return place.hearsOf(step); });
    return result;
}

using StepAndUse = std::tuple<StackUse, StackUse>;

class ksReceivers : public testing::TestWithParam<StepAndUse>
{};

std::string nameOfBoth(const testing::TestParamInfo<StepAndUse> &info)
{
    return nameOf(std::get<0>(info.param)) + '_' + nameOf(std::get<1>(info.param));
}

} // namespace

INSTANTIATE_TEST_SUITE_P(, ksReceivers,
                         testing::Combine(testing::ValuesIn(steps), testing::ValuesIn(stackUses)),
                         nameOfBoth);

TEST_P(ksReceivers, MayUseTheStackAsIfTheStepWereOver)
{
    const auto &[step, use] = GetParam();
    const ksQtWarnings warnings; // of a macro that is not open, and of the screen
    StackFixture expected;
    step.perform(expected.stack);
    use.perform(expected.stack);
    for (const Place &place : placesThatHearOf(step)) {
        SCOPED_TRACE(place.name);
        StackFixture fixture;
        place.listen(fixture, once([&, &use = use] { use.perform(fixture.stack); }));
        step.perform(fixture.stack);
        EXPECT_EQ(fixture.state(), expected.state());
        EXPECT_EQ(fixture.number, expected.number);
    }
}

TEST_P(ksReceivers, DoNotUndoTheStepByWhatTheyThrow)
{
    const auto &[step, use] = GetParam();
    const ksQtWarnings warnings;
    StackFixture expected;
    step.perform(expected.stack);
    for (const Place &place : placesThatHearOf(step)) {
        SCOPED_TRACE(place.name);
        StackFixture fixture;
        const QAction *undo = fixture.stack.createUndoAction(&fixture.receiver);
        place.listen(fixture, once([] { throw Fault(); }));
        EXPECT_THROW(step.perform(fixture.stack), Fault);
        EXPECT_EQ(fixture.state(), expected.state());
        EXPECT_EQ(fixture.number, expected.number);
        EXPECT_EQ(undo->text(), QString(QStringLiteral("Undo ") + expected.stack.undoText()).trimmed());
        EXPECT_NO_THROW(use.perform(fixture.stack)) << "the fault is over";
    }
}

/// Operations while the destructor of a command runs.
class ksDestructors : public testing::TestWithParam<StackUse>
{};

INSTANTIATE_TEST_SUITE_P(, ksDestructors, testing::ValuesIn(stackUses),
                         [](const auto &info) { return nameOf(info.param); });

TEST_P(ksDestructors, AreServedAfterTheStep)
{
    const bool clears = GetParam().name == std::string("clear");
    const auto addOver = [](StackFixture &fixture) {
        fixture.stack.add(new QUndoCommand(QStringLiteral("E"))); // in place of D
    };
    const auto withEnd = [](StackFixture &fixture, std::function<void()> onEnd) {
        fixture.stack.clear();
        auto *command = new NoisyCommand("D", fixture.number, 5);
        command->onEnd = std::move(onEnd);
        fixture.stack.add(command);
        fixture.stack.undo();
    };
    const ksQtWarnings warnings;
    StackFixture expected;
    withEnd(expected, [] {});
    addOver(expected);
    if (clears)
        expected.stack.clear();

    StackFixture fixture;
    int ends = 0;
    withEnd(fixture, [&] {
        ++ends;
        GetParam().perform(fixture.stack);
    });
    addOver(fixture);
    EXPECT_EQ(ends, 1);
    EXPECT_EQ(fixture.state(), expected.state());

    withEnd(fixture, [&] {
        ++ends;
        GetParam().perform(fixture.stack);
    });
    fixture.stack.clear();
    EXPECT_EQ(ends, 2);
    EXPECT_EQ(fixture.state(), ksHolding({}, 0, true));
}

namespace {

class ksUndoStackFaults : public testing::Test
{
protected:
    NoisyCommand *noisy(const char *text, QUndoCommand *parent = nullptr)
    {
        return new NoisyCommand(text, number, number + 1, parent);
    }

    void addAll(const char *texts)
    {
        for (; *texts != '\0'; ++texts)
            stack.add(new NoisyCommand(std::string(1, *texts).c_str(), number, number + 1));
        recorder.take();
    }

    NoisyCommand &at(int index)
    {
        stack.mark();
        while (stack.index() > index + 1)
            stack.undo();
        auto *command = const_cast<QUndoCommand *>(stack.currentCommand());
        stack.reset();
        recorder.take();
        return *static_cast<NoisyCommand *>(command);
    }

    int number = 0;
    ksUndoStack stack;
    ksStackRecorder recorder{stack};
};

void fail()
{
    throw Fault();
}

} // namespace

TEST_F(ksUndoStackFaults, ResetKeepsTheStepsBeforeTheOneThatThrows)
{
    addAll("ABCDE");
    NoisyCommand &second = at(1);
    stack.undo();
    stack.redo();
    while (stack.index() > 0)
        stack.undo();
    stack.mark();
    while (stack.index() < 5)
        stack.redo();
    recorder.take();
    second.onRun = &fail;
    const QAction *undo = stack.createUndoAction(nullptr);
    EXPECT_THROW(stack.reset(), Fault);
    EXPECT_EQ(recorder.take(), ksStep::undone("C", 2));
    EXPECT_EQ(ksStateOf(stack), ksHolding({"A", "B", "C", "D", "E"}, 2));
    EXPECT_EQ(undo->text(), QStringLiteral("Undo B"));
    EXPECT_EQ(number, 2);
    delete undo;

    EXPECT_THROW(stack.reset(), Fault) << "at once";
    EXPECT_THAT(recorder.take(), IsEmpty());
    second.onRun = [] {};
    stack.reset();
    EXPECT_EQ(recorder.take(), ksStep::undone("A", 0));
    EXPECT_EQ(number, 0);
}

TEST_F(ksUndoStackFaults, ResetForwardsKeepsTheStepsBeforeTheOneThatThrows)
{
    addAll("ABCD");
    NoisyCommand &third = at(2);
    stack.mark();
    while (stack.index() > 0)
        stack.undo();
    recorder.take();
    third.onRun = &fail;
    EXPECT_THROW(stack.reset(), Fault);
    EXPECT_EQ(recorder.take(), ksStep::redone("B", 1));
    EXPECT_EQ(ksStateOf(stack), ksHolding({"A", "B", "C", "D"}, 2));
    EXPECT_EQ(number, 2);
}

TEST_F(ksUndoStackFaults, ClearsItselfWhenAMacroThrows)
{
    for (const bool undoing : {true, false}) {
        NoisyCommand *first = noisy("a");
        stack.beginMacro(QStringLiteral("M"));
        stack.add(first);
        stack.add(noisy("b"));
        stack.endMacro();
        if (!undoing)
            stack.undo();
        recorder.take();
        first->onRun = &fail;
        EXPECT_THROW(undoing ? stack.undo() : stack.redo(), Fault);
        EXPECT_EQ(ksStateOf(stack), ksHolding({}, 0, true));
        EXPECT_EQ(recorder.take().back(), "cleared()");
    }
}

TEST_F(ksUndoStackFaults, ClearsItselfWithinAResetOverAMacroThatThrows)
{
    addAll("A");
    stack.beginMacro(QStringLiteral("M"));
    NoisyCommand *part = noisy("a");
    stack.add(part);
    stack.endMacro();
    stack.add(noisy("B"));
    recorder.take();
    part->onRun = &fail;
    EXPECT_THROW(stack.reset(), Fault);
    EXPECT_EQ(recorder.take(), (ksEvents{"undoPerformed(null)", "cleared()"}));
    EXPECT_TRUE(stack.isEmpty());
}

TEST_F(ksUndoStackFaults, AMultiCommandTakesBackWhatItsPartsHaveDone)
{
    auto *multi = new ksMultiCommand(QStringLiteral("M"));
    noisy("a", multi);
    auto *nested = new QUndoCommand(multi);
    new NoisyCommand("b", number, 2, nested);
    auto *last = new NoisyCommand("c", number, 3, nested);
    new NoisyCommand("d", number, 4, multi);
    last->onRun = &fail;
    EXPECT_THROW(stack.add(multi), Fault);
    EXPECT_EQ(number, 0);
    EXPECT_EQ(ksStateOf(stack), ksHolding({}, 0, true));
    last->onRun = [] {};
    stack.add(multi);
    EXPECT_EQ(number, 4);
    last->onRun = once(&fail);
    EXPECT_THROW(stack.undo(), Fault);
    EXPECT_EQ(number, 4);
    EXPECT_EQ(ksStateOf(stack), ksHolding({"M"}, 1));
    stack.undo();
    EXPECT_EQ(number, 0);
}

TEST_F(ksUndoStackFaults, ACommandThatThrewIsNoPartOfTheGesture)
{
    const ksUndoGesture gesture(&stack);
    auto *failing = new ksMultiCommand(QStringLiteral("M"), &fail);
    auto *part = new ksSetNumberCommand(QStringLiteral("A"), number, 1, failing);
    EXPECT_THROW(stack.add(failing), Fault);
    EXPECT_EQ(part->getGesture(), 0u);
    EXPECT_EQ(number, 0);
    delete failing;
}

TEST_F(ksUndoStackFaults, AGestureForgetsAStepThatItsReceiversThrowAt)
{
    ksUndoGesture gesture(&stack);
    stack.add(new ksSetNumberCommand(QStringLiteral("A"), number, 1));
    QObject receiver;
    QObject::connect(&stack, &ksUndoStack::undoPerformed, &receiver, once(&fail));
    EXPECT_THROW(gesture.takeBack(), Fault);
    EXPECT_EQ(ksStateOf(stack), ksHolding({}, 0, true));
    EXPECT_EQ(number, 0);
}

TEST_F(ksUndoStackFaults, ReportsWhatAReceiverAddsToAClearedStack)
{
    QObject receiver;
    stack.add(noisy("A"));
    QObject::connect(&stack, &ksUndoStack::undoPerformed, &receiver, once([&] { stack.add(noisy("B")); }));
    recorder.take();
    const std::unique_ptr<QAction> undo(stack.createUndoAction(nullptr));
    stack.clear();
    EXPECT_TRUE(undo->isEnabled());
    EXPECT_EQ(undo->text(), QStringLiteral("Undo B"));
    EXPECT_EQ(recorder.take(),
              ksEvents{"undoPerformed(null)"} + ksStep::added("B", 0) + ksEvents{"cleared()"});
    EXPECT_EQ(ksStateOf(stack), ksHolding({"B"}, 1));
    stack.undo();
    EXPECT_EQ(recorder.take(), ksStep::undone("B", 0));
}

TEST_F(ksUndoStackFaults, ClearsWhenTheOutermostStepIsOver)
{
    NoisyCommand *clearing = noisy("A");
    clearing->onRun = [&] { stack.clear(); };
    QObject receiver;
    QObject::connect(&stack, &ksUndoStack::redoPerformed, &receiver, once([&] { stack.undo(); }));
    stack.add(clearing);
    const ksEvents reported = recorder.take();
    ASSERT_EQ(reported.size(), 6u);
    EXPECT_EQ(reported.front(), "redoPerformed(A, true)");
    EXPECT_EQ(reported[3], ksStep::message("ksURManager::redo", true, {}, 0, "A"));
    EXPECT_EQ(reported.back(), "cleared()");
    EXPECT_EQ(ksStateOf(stack), ksHolding({}, 0, true));
}

TEST_F(ksUndoStackFaults, LeavesTheOtherStackToItsCommands)
{
    ksUndoStack other;
    NoisyCommand *command = noisy("A");
    command->onRun = [&] {
        for (const StackUse &use : stackUses)
            use.perform(other);
        other.clear();
        other.add(new QUndoCommand(QStringLiteral("B")));
    };
    stack.add(command);
    EXPECT_EQ(ksStateOf(stack), ksHolding({"A"}, 1));
    EXPECT_EQ(ksStateOf(other), ksHolding({"B"}, 1));
}

TEST_F(ksUndoStackFaults, WarnsOfAStepByAnActionThatThrows)
{
    addAll("A");
    at(0).onRun = &fail;
    const std::unique_ptr<QAction> undo(stack.createUndoAction(nullptr));
    ksQtWarnings warnings;
    undo->trigger();
    EXPECT_THAT(warnings.take(),
                ElementsAre("ksUndoStack: a step that the user has taken has ended with an exception"));
    EXPECT_EQ(ksStateOf(stack), ksHolding({"A"}, 1));
}

TEST_F(ksUndoStackFaults, RefusesAStepInTheHistoryWindowWithinAnother)
{
    addAll("ABC");
    stack.showHistory();
    QUndoView *window = nullptr;
    for (QWidget *widget : QApplication::topLevelWidgets())
        if (auto *view = qobject_cast<QUndoView *>(widget))
            window = view;
    ASSERT_NE(window, nullptr);
    at(2).onRun = once([&] { window->setCurrentIndex(window->model()->index(0, 0)); });
    ksQtWarnings warnings;
    stack.undo();
    EXPECT_THAT(warnings.take(),
                ElementsAre("ksUndoStack: a step in the history window is not possible while "
                            "a command is run or deleted"));
    EXPECT_EQ(recorder.take(), ksStep::undone("C", 2));
    EXPECT_EQ(window->currentIndex().row(), 2);
}

TEST_F(ksUndoStackFaults, ResetTakesAsManyStepsAsQtDoesWhenSomeAreObsolete)
{
    addAll("ABCD");
    NoisyCommand &second = at(1);
    for (int i = 0; i < 3; ++i)
        stack.undo();
    stack.redo();
    stack.redo();
    stack.mark();
    while (stack.index() > 0)
        stack.undo();
    second.setObsolete(true);
    stack.reset();
    EXPECT_EQ(ksStateOf(stack), ksHolding({"A", "C", "D"}, 2));
}

TEST_F(ksUndoStackFaults, AMultiCommandIsTakenBackWhenItsActionThrows)
{
    auto *multi = new ksMultiCommand(QStringLiteral("M"), once(&fail));
    noisy("a", multi);
    EXPECT_THROW(stack.add(multi), Fault);
    EXPECT_EQ(number, 0);
    stack.add(multi);
    EXPECT_EQ(ksStateOf(stack), ksHolding({"M"}, 1));
}

TEST_F(ksUndoStackFaults, AMacroIsTakenBackOnlyWhenItIsTheLastStep)
{
    stack.add(noisy("A"));
    QObject receiver;
    const auto connection =
        QObject::connect(&stack, &ksUndoStack::redoPerformed, &receiver, [&] { stack.undo(); });
    stack.beginMacro(QStringLiteral("M"));
    stack.takeBackMacro();
    EXPECT_EQ(ksStateOf(stack), ksHolding({"A", "M"}, 1)) << "a receiver has undone it";
    QObject::disconnect(connection);
    stack.beginMacro(QStringLiteral("N"));
    stack.takeBackMacro();
    EXPECT_EQ(ksStateOf(stack), ksHolding({"A"}, 1));
    EXPECT_EQ(number, 1);
}

TEST_F(ksUndoStackFaults, ReceiversOfItsEndAreServedNoMore)
{
    auto ending = std::make_unique<ksUndoStack>();
    ksUndoStack *dying = ending.get();
    dying->add(noisy("A"));
    QObject receiver;
    int calls = 0;
    QObject::connect(dying, &ksUndoStack::undoPerformed, &receiver, [&] {
        ++calls;
        for (const StackUse &use : stackUses)
            use.perform(*dying);
        fail();
    });
    ksQtWarnings warnings;
    EXPECT_NO_THROW(ending.reset());
    EXPECT_EQ(calls, 1);
}

TEST_F(ksUndoStackFaults, ClearPassesOnWhatItsReceiversThrow)
{
    QObject receiver;
    QObject::connect(&stack, &ksUndoStack::undoPerformed, &receiver, once(&fail));
    bool isCleared = false;
    QObject::connect(&stack, &ksUndoStack::cleared, &receiver, [&] { isCleared = true; });
    stack.add(noisy("A"));
    stack.mark();
    EXPECT_THROW(stack.clear(), Fault);
    EXPECT_TRUE(isCleared);
    EXPECT_EQ(ksStateOf(stack), ksHolding({}, 0, true));
    stack.add(noisy("B"));
    stack.reset();
    EXPECT_EQ(stack.index(), 0) << "the mark is forgotten";
}

TEST_F(ksUndoStackFaults, WarnsOfAStepChosenInTheHistoryThatThrows)
{
    addAll("ABC");
    NoisyCommand &second = at(1);
    stack.showHistory();
    QUndoView *window = nullptr;
    for (QWidget *widget : QApplication::topLevelWidgets())
        if (auto *view = qobject_cast<QUndoView *>(widget))
            window = view;
    ASSERT_NE(window, nullptr);
    ksQtWarnings warnings;
    second.onRun = [&] {
        stack.undo();
        fail();
    };
    window->setCurrentIndex(window->model()->index(0, 0));
    EXPECT_THAT(warnings.take(),
                ElementsAre("ksUndoStack: undo() is not possible while a command is run or deleted",
                            "ksUndoStack: a step that the user has taken has ended with an exception"));
    EXPECT_EQ(recorder.take(), ksStep::undone("C", 2));
    EXPECT_EQ(ksStateOf(stack), ksHolding({"A", "B", "C"}, 2));
    EXPECT_EQ(window->currentIndex().row(), 2);
}
