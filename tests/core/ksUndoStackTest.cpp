// SPDX-License-Identifier: MIT
#include <ksundo/core/ksMultiCommand.h>
#include <ksundo/core/ksUndoStack.h>

#include <QAction>
#include <QMetaMethod>
#include <QSignalSpy>
#include <QUndoStack>
#include <gmock/gmock.h>

#include <climits>
#include <memory>
#include <stdexcept>
#include <support/ksProbeCommand.h>
#include <support/ksQtWarnings.h>
#include <support/ksStackRecorder.h>
#include <support/ksStackState.h>

using testing::ElementsAre;
using testing::IsEmpty;

Q_DECLARE_METATYPE(const QUndoCommand *)

namespace {

/// Calls back whenever it runs.
class ksHookCommand : public QUndoCommand
{
public:
    ksHookCommand(std::function<void()> onRedo, std::function<void()> onUndo)
        : onRedo(std::move(onRedo))
        , onUndo(std::move(onUndo))
    {}

    explicit ksHookCommand(const std::function<void()> &onRun)
        : ksHookCommand(onRun, onRun)
    {}

    void redo() override { onRedo(); }
    void undo() override { onUndo(); }

private:
    std::function<void()> onRedo;
    std::function<void()> onUndo;
};

class ksUndoStackTest : public testing::Test
{
protected:
    void add(const char *text) { stack.add(new QUndoCommand(QString::fromUtf8(text))); }

    /// Adds plain commands called by the letters of \a texts.
    void addAll(const char *texts)
    {
        for (; *texts != '\0'; ++texts)
            stack.add(new QUndoCommand(QString(QLatin1Char(*texts))));
        recorder.take();
    }

    void addNumber(const char *text, int value)
    {
        stack.add(new ksSetNumberCommand(QString::fromUtf8(text), number, value));
    }

    ksStackState state() const { return ksStateOf(stack); }

    const ksKeys numberKeys{"id=int:" + std::to_string(ksSetNumberCommand::commandId())};
    ksProbeLog log;
    int number = 0;
    ksUndoStack stack;
    ksStackRecorder recorder{stack};
    QObject receiver;
};

} // namespace

TEST_F(ksUndoStackTest, StartsEmptyIdleAndClean)
{
    EXPECT_EQ(state(), ksHolding({}, 0, true));
    EXPECT_EQ(stack.currentCommand(), nullptr);
    EXPECT_EQ(stack.undoLimit(), 0);
    EXPECT_EQ(stack.parent(), nullptr);
    EXPECT_THAT(recorder.take(), IsEmpty());
}

TEST_F(ksUndoStackTest, IgnoresANullCommand)
{
    stack.add(nullptr);
    EXPECT_EQ(state(), ksHolding({}, 0, true));
    EXPECT_THAT(recorder.take(), IsEmpty());
}

TEST_F(ksUndoStackTest, DoesNotTakeANullCommandForAnAddition)
{
    addAll("A");
    stack.undo();
    recorder.take();
    stack.add(nullptr);
    stack.redo();
    EXPECT_EQ(recorder.take(), ksStep::redone("A", 0));
}

TEST_F(ksUndoStackTest, RunsACommandOnceWhenAdded)
{
    stack.add(new ksProbeCommand<>(QStringLiteral("A"), log));
    EXPECT_THAT(log, ElementsAre("redo A"));
}

TEST_F(ksUndoStackTest, ReportsAdditionUndoAndRedo)
{
    addNumber("A", 5);
    EXPECT_EQ(state(), ksHolding({"A"}, 1));
    EXPECT_EQ(recorder.take(), ksStep::added("A", 0, numberKeys));
    EXPECT_EQ(number, 5);

    stack.undo();
    EXPECT_EQ(state(), ksHolding({"A"}, 0, true));
    EXPECT_EQ(recorder.take(), ksStep::undone("A", 0, numberKeys));
    EXPECT_EQ(number, 0);

    stack.redo();
    EXPECT_EQ(state(), ksHolding({"A"}, 1));
    EXPECT_EQ(recorder.take(), ksStep::redone("A", 0, numberKeys));
    EXPECT_EQ(number, 5);
}

