// SPDX-License-Identifier: MIT
#include <ksundo/core/ksMultiCommand.h>
#include <ksundo/core/ksUndoGesture.h>
#include <ksundo/core/ksUndoMacro.h>

#include <QAction>
#include <QApplication>
#include <QUndoView>
#include <gmock/gmock.h>

#include <functional>
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
};

/// A place where receivers hear of a step: how one starts to listen there, and how it stops.
struct Place
{
    const char *name;
    std::function<void(StackFixture &, std::function<void()>)> listen;
};

std::function<void()> onMessage;

const std::vector<Place> places = {
    {"signal",
     [](StackFixture &fixture, const std::function<void()> &call) {
         QObject::connect(&fixture.stack, &ksUndoStack::redoPerformed, &fixture.receiver, call);
         QObject::connect(&fixture.stack, &ksUndoStack::undoPerformed, &fixture.receiver, call);
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

using StepAndUse = std::tuple<StackUse, StackUse>;

class ksReceivers : public testing::TestWithParam<StepAndUse>
{};

std::string nameOf(const testing::TestParamInfo<StepAndUse> &info)
{
    std::string name = std::string(std::get<0>(info.param).name) + '_' + std::get<1>(info.param).name;
    std::replace(name.begin(), name.end(), ' ', '_');
    return name;
}

} // namespace

INSTANTIATE_TEST_SUITE_P(, ksReceivers,
                         testing::Combine(testing::ValuesIn(steps), testing::ValuesIn(stackUses)), nameOf);

TEST_P(ksReceivers, MayUseTheStackAsIfTheStepWereOver)
{
    const auto &[step, use] = GetParam();
    const ksQtWarnings warnings; // of a macro that is not open, and of the screen
    StackFixture expected;
    step.perform(expected.stack);
    use.perform(expected.stack);
    for (const Place &place : places) {
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
    for (const Place &place : places) {
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

INSTANTIATE_TEST_SUITE_P(, ksDestructors, testing::ValuesIn(stackUses), [](const auto &info) {
    std::string name = info.param.name;
    std::replace(name.begin(), name.end(), ' ', '_');
    return name;
});

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
    auto command = std::make_unique<ksSetNumberCommand>(QStringLiteral("A"), number, 1);
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
                ElementsAre("ksUndoStack::undo(): not possible while a command is run or deleted",
                            "ksUndoStack: a step chosen in the history window has ended with an exception"));
    EXPECT_EQ(recorder.take(), ksStep::undone("C", 2));
    EXPECT_EQ(ksStateOf(stack), ksHolding({"A", "B", "C"}, 2));
    EXPECT_EQ(window->currentIndex().row(), 2);
}
