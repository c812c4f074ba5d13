// SPDX-License-Identifier: MIT
#include "ksCommandFixture.h"

#include <ksundo/core/ksFindContainer.h>
#include <ksundo/core/ksUndoStack.h>

#include <QApplication>
#include <QUndoView>

#include <memory>
#include <support/ksQtWarnings.h>
#include <support/ksStackRecorder.h>
#include <support/ksStackState.h>

namespace {

/// What the application does while a command runs.
struct Interruption
{
    const char *name;
    std::function<void(ksUndoStack &)> act;
    std::ptrdiff_t warnings = 0;
};

const Interruption refusedCalls = {"refused calls",
                                   [](ksUndoStack &stack) {
                                       stack.add(new QUndoCommand(QStringLiteral("more")));
                                       stack.undo();
                                       stack.redo();
                                       stack.reset();
                                       stack.setClean();
                                       stack.forgetUndone();
                                       stack.beginMacro(QStringLiteral("macro"));
                                       stack.endMacro();
                                       stack.takeBackMacro();
                                       stack.takeBackGesture();
                                   },
                                   10};

const Interruption harmlessCalls = {"harmless calls", [](ksUndoStack &stack) {
                                        stack.mark();
                                        stack.beginGesture();
                                        stack.endGesture();
                                        stack.showHistory();
                                        for (QWidget *window : QApplication::topLevelWidgets())
                                            if (qobject_cast<QUndoView *>(window) != nullptr)
                                                delete window;
                                    }};

const Interruption fault = {"fault", [](ksUndoStack &) { throw ksFault(); }};

const Interruption clearing = {"clear", [](ksUndoStack &stack) { stack.clear(); }};

bool isOurs(const std::string &warning)
{
    return warning.find("ksUndoStack: ") == 0;
}

/// Commands of one kind on a stack, whose steps the application interrupts at each of the calls that they
/// make.
class ksInterruptedCommands : public ksCommandFixture
{
protected:
    enum StepKind
    {
        adding,
        undoing,
        redoing
    };
    static constexpr auto stepKinds = {adding, undoing, redoing};

    /// All that can be observed after a step.
    struct Outcome
    {
        State scene;
        ksStackState stack;
        ksEvents events;
    };

    ksInterruptedCommands() { stack.add(new QUndoCommand(QStringLiteral("older"))); }

    void take(StepKind step)
    {
        if (step == adding)
            stack.add(added = kind().make(scene, nullptr));
        else
            step == undoing ? stack.undo() : stack.redo();
    }

    Outcome observe()
    {
        scene.take();
        return {comparable(scene.state()), ksStateOf(stack), events.take()};
    }

    Outcome outcomeOf(StepKind step)
    {
        take(step);
        return observe();
    }

    static void expectOutcome(const Outcome &actual, const Outcome &expected)
    {
        expectSame(actual.scene, expected.scene);
        EXPECT_EQ(actual.stack, expected.stack);
        EXPECT_EQ(actual.events, expected.events);
    }

    /// Takes the scene back to where it was, without the command.
    void finish()
    {
        if (!kind().undoIsEmpty)
            stack.undo();
        stack.clear();
        stack.add(new QUndoCommand(QStringLiteral("older")));
        observe();
    }

    /// Takes \a step with \a call made at the call \a number that it makes. False when it makes fewer.
    bool takeWith(StepKind step, const Interruption &interruption, int number)
    {
        bool isReached = false;
        scene.interruptAt(number, [&] {
            isReached = true;
            interruption.act(stack);
        });
        try {
            take(step);
        } catch (const ksFault &) {
            const Outcome failed = observe();
            expectOutcome(failed, {start.scene, start.stack, {}});
            scene.interruptAt(0, {});
            if (step == adding)
                stack.add(added); // it is still the caller's
            else
                take(step);
        }
        scene.interruptAt(0, {});
        return isReached;
    }

    ksUndoStack stack;
    ksStackRecorder events{stack};
    QUndoCommand *added = nullptr;
    Outcome start;
};

/// Commands of one kind, whose target goes within their step.
class ksCommandTargetGoing : public testing::TestWithParam<ksFaultKind>
{
protected:
    ~ksCommandTargetGoing() override
    {
        if (GetParam().reportSync)
            GetParam().reportSync(nullptr);
    }