TEST_F(ksUndoStackTest, SignalsTheCommandItself)
{
    qRegisterMetaType<const QUndoCommand *>("const QUndoCommand*");
    QSignalSpy redone(&stack, &ksUndoStack::redoPerformed);
    QSignalSpy undone(&stack, &ksUndoStack::undoPerformed);

    auto *command = new QUndoCommand;
    stack.add(command);
    ASSERT_EQ(redone.count(), 1);
    EXPECT_EQ(redone[0][0].value<const QUndoCommand *>(), command);
    EXPECT_EQ(redone[0][1], QVariant(true));
    EXPECT_EQ(stack.currentCommand(), command);

    stack.undo();
    ASSERT_EQ(undone.count(), 1);
    EXPECT_EQ(undone[0][0].value<const QUndoCommand *>(), command);
    EXPECT_EQ(stack.currentCommand(), nullptr);

    stack.redo();
    ASSERT_EQ(redone.count(), 2);
    EXPECT_EQ(redone[1][0].value<const QUndoCommand *>(), command);
    EXPECT_EQ(redone[1][1], QVariant(false));
}

TEST_F(ksUndoStackTest, DeletesUndoneCommandsOnAddition)
{
    stack.add(new ksProbeCommand<0>(QStringLiteral("A"), log));
    stack.add(new ksProbeCommand<1>(QStringLiteral("B"), log));
    stack.undo();
    stack.undo();
    log.clear();
    recorder.take();
    stack.add(new ksProbeCommand<2>(QStringLiteral("C"), log));
    EXPECT_THAT(log, ElementsAre("redo C", "delete B", "delete A"));
    EXPECT_EQ(state(), ksHolding({"C"}, 1));
    EXPECT_EQ(recorder.take(),
              ksStep::added("C", 0, {"id=int:" + std::to_string(ksProbeCommand<2>::commandId())}));
}

TEST_F(ksUndoStackTest, DeletesItsCommandsAtItsEnd)
{
    {
        ksUndoStack inner;
        inner.add(new ksProbeCommand<0>(QStringLiteral("A"), log));
        inner.add(new ksProbeCommand<1>(QStringLiteral("B"), log));
        inner.undo();
        log.clear();
    }
    EXPECT_THAT(log, ElementsAre("delete A", "delete B"));
}

TEST_F(ksUndoStackTest, ReportsAMergeAsAnAdditionOfTheTopCommand)
{
    addNumber("A", 5);
    const QUndoCommand *top = stack.currentCommand();
    recorder.take();
    addNumber("B", 6);
    EXPECT_EQ(recorder.take(), ksStep::added("A", 0, numberKeys));
    EXPECT_EQ(state(), ksHolding({"A"}, 1));
    EXPECT_EQ(stack.currentCommand(), top);
    EXPECT_EQ(number, 6);
    stack.undo();
    EXPECT_EQ(recorder.take(), ksStep::undone("A", 0, numberKeys));
    EXPECT_EQ(number, 0);
}

TEST_F(ksUndoStackTest, DeletesTheAbsorbedCommand)
{
    for (const char *text : {"A", "B"}) {
        auto *command = new ksProbeCommand<>(QString::fromUtf8(text), log);
        command->setMergeResponseDelta(-1.0);
        stack.add(command);
    }
    EXPECT_THAT(log, ElementsAre("redo A", "redo B", "delete B"));
}

TEST_F(ksUndoStackTest, CarriesTextsInUtf8)
{
    add("Gr\u00f6\u00dfe \u6f22\u5b57 \U0001f600");
    EXPECT_EQ(recorder.take(), ksStep::added("Gr\u00f6\u00dfe \u6f22\u5b57 \U0001f600", 0));
}

