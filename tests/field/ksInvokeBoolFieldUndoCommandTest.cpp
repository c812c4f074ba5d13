// SPDX-License-Identifier: MIT
#include "ksFieldFixture.h"
#include "ksMethodReceiver.h"

#include <ksundo/field/ksInvokeBoolFieldUndoCommand.h>

#include <QSignalSpy>
#include <QThread>

#include <support/ksErrorLines.h>
#include <support/ksQtWarnings.h>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

using Command = ksInvokeBoolFieldUndoCommand;

/// Commands that switch the probe's flag and tell a receiver.
class ksInvokeBoolFieldUndoCommandTest : public ksFieldFixture
{
protected:
    ~ksInvokeBoolFieldUndoCommandTest() override { EXPECT_THAT(errors.take(), IsEmpty()); }

    std::unique_ptr<Command> make(const char *method, bool value = true)
    {
        return std::make_unique<Command>(container(), "flag", value, &receiver, method);
    }

    /// The calls that one redo of a command with \a method brings about.
    std::vector<std::string> callsOf(const char *method)
    {
        make(method)->redo();
        return receiver.takeCalls();
    }

    static constexpr osg::BitVector mask = osg::ProbeContainer::FlagFieldMask;

    ksErrorLines errors;
    ksMethodReceiver receiver;
};

} // namespace

TEST_F(ksInvokeBoolFieldUndoCommandTest, WritesTheFieldThenPassesTheNewValue)
{
    receiver.find = [this] { return values()["flag"] + " and " + std::to_string(changes().sizeChanged()); };
    const auto command = make("take(bool)");
    EXPECT_THAT(receiver.takeCalls(), IsEmpty());
    command->redo();
    EXPECT_THAT(receiver.takeCalls(), ElementsAre("take 1, TRUE and 1"));
    expectOneEdit(mask, "TRUE");
}

TEST_F(ksInvokeBoolFieldUndoCommandTest, PassesThePreviousValueWhenItIsRedoneAgain)
{
    const auto command = make("take(bool)");
    command->redo();
    command->undo();
    command->redo();
    EXPECT_THAT(receiver.takeCalls(), ElementsAre("take 1", "take 0"));
    EXPECT_FALSE(probe->getFlag());
    command->redo();
    EXPECT_THAT(receiver.takeCalls(), ElementsAre("take 1"));
    EXPECT_TRUE(probe->getFlag());
}

TEST_F(ksInvokeBoolFieldUndoCommandTest, HasAConstructorPerWayToNameTheField)
{
    QUndoCommand parent;
    const QString text = QStringLiteral("text");
    const int id = osg::ProbeContainer::FlagFieldId;
    for (Command *command : {new Command(text, container(), "flag", true, &receiver, "take(bool)", &parent),
                             new Command(container(), "flag", true, &receiver, "take(bool)", &parent),
                             new Command(text, container(), id, true, &receiver, "take(bool)", &parent),
                             new Command(container(), id, true, &receiver, "take(bool)", &parent)}) {
        probe->setFlag(false);
        command->redo();
        EXPECT_TRUE(probe->getFlag());
        EXPECT_THAT(receiver.takeCalls(), ElementsAre("take 1"));
    }
    ASSERT_EQ(parent.childCount(), 4);
    expectForms(parent, id);
}

TEST_F(ksInvokeBoolFieldUndoCommandTest, CallsMethodsOfEveryAccess)
{
    EXPECT_THAT(callsOf("slot(bool)"), ElementsAre("slot 1"));
    EXPECT_THAT(callsOf("protectedSlot(bool)"), ElementsAre("protectedSlot 1"));
    EXPECT_THAT(callsOf("privateSlot(bool)"), ElementsAre("privateSlot 1"));
    EXPECT_THAT(callsOf("switched(bool)"), ElementsAre("signal 1"));
    EXPECT_THAT(callsOf("answer(bool)"), ElementsAre("answer 1"));
}

TEST_F(ksInvokeBoolFieldUndoCommandTest, CallsAMethodOfABaseClass)
{
    ksDerivedReceiver derived;
    Command(container(), "flag", true, &derived, "take(bool)").redo();
    EXPECT_THAT(derived.takeCalls(), ElementsAre("take 1"));
}

TEST_F(ksInvokeBoolFieldUndoCommandTest, CallsAMethodWithoutParametersWithoutTheValue)
{
    EXPECT_THAT(callsOf("takeNothing()"), ElementsAre("takeNothing"));
    EXPECT_THAT(callsOf("takeOneOrNone()"), ElementsAre("takeOneOrNone 1"));
}

TEST_F(ksInvokeBoolFieldUndoCommandTest, PassesTheValueUnderTheDeclaredTypeOfTheParameter)
{
    EXPECT_THAT(callsOf("takeFlag(Flag)"), ElementsAre("takeFlag 1"));
    EXPECT_THAT(callsOf("takeInt(int)"), ElementsAre("takeInt 1"));
    make("takeInt(int)", false)->redo();
    EXPECT_THAT(receiver.takeCalls(), ElementsAre("takeInt 0"));
}

