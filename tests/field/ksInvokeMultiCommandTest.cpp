// SPDX-License-Identifier: MIT
#include "ksMethodReceiver.h"

#include <ksundo/core/ksUndoStack.h>
#include <ksundo/field/ksInvokeMultiCommand.h>

#include <gmock/gmock.h>

#include <support/ksErrorLines.h>
#include <support/ksProbeCommand.h>
#include <type_traits>

using testing::ElementsAre;
using testing::IsEmpty;

static_assert(
    !std::is_constructible_v<ksInvokeMultiCommand, QString, QObject *, const char *, QUndoCommand *>,
    "always a top-level command");

namespace {

/// Its calls, and the runs of its children, go to one log.
class ksInvokeMultiCommandTest : public testing::Test
{
protected:
    ~ksInvokeMultiCommandTest() override { EXPECT_THAT(errors.take(), IsEmpty()); }

    void addChildren(QUndoCommand &command)
    {
        new ksProbeCommand<>(QStringLiteral("A"), log, &command);
        new ksProbeCommand<>(QStringLiteral("B"), log, &command);
    }

    /// The log of a redo and an undo of a command with two children.
    ksProbeLog runsOf(const char *method)
    {
        ksInvokeMultiCommand command(QString(), &receiver, method);
        addChildren(command);
        log.clear();
        command.redo();
        command.undo();
        return log;
    }

    ksErrorLines errors;
    ksProbeLog log;
    ksMethodReceiver receiver;
};

/// A receiver whose calls go to the log of the children.
class ksLoggingReceiver : public ksMethodReceiver
{
public:
    explicit ksLoggingReceiver(ksProbeLog &log)
    {
        find = [&log] {
            log.push_back("call");
            return std::string();
        };
    }
};

const ksProbeLog childrenOnly{"redo A", "redo B", "undo B", "undo A"};

} // namespace

TEST_F(ksInvokeMultiCommandTest, CallsItsMethodOnceAfterAllChildrenInBothDirections)
{
    ksLoggingReceiver logging(log);
    ksInvokeMultiCommand command(QString(), &logging, "takeOneOrNone()");
    addChildren(command);
    EXPECT_THAT(log, IsEmpty());
    command.redo();
    EXPECT_THAT(std::exchange(log, {}), ElementsAre("redo A", "redo B", "call"));
    command.undo();
    EXPECT_THAT(std::exchange(log, {}), ElementsAre("undo B", "undo A", "call"));
    command.redo();
    EXPECT_THAT(std::exchange(log, {}), ElementsAre("redo A", "redo B", "call"));
}

TEST_F(ksInvokeMultiCommandTest, LogsAMethodThatIsNotFoundOnceAndRunsItsChildren)
{
    ksDerivedReceiver derived;
    ksInvokeMultiCommand command(QString(), &derived, "unknown( int, bool )");
    EXPECT_THAT(errors.take(), ElementsAre("Method not found: ksDerivedReceiver::unknown(int,bool)"));
    addChildren(command);
    command.redo();
    command.undo();
    EXPECT_EQ(std::exchange(log, {}), childrenOnly);
}

TEST_F(ksInvokeMultiCommandTest, LogsEveryCallThatQtRefusesAfterItsChildrenRan)
{
    const std::string line = "Could not invoke: ksMethodReceiver::";
    EXPECT_EQ(runsOf("take(bool)"), childrenOnly);
    EXPECT_THAT(errors.take(), ElementsAre(line + "take(bool)", line + "take(bool)"));
    EXPECT_EQ(runsOf("takeTwo(bool,bool)"), childrenOnly);
    EXPECT_THAT(errors.take(), ElementsAre(line + "takeTwo(bool,bool)", line + "takeTwo(bool,bool)"));
    EXPECT_THAT(receiver.takeCalls(), IsEmpty());
}

TEST_F(ksInvokeMultiCommandTest, MergesAsABatchDoesAndCallsTheMethodOfTheSurvivor)
{
    ksMethodReceiver other;
    int number = 0;
    ksUndoStack stack;
    for (ksMethodReceiver *each : {&receiver, &other}) {
        auto *batch = new ksInvokeMultiCommand(QString(), each, "takeNothing()");
        new ksSetNumberCommand(QString(), number, number + 1, batch);
        stack.add(batch);
    }
    EXPECT_EQ(stack.count(), 1);
    EXPECT_EQ(receiver.takeCalls().size(), 1u);
    EXPECT_EQ(other.takeCalls().size(), 1u);
    stack.undo();
    EXPECT_EQ(number, 0);
    stack.redo();
    EXPECT_EQ(number, 2);
    EXPECT_EQ(receiver.takeCalls().size(), 2u);
    EXPECT_THAT(other.takeCalls(), IsEmpty());
}