TEST_F(ksUndoStackTest, TellsTheTextOfTheHistoryNotThatOfTheMenu)
{
    add("in the history\nin the menu");
    EXPECT_EQ(recorder.take(), ksStep::added("in the history", 0));
    EXPECT_EQ(stack.undoText(), QStringLiteral("in the menu"));
    stack.undo();
    EXPECT_EQ(stack.redoText(), QStringLiteral("in the menu"));
}

TEST_F(ksUndoStackTest, SendsSignalsWithoutACallback)
{
    stack.setMessageCallback(nullptr);
    add("A");
    stack.undo();
    EXPECT_EQ(recorder.take(), (ksEvents{"redoPerformed(A, true)", "undoPerformed(A)"}));
}

TEST_F(ksUndoStackTest, AsksACommandForItsMessageOnlyWithACallback)
{
    struct Command : ksUndoCommand
    {
        explicit Command(int &asked)
            : ksUndoCommand(QString())
            , asked(asked)
        {}
        void makeMessage(ksMessage &) const override { ++asked; }
        int &asked;
    };

    int asked = 0;
    stack.add(new Command(asked));
    EXPECT_EQ(asked, 1);
    stack.setMessageCallback(nullptr);
    stack.undo();
    stack.redo();
    EXPECT_EQ(asked, 1);
}

TEST_F(ksUndoStackTest, IgnoresTheResultOfTheCallback)
{
    static int calls;
    calls = 0;
    stack.setMessageCallback([](const char *, ksMessage &, int) { return ++calls % 2 == 0; });
    addAll("AB");
    stack.undo();
    EXPECT_EQ(calls, 3);
    EXPECT_EQ(state(), ksHolding({"A", "B"}, 1));
}

TEST_F(ksUndoStackTest, SendsAMessageOnRequest)
{
    addAll("A");
    addNumber("B", 5);
    recorder.take();
    stack.sendMessage("application", 1, false);
    stack.sendMessage("application", 0, true);
    EXPECT_THAT(recorder.take(), ElementsAre(ksStep::message("application", false, numberKeys, 1, "B"),
                                             ksStep::message("application", true, {}, 0, "A")));
}

TEST_F(ksUndoStackTest, LetsACompositeSpeakByItsFirstChild)
{
    int number = 0;
    auto *composite = new ksMultiCommand(QStringLiteral("both"));
    new ksSetNumberCommand(QString(), number, 1, composite);
    stack.add(composite);
    EXPECT_EQ(recorder.take(), ksStep::added("both", 0, numberKeys));
}

TEST_F(ksUndoStackTest, SendsNoMessageAboutNoCommand)
{
    addAll("A");
    stack.sendMessage("application", -1, true);
    stack.sendMessage("application", 1, true);
    EXPECT_THAT(recorder.take(), IsEmpty());
}

TEST_F(ksUndoStackTest, BuildsAFreshMessageEveryTime)
{
    static std::vector<std::size_t> sizes;
    sizes.clear();
    stack.setMessageCallback([](const char *, ksMessage &message, int) {
        sizes.push_back(message.values().size());
        message.set("receiver's own", 1, true);
        return true;
    });
    addAll("AB");
    EXPECT_THAT(sizes, ElementsAre(3u, 3u));
}

TEST_F(ksUndoStackTest, ReportsNestedMacrosOnceWhenTheOutermostEnds)
{
    addAll("A");
    stack.beginMacro(QStringLiteral("outer"));
    stack.beginMacro(QStringLiteral("inner"));
    addNumber("B", 5);
    stack.endMacro();
    EXPECT_THAT(recorder.take(), IsEmpty());
    addNumber("C", 6);
    stack.endMacro();
    EXPECT_EQ(recorder.take(), ksStep::added("outer", 1));
    EXPECT_EQ(state(), ksHolding({"A", "outer"}, 2));
    stack.undo();
    EXPECT_EQ(number, 0);
}