TEST_F(ksInvokeBoolFieldUndoCommandTest, FindsASignatureWithBlanks)
{
    EXPECT_THAT(callsOf("take( bool )"), ElementsAre("take 1"));
    EXPECT_THAT(callsOf("  take  (  bool  )  "), ElementsAre("take 1"));
    EXPECT_THAT(callsOf("take(const bool &)"), ElementsAre("take 1"));
}

TEST_F(ksInvokeBoolFieldUndoCommandTest, LogsAMethodThatIsNotFoundOnceAndGoesOnWithTheField)
{
    ksDerivedReceiver derived;
    Command command(container(), "flag", true, &derived, " unknown ( bool ) ");
    EXPECT_THAT(errors.take(), ElementsAre("Method not found: ksDerivedReceiver::unknown(bool)"));
    command.redo();
    EXPECT_TRUE(probe->getFlag());
    expectOneEdit(mask, "TRUE");
    command.undo();
    command.redo();
    EXPECT_FALSE(probe->getFlag());
    EXPECT_THAT(derived.takeCalls(), IsEmpty());
}

TEST_F(ksInvokeBoolFieldUndoCommandTest, FindsOnlyMethodsThatTheMetaObjectLists)
{
    for (const char *method : {"ordinary(bool)", "take", "take()", "take(int)", "Take(bool)", ""}) {
        EXPECT_THAT(callsOf(method), IsEmpty());
        EXPECT_THAT(errors.take(), ElementsAre(std::string("Method not found: ksMethodReceiver::") + method));
    }
}

TEST_F(ksInvokeBoolFieldUndoCommandTest, LogsEveryCallThatQtRefusesAndLeavesTheFieldWritten)
{
    ksDerivedReceiver derived;
    Command command(container(), "flag", true, &derived, " takeTwo(bool , bool)");
    EXPECT_THAT(errors.take(), IsEmpty());
    for (const bool value : {true, false, true}) {
        command.redo();
        EXPECT_EQ(probe->getFlag(), value);
        EXPECT_THAT(errors.take(), ElementsAre("Could not invoke: ksDerivedReceiver::takeTwo(bool,bool)"));
    }
    EXPECT_THAT(derived.takeCalls(), IsEmpty());
}

TEST_F(ksInvokeBoolFieldUndoCommandTest, PassesNothingToAMethodThatTakesNoNumber)
{
    const QSignalSpy emitted(&receiver, &QObject::objectNameChanged);
    EXPECT_THAT(callsOf("objectNameChanged(QString)"), IsEmpty());
    EXPECT_THAT(errors.take(), ElementsAre("Could not invoke: ksMethodReceiver::objectNameChanged(QString)"));
    EXPECT_EQ(emitted.count(), 0);
    EXPECT_TRUE(probe->getFlag());
}

TEST_F(ksInvokeBoolFieldUndoCommandTest, QueuesTheCallForAnObjectOfAnotherThread)
{
    QThread thread;
    receiver.moveToThread(&thread);
    const auto command = make("take(bool)");
    const auto other = make("takeInt(int)");
    command->redo();
    command->redo();
    other->redo();
    EXPECT_TRUE(probe->getFlag());
    EXPECT_THAT(receiver.takeCalls(), IsEmpty()) << "the thread has not begun yet";

    QMetaObject::invokeMethod(
        &receiver, [&thread] { thread.quit(); }, Qt::QueuedConnection);
    thread.start();
    thread.wait();
    EXPECT_THAT(receiver.takeCalls(), ElementsAre("take 1", "take 0", "takeInt 1"));
}

TEST_F(ksInvokeBoolFieldUndoCommandTest, LogsACallThatCannotBeQueued)
{
    QThread thread;
    receiver.moveToThread(&thread);
    ksQtWarnings warnings;
    make("takeFlag(Flag)")->redo();
    EXPECT_EQ(warnings.take().size(), 1u) << "Qt says why";
    EXPECT_THAT(errors.take(), ElementsAre("Could not invoke: ksMethodReceiver::takeFlag(Flag)"));
    EXPECT_TRUE(probe->getFlag());
}

TEST_F(ksInvokeBoolFieldUndoCommandTest, WritesAndReadsIntegerFieldsAsABoolCommandDoes)
{
    probe->setUInt16(7);
    Command command(container(), "uint16", false, &receiver, "take(bool)");
    command.redo();
    EXPECT_EQ(probe->getUInt16(), 0);
    command.undo();
    EXPECT_EQ(probe->getUInt16(), 0);
    command.redo();
    EXPECT_EQ(probe->getUInt16(), 1);
    EXPECT_THAT(receiver.takeCalls(), ElementsAre("take 0", "take 1"));
}

TEST_F(ksInvokeBoolFieldUndoCommandTest, CallsTheMethodWithItsValueAlsoWithoutAField)
{
    for (const char *name : {"unknown", "text"}) {
        Command command(container(), name, true, &receiver, "take(bool)");
        for (int i = 0; i < 2; ++i) {
            command.redo();
            EXPECT_THAT(receiver.takeCalls(), ElementsAre("take 1")) << "there was nothing to exchange";
        }
    }
}