    /// Adds, undoes and redoes a command, whose target goes at the call \a number that its steps make, or the
    /// whole scene, and the history with it. False when they make fewer.
    static bool lose(int number, bool all)
    {
        const ksFaultKind &kind = GetParam();
        ksFaultScene scene;
        if (kind.reportSync)
            kind.reportSync(&scene);
        ksUndoStack stack;
        ksStackRecorder events(stack);
        bool isReached = false;
        const auto drop = [&] {
            isReached = true;
            scene.drop(kind.target(scene));
            if (!all)
                return;
            stack.clear();
            while (scene.root->getNChildren() > 0)
                scene.drop(scene.root->getChild(0));
        };
        scene.interruptAt(number, drop, false);
        stack.add(kind.make(scene, nullptr));
        stack.undo();
        stack.redo();
        const ksEvents reported = events.take();
        EXPECT_EQ(std::count(reported.begin(), reported.end(), "cleared()"), all && isReached ? 1 : 0);
        EXPECT_EQ(stack.isEmpty(), all && isReached);
        EXPECT_EQ(stack.getBusyDepth(), 0);
        if (stack.isEmpty()) {
            EXPECT_EQ(reported.back(), "cleared()");
        } else {
            EXPECT_EQ(reported.size(), 6u);
        }
        stack.clear();
        scene.expectCounts({});
        return isReached;
    }
};

} // namespace

INSTANTIATE_TEST_SUITE_P(, ksInterruptedCommands, testing::ValuesIn(ksFaultKinds()), ksNameOfKind);

TEST_P(ksInterruptedCommands, TakeTheirStepWhateverIsCalledWithinIt)
{
    const Outcome before = observe();
    std::vector<Outcome> usual;
    for (const StepKind step : stepKinds)
        usual.push_back(outcomeOf(step));
    finish();

    ksQtWarnings warnings;
    for (const Interruption &interruption : {refusedCalls, harmlessCalls, fault}) {
        for (const StepKind interrupted : stepKinds) {
            bool isReached = true;
            for (int number = 1; isReached && !HasFailure(); ++number) {
                SCOPED_TRACE(std::string(interruption.name) + " at call " + std::to_string(number) +
                             " of step " + std::to_string(interrupted));
                start = before;
                for (const StepKind step : stepKinds) {
                    if (step == interrupted) {
                        isReached = takeWith(step, interruption, number);
                        const auto lines = warnings.take(); // the screen's own warnings among them
                        EXPECT_EQ(std::count_if(lines.begin(), lines.end(), isOurs),
                                  isReached ? interruption.warnings : 0);
                    } else {
                        take(step);
                    }
                    expectOutcome(start = observe(), usual[step]);
                }
                finish();
                scene.expectCounts({});
            }
        }
    }
}

TEST_P(ksInterruptedCommands, AreClearedAfterTheStepInWhichThatIsAskedFor)
{
    const ksEvents cleared{"undoPerformed(null)", "cleared()"};
    std::vector<long long> gone; // with the command
    for (const osg::FieldContainerPtr &container : containers(kind().goneWhenDone))
        gone.push_back(scene.recorder.idOf(container));
    const Outcome before = observe();
    const Outcome done = outcomeOf(adding);
    const Outcome undone = outcomeOf(undoing);
    take(redoing);
    finish();
    for (int number = 1;; ++number) {
        SCOPED_TRACE("call " + std::to_string(number) + " of undo");
        take(adding);
        observe();
        if (!takeWith(undoing, clearing, number))
            break;
        expectOutcome(observe(), {undone.scene, ksHolding({}, 0, true), undone.events + cleared});
        scene.expectCounts({});
        stack.add(new QUndoCommand(QStringLiteral("older")));
    }
    if (kind().undoIsEmpty)
        take(redoing);
    finish();
    expectSame(observe().scene, before.scene);
    if (takeWith(adding, clearing, 1))
        expectOutcome(observe(), {ksFaultScene::without(gone, done.scene), ksHolding({}, 0, true),
                                  done.events + cleared});
    else
        EXPECT_TRUE(kind().isEmpty);
}

INSTANTIATE_TEST_SUITE_P(, ksCommandTargetGoing, testing::ValuesIn(ksFaultKinds()), ksNameOfKind);

TEST_P(ksCommandTargetGoing, IsPassedOver)
{
    for (int number = 1; lose(number, false) && !HasFailure(); ++number) {
    }
}

TEST_P(ksCommandTargetGoing, MayGoWithTheWholeScene)
{
    for (int number = 1; lose(number, true) && !HasFailure(); ++number) {
    }
}