TEST_F(ksUndoStackTest, StandsStillWhileAMacroIsOpen)
{
    addAll("AB");
    stack.undo();
    recorder.take();
    stack.beginMacro(QStringLiteral("M"));
    EXPECT_FALSE(stack.canUndo());
    EXPECT_FALSE(stack.canRedo());
    EXPECT_EQ(stack.undoText(), QString());
    EXPECT_EQ(stack.redoText(), QString());
    {
        ksQtWarnings warnings;
        stack.undo();
        stack.redo();
        stack.reset();
        stack.setClean();
        EXPECT_EQ(warnings.take().size(), 4u);
    }
    EXPECT_FALSE(stack.isClean());
    EXPECT_EQ(stack.index(), 1);
    EXPECT_EQ(stack.getBusyDepth(), 0);
    EXPECT_THAT(recorder.take(), IsEmpty());
    stack.endMacro();
    EXPECT_EQ(recorder.take(), ksStep::added("M", 1));
}

TEST_F(ksUndoStackTest, MergesWithinAMacro)
{
    stack.beginMacro(QStringLiteral("M"));
    addNumber("A", 5);
    addNumber("B", 6);
    EXPECT_THAT(recorder.take(), IsEmpty());
    stack.endMacro();
    EXPECT_EQ(stack.currentCommand()->childCount(), 1);
}

TEST_F(ksUndoStackTest, WarnsOfAMacroEndWithoutABeginning)
{
    addAll("A");
    ksQtWarnings warnings;
    stack.endMacro();
    EXPECT_EQ(warnings.take().size(), 1u);
    EXPECT_EQ(state(), ksHolding({"A"}, 1));
    EXPECT_THAT(recorder.take(), IsEmpty());
    stack.undo();
    EXPECT_EQ(recorder.take(), ksStep::undone("A", 0));
    stack.redo();
    EXPECT_EQ(recorder.take(), ksStep::redone("A", 0));
    stack.undo();
    recorder.take();
    stack.endMacro();
    stack.redo();
    EXPECT_EQ(recorder.take(), ksStep::added("A", 0));
}

TEST_F(ksUndoStackTest, ResetsToTheMarkInOneReport)
{
    addAll("AB");
    stack.mark();
    addAll("CDE");
    stack.reset();
    EXPECT_EQ(state(), ksHolding({"A", "B", "C", "D", "E"}, 2));
    EXPECT_EQ(recorder.take(), ksStep::undone("C", 2));
}

TEST_F(ksUndoStackTest, RunsEveryCommandOnTheWayToTheMark)
{
    stack.mark();
    stack.add(new ksProbeCommand<0>(QStringLiteral("A"), log));
    stack.add(new ksProbeCommand<1>(QStringLiteral("B"), log));
    log.clear();
    stack.reset();
    EXPECT_THAT(log, ElementsAre("undo B", "undo A"));
}

TEST_F(ksUndoStackTest, AnnouncesANullCommandWhenCleared)
{
    addAll("AB");
    stack.clear();
    EXPECT_EQ(state(), ksHolding({}, 0, true));
    EXPECT_THAT(recorder.take(), ElementsAre("undoPerformed(null)", "cleared()"));
}

TEST_F(ksUndoStackTest, DeletesCommandsWithoutUndoingThemWhenCleared)
{
    stack.add(new ksProbeCommand<0>(QStringLiteral("A"), log));
    stack.add(new ksProbeCommand<1>(QStringLiteral("B"), log));
    stack.undo();
    log.clear();
    stack.clear();
    EXPECT_THAT(log, ElementsAre("delete A", "delete B"));
}

TEST_F(ksUndoStackTest, IsEmptyWhenItSaysThatItIsCleared)
{
    addAll("A");
    ksStackState seen = ksHolding({"not", "called"}, 0);
    QObject::connect(&stack, &ksUndoStack::cleared, &receiver, [this, &seen] { seen = state(); });
    stack.clear();
    EXPECT_EQ(seen, ksHolding({}, 0, true));
}

TEST_F(ksUndoStackTest, ForgetsAnOpenMacroWhenCleared)
{
    stack.beginMacro(QStringLiteral("M"));
    add("A");
    stack.clear();
    EXPECT_EQ(state(), ksHolding({}, 0, true));
    EXPECT_THAT(recorder.take(), ElementsAre("redoPerformed(null, true)", "cleared()"));

    ksQtWarnings warnings;
    stack.endMacro();
    EXPECT_EQ(warnings.take().size(), 1u);
    add("B");
    EXPECT_EQ(recorder.take(), ksStep::added("B", 0));
}

TEST_F(ksUndoStackTest, LosesTheOldestCommandsAtTheUndoLimit)
{
    stack.setUndoLimit(2);
    EXPECT_EQ(stack.undoLimit(), 2);
    stack.add(new ksProbeCommand<0>(QStringLiteral("A"), log));
    stack.add(new ksProbeCommand<1>(QStringLiteral("B"), log));
    recorder.take();
    add("C");
    EXPECT_EQ(recorder.take(), ksStep::added("C", 1));
    EXPECT_THAT(log, ElementsAre("redo A", "redo B", "delete A"));
    EXPECT_EQ(state(), ksHolding({"B", "C"}, 2));
    stack.undo();
    stack.undo();
    stack.undo();
    EXPECT_EQ(state(), ksHolding({"B", "C"}, 0));
}

TEST_F(ksUndoStackTest, TakesAnUndoLimitOnlyWhileEmpty)
{
    addAll("ABC");
    ksQtWarnings warnings;
    stack.setUndoLimit(1);
    EXPECT_EQ(warnings.take().size(), 1u);
    EXPECT_EQ(stack.undoLimit(), 0);
    EXPECT_EQ(state(), ksHolding({"A", "B", "C"}, 3));
}

TEST_F(ksUndoStackTest, IsBusyWhileItRunsACommand)
{
    std::vector<int> depths;
    const auto note = [&] { depths.push_back(stack.getBusyDepth()); };
    stack.add(new ksHookCommand(note));
    EXPECT_THAT(depths, ElementsAre(1));
    stack.undo();
    EXPECT_THAT(depths, ElementsAre(1, 1));
    stack.redo();
    EXPECT_THAT(depths, ElementsAre(1, 1, 1));
    stack.reset();
    EXPECT_THAT(depths, ElementsAre(1, 1, 1, 1));
    stack.beginMacro(QString());
    stack.add(new ksHookCommand(note));
    stack.endMacro();
    EXPECT_THAT(depths, ElementsAre(1, 1, 1, 1, 1));
    EXPECT_EQ(stack.getBusyDepth(), 0);
}

TEST_F(ksUndoStackTest, IsBusyWhileItReports)
{
    std::vector<int> depths;
    const auto note = [&] { depths.push_back(stack.getBusyDepth()); };
    QObject::connect(&stack, &ksUndoStack::redoPerformed, &receiver, note);
    QObject::connect(&stack, &ksUndoStack::undoPerformed, &receiver, note);
    addAll("A");
    stack.undo();
    stack.redo();
    stack.reset();
    stack.beginMacro(QString());
    stack.endMacro();
    EXPECT_THAT(depths, ElementsAre(1, 1, 1, 1, 1));
}

TEST_F(ksUndoStackTest, IsNotBusyWhileItIsClearedOrOpensAMacro)
{
    std::vector<int> depths;
    addAll("A");
    QObject::connect(&stack, &ksUndoStack::undoPerformed, &receiver,
                     [&] { depths.push_back(stack.getBusyDepth()); });
    QObject::connect(&stack, &ksUndoStack::cleared, &receiver,
                     [&] { depths.push_back(stack.getBusyDepth()); });
    stack.clear();
    EXPECT_THAT(depths, ElementsAre(0, 0));
    stack.beginMacro(QString());
    EXPECT_EQ(stack.getBusyDepth(), 0);
    stack.endMacro();
}

TEST_F(ksUndoStackTest, KeepsItsBusyDepthWhenClearedByAReceiver)
{
    int depth = -1;
    QObject::connect(&stack, &ksUndoStack::undoPerformed, &receiver, [&] {
        QObject::disconnect(&stack, nullptr, &receiver, nullptr);
        stack.clear();
        depth = stack.getBusyDepth();
    });
    addAll("A");
    stack.undo();
    EXPECT_EQ(depth, 1);
    EXPECT_EQ(stack.getBusyDepth(), 0);
    EXPECT_TRUE(stack.isEmpty());
}

TEST_F(ksUndoStackTest, CountsNestedOperations)
{
    std::vector<int> depths;
    const auto note = [&] { depths.push_back(stack.getBusyDepth()); };
    QMetaObject::Connection once;
    once = QObject::connect(&stack, &ksUndoStack::redoPerformed, &receiver, [&] {
        QObject::disconnect(once);
        stack.add(new ksHookCommand(note));
        note();
    });
    stack.add(new ksHookCommand(note));
    EXPECT_THAT(depths, ElementsAre(1, 2, 1));
    EXPECT_EQ(stack.count(), 2);
    EXPECT_EQ(stack.index(), 2);
    EXPECT_EQ(stack.getBusyDepth(), 0);
}

TEST_F(ksUndoStackTest, ReportsWhatAReceiverAddsAsWell)
{
    QMetaObject::Connection once;
    once = QObject::connect(&stack, &ksUndoStack::redoPerformed, &receiver, [&] {
        QObject::disconnect(once);
        add("B");
    });
    add("A");
    EXPECT_EQ(recorder.take(), (ksEvents{"redoPerformed(A, true)"} + ksStep::added("B", 1) +
                                ksEvents{ksStep::message("ksURManager::redo", true, {}, 0, "A")}));
    EXPECT_EQ(state(), ksHolding({"A", "B"}, 2));
    stack.undo();
    EXPECT_EQ(recorder.take(), ksStep::undone("B", 1));
}

TEST_F(ksUndoStackTest, ReportsWhatAReceiverUndoesAsWell)
{
    QMetaObject::Connection once;
    once = QObject::connect(&stack, &ksUndoStack::redoPerformed, &receiver, [&] {
        QObject::disconnect(once);
        stack.undo();
    });
    add("A");
    EXPECT_EQ(recorder.take(), (ksEvents{"redoPerformed(A, true)"} + ksStep::undone("A", 0) +
                                ksEvents{ksStep::message("ksURManager::redo", true, {}, 0, "A")}));
    EXPECT_EQ(state(), ksHolding({"A"}, 0, true));
    stack.redo();
    EXPECT_EQ(recorder.take(), ksStep::redone("A", 0));
}

TEST_F(ksUndoStackTest, IsAsBeforeWhenTheRedoOfANewCommandHasThrown)
{
    addAll("A");
    stack.undo();
    recorder.take();
    const auto refused = std::make_unique<ksHookCommand>([] { throw std::runtime_error("refused"); });
    EXPECT_THROW(stack.add(refused.get()), std::runtime_error);
    EXPECT_EQ(state(), ksHolding({"A"}, 0, true));
    EXPECT_THAT(recorder.take(), IsEmpty());
    stack.redo();
    EXPECT_EQ(recorder.take(), ksStep::redone("A", 0));
}

TEST_F(ksUndoStackTest, AnnouncesANullCommandAtItsEnd)
{
    std::vector<const QUndoCommand *> undone;
    auto ending = std::make_unique<ksUndoStack>();
    ending->add(new QUndoCommand);
    QObject::connect(ending.get(), &ksUndoStack::undoPerformed, &receiver,
                     [&](const QUndoCommand *command) { undone.push_back(command); });
    ending.reset();
    EXPECT_THAT(undone, ElementsAre(nullptr));
}

TEST_F(ksUndoStackTest, IsBusyOnlyForItsOwnCommands)
{
    ksUndoStack other;
    int depth = -1;
    stack.add(new ksHookCommand([&] { depth = other.getBusyDepth(); }));
    EXPECT_EQ(depth, 0);
}

TEST_F(ksUndoStackTest, IsNotBusyAfterACommandHasThrown)
{
    bool fails = true;
    const auto run = [&fails] {
        if (fails)
            throw std::runtime_error("refused");
    };
    const auto refused = std::make_unique<ksHookCommand>(run);
    EXPECT_THROW(stack.add(refused.get()), std::runtime_error);
    EXPECT_EQ(state(), ksHolding({}, 0, true));

    fails = false;
    stack.add(new ksHookCommand(run));
    fails = true;
    EXPECT_THROW(stack.undo(), std::runtime_error);
    EXPECT_EQ(stack.getBusyDepth(), 0);
    EXPECT_THROW(stack.reset(), std::runtime_error);
    EXPECT_EQ(stack.getBusyDepth(), 0);
    fails = false;
    stack.undo();
    fails = true;
    EXPECT_THROW(stack.redo(), std::runtime_error);
    EXPECT_EQ(stack.getBusyDepth(), 0);
}

TEST_F(ksUndoStackTest, ShowsACommandTheStateBeforeItsStep)
{
    std::vector<ksStackState> seen;
    stack.add(new ksHookCommand([&] { seen.push_back(state()); }));
    stack.undo();
    stack.redo();

    ksStackState adding = ksHolding({}, 0, true);
    ksStackState undoing = ksHolding({""}, 1);
    ksStackState redoing = ksHolding({""}, 0, true);
    for (ksStackState *each : {&adding, &undoing, &redoing})
        each->busyDepth = 1;
    EXPECT_THAT(seen, ElementsAre(adding, undoing, redoing));
}

TEST_F(ksUndoStackTest, UndoesAndRedoesByActions)
{
    QObject parent;
    QAction *undo = stack.createUndoAction(&parent);
    QAction *redo = stack.createRedoAction(&parent);
    EXPECT_EQ(undo->parent(), &parent);
    EXPECT_EQ(redo->parent(), &parent);
    addAll("A");

    undo->trigger();
    EXPECT_EQ(state(), ksHolding({"A"}, 0, true));
    EXPECT_EQ(recorder.take(), ksStep::undone("A", 0));
    redo->trigger();
    EXPECT_EQ(state(), ksHolding({"A"}, 1));
    EXPECT_EQ(recorder.take(), ksStep::redone("A", 0));
}

TEST_F(ksUndoStackTest, EnablesActionsWhileThereIsSomethingToDo)
{
    QObject parent;
    const QAction *undo = stack.createUndoAction(&parent);
    const QAction *redo = stack.createRedoAction(&parent);
    const auto enabled = [&] { return std::make_pair(undo->isEnabled(), redo->isEnabled()); };

    EXPECT_EQ(enabled(), std::make_pair(false, false));
    addAll("AB");
    EXPECT_EQ(enabled(), std::make_pair(true, false));
    stack.undo();
    EXPECT_EQ(enabled(), std::make_pair(true, true));
    stack.undo();
    EXPECT_EQ(enabled(), std::make_pair(false, true));
    stack.beginMacro(QString());
    EXPECT_EQ(enabled(), std::make_pair(false, false));
    stack.endMacro();
    EXPECT_EQ(enabled(), std::make_pair(true, false));
    stack.clear();
    EXPECT_EQ(enabled(), std::make_pair(false, false));
}

TEST_F(ksUndoStackTest, NamesTheStepInItsActions)
{
    QObject parent;
    const QAction *undo = stack.createUndoAction(&parent);
    const QAction *redo = stack.createRedoAction(&parent);
    EXPECT_EQ(undo->text(), QStringLiteral("Undo"));
    EXPECT_EQ(redo->text(), QStringLiteral("Redo"));
    addAll("AB");
    stack.undo();
    EXPECT_EQ(undo->text(), QStringLiteral("Undo A"));
    EXPECT_EQ(redo->text(), QStringLiteral("Redo B"));
    EXPECT_EQ(stack.createUndoAction(&parent, QStringLiteral("Back"))->text(), QStringLiteral("Back A"));
    EXPECT_EQ(stack.createRedoAction(&parent, QStringLiteral("Forth"))->text(), QStringLiteral("Forth B"));
}

TEST_F(ksUndoStackTest, IsBusyOnceInACommandRunByAnAction)
{
    QObject parent;
    std::vector<int> depths;
    stack.add(new ksHookCommand([&] { depths.push_back(stack.getBusyDepth()); }));
    stack.createUndoAction(&parent)->trigger();
    stack.createRedoAction(&parent)->trigger();
    EXPECT_THAT(depths, ElementsAre(1, 1, 1));
}

TEST(ksUndoStack, HasTwoInstances)
{
    EXPECT_NE(ksUndoStack::get(0), ksUndoStack::get(1));
    EXPECT_EQ(ksUndoStack::get(0), ksUndoStack::get(0));
    EXPECT_EQ(ksUndoStack::get(1), ksUndoStack::get(1));
    for (const unsigned int other : {2u, 7u, UINT_MAX})
        EXPECT_EQ(ksUndoStack::get(other), ksUndoStack::get(0)) << other;
}

TEST(ksUndoStack, ClearsBothInstancesInOrder)
{
    std::vector<unsigned int> order;
    QObject receiver;
    for (const unsigned int which : {0u, 1u}) {
        ksUndoStack *stack = ksUndoStack::get(which);
        EXPECT_TRUE(stack->isEmpty()) << "whatever the other one holds";
        stack->add(new QUndoCommand);
        QObject::connect(stack, &ksUndoStack::cleared, &receiver,
                         [&order, which] { order.push_back(which); });
    }
    ksUndoStack::clearAll();
    EXPECT_THAT(order, ElementsAre(0u, 1u));
    EXPECT_TRUE(ksUndoStack::get(0)->isEmpty());
    EXPECT_TRUE(ksUndoStack::get(1)->isEmpty());
}

TEST(ksUndoStackMetaObject, ListsItsMethods)
{
    const QMetaObject &meta = ksUndoStack::staticMetaObject;
    EXPECT_STREQ(meta.className(), "ksUndoStack");
    EXPECT_STREQ(meta.superClass()->className(), "QObject");

    std::vector<std::string> methods;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
        const QMetaMethod method = meta.method(i);
        const std::string kind = method.methodType() == QMetaMethod::Signal ? "signal"
                                 : method.methodType() == QMetaMethod::Slot ? "slot"
                                                                            : "other";
        const std::string access = method.access() == QMetaMethod::Private     ? "private"
                                   : method.access() == QMetaMethod::Protected ? "protected"
                                                                               : "public";
        const std::string names = method.parameterNames().join(',').toStdString();
        methods.push_back(access + ' ' + kind + ' ' + method.typeName() + ' ' +
                          method.methodSignature().toStdString() + ' ' + names);
    }
    EXPECT_THAT(methods,
                ElementsAre("public signal void redoPerformed(const QUndoCommand*,bool) command,added",
                            "public signal void undoPerformed(const QUndoCommand*) command",
                            "public signal void cleared() ", "public slot void undo() ",
                            "public slot void redo() ", "public slot void clear() ",
                            "public slot void mark() ", "public slot void reset() ",
                            "public slot void showHistory() ", "private slot void indexChanged(int) i"));
}

TEST_F(ksUndoStackTest, CanBeOperatedByTheNamesOfItsSlots)
{
    addAll("AB");
    for (const char *slot : {"undo", "mark", "undo", "reset", "redo"})
        EXPECT_TRUE(QMetaObject::invokeMethod(&stack, slot)) << slot;
    EXPECT_EQ(state(), ksHolding({"A", "B"}, 2));
    EXPECT_TRUE(QMetaObject::invokeMethod(&stack, "clear"));
    EXPECT_EQ(state(), ksHolding({}, 0, true));
}
