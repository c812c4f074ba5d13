// SPDX-License-Identifier: MIT
#include "ksFieldFixture.h"
#include "ksMethodReceiver.h"

#include <ksundo/core/ksUndoStack.h>
#include <ksundo/field/ksInvokeBoolFieldUndoCommand.h>

#include <OpenSG/OSGGroup.h>

#include <QThread>

#include <support/ksCommandTime.h>
#include <support/ksDescribe.h>
#include <support/ksErrorLines.h>
#include <support/ksFieldTarget.h>
#include <support/ksQtWarnings.h>
#include <support/ksSlotSwap.h>
#include <support/ksVirtualSlot.h>
#include <thread>

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

TEST_F(ksInvokeBoolFieldUndoCommandTest, SwitchesOff)
{
    probe->setFlag(true);
    const auto command = make("take(bool)", false);
    command->redo();
    EXPECT_FALSE(probe->getFlag());
    command->redo();
    EXPECT_TRUE(probe->getFlag());
    EXPECT_THAT(receiver.takeCalls(), ElementsAre("take 0", "take 1"));
}

TEST_F(ksInvokeBoolFieldUndoCommandTest, UndoesNothing)
{
    const auto command = make("take(bool)");
    const auto untried = make("take(bool)");
    untried->undo();
    EXPECT_FALSE(probe->getFlag());
    expectNoEdit();
    command->redo();
    receiver.takeCalls();
    forget();
    command->undo();
    command->undo();
    EXPECT_TRUE(probe->getFlag());
    EXPECT_THAT(receiver.takeCalls(), IsEmpty());
    expectNoEdit();
}

TEST_F(ksInvokeBoolFieldUndoCommandTest, HasAConstructorPerWayToNameTheField)
{
    QUndoCommand parent;
    const QString text = QStringLiteral("text");
    const int id = osg::ProbeContainer::FlagFieldId;
    Command *const commands[] = {
        new Command(text, container(), "flag", true, &receiver, "take(bool)", &parent),
        new Command(container(), "flag", true, &receiver, "take(bool)", &parent),
        new Command(text, container(), id, true, &receiver, "take(bool)", &parent),
        new Command(container(), id, true, &receiver, "take(bool)", &parent),
    };
    ASSERT_EQ(parent.childCount(), 4);
    for (int i = 0; i < 4; ++i) {
        Command &command = *commands[i];
        EXPECT_EQ(parent.child(i), &command);
        EXPECT_EQ(command.text(), i % 2 == 0 ? text : QString());
        EXPECT_EQ(command.containerId(), probeId());
        EXPECT_EQ(ksFieldTarget::idOfField(command), osg::ProbeContainer::FlagFieldId);
        EXPECT_EQ(ksFieldTarget::maskOf(command), mask);
        probe->setFlag(false);
        command.redo();
        EXPECT_TRUE(probe->getFlag());
        EXPECT_THAT(receiver.takeCalls(), ElementsAre("take 1"));
    }
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
    const auto command = make(" takeTwo(bool , bool)");
    EXPECT_THAT(errors.take(), IsEmpty());
    for (const bool value : {true, false, true}) {
        command->redo();
        EXPECT_EQ(probe->getFlag(), value);
        EXPECT_THAT(errors.take(), ElementsAre("Could not invoke: ksMethodReceiver::takeTwo(bool,bool)"));
        command->undo();
    }
    EXPECT_THAT(receiver.takeCalls(), IsEmpty());
}

TEST_F(ksInvokeBoolFieldUndoCommandTest, NamesTheClassOfTheObjectWhenQtRefusesACall)
{
    ksDerivedReceiver derived;
    Command(container(), "flag", true, &derived, "takeTwo(bool,bool)").redo();
    EXPECT_THAT(errors.take(), ElementsAre("Could not invoke: ksDerivedReceiver::takeTwo(bool,bool)"));
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
    const int count = static_cast<int>(probe->getType().getNumFieldDescs());
    std::vector<std::unique_ptr<Command>> commands;
    commands.push_back(std::make_unique<Command>(osg::NullFC, "flag", true, &receiver, "take(bool)"));
    for (const char *name : {"", "unknown", "text", "real32", "numbers"})
        commands.push_back(std::make_unique<Command>(container(), name, true, &receiver, "take(bool)"));
    for (const int id : {0, -1, count + 1})
        commands.push_back(std::make_unique<Command>(container(), id, true, &receiver, "take(bool)"));
    const ksFieldTexts before = values();
    for (const auto &command : commands)
        for (int i = 0; i < 2; ++i) {
            command->redo();
            command->undo();
            EXPECT_THAT(receiver.takeCalls(), ElementsAre("take 1")) << "there was nothing to exchange";
        }
    EXPECT_EQ(values(), before);
    expectNoEdit();
}

TEST_F(ksInvokeBoolFieldUndoCommandTest, CallsTheMethodAlsoWhenTheContainerHasGone)
{
    const auto applied = make("take(bool)");
    applied->redo();
    const auto untried = make("take(bool)");
    {
        const osg::GroupRefPtr group(osg::Group::create());
        const ksSlotSwap swap(probeId(), group);
        untried->redo();
    }
    destroy();
    untried->redo();
    applied->undo();
    applied->redo();
    EXPECT_THAT(receiver.takeCalls(), ElementsAre("take 1", "take 1", "take 1", "take 0"));
    expectNoEdit();
}

TEST_F(ksInvokeBoolFieldUndoCommandTest, ReachesTheOtherAspect)
{
    const auto command = make("take(bool)");
    for (int i = 0; i < 2; ++i) {
        command->redo();
        EXPECT_NE(values(1), values(0));
        changes().applyTo(1);
        EXPECT_EQ(values(1), values(0));
    }
}

TEST_F(ksInvokeBoolFieldUndoCommandTest, CallsTheMethodAlsoWhenChangesAreIgnoredOrNotListed)
{
    const auto command = make("take(bool)");
    osg::FieldContainerPtr::_ignore_change = true;
    command->redo();
    EXPECT_EQ(recorder.take(), editOf(mask));
    EXPECT_EQ(osg::ProbeContainer::takeCalls().size(), 0u);
    osg::FieldContainerPtr::_ignore_change = false;
    receiver.moveToThread(nullptr);
    std::thread([&] {
        receiver.moveToThread(QThread::currentThread());
        command->redo();
        receiver.moveToThread(nullptr);
    }).join();
    EXPECT_THAT(receiver.takeCalls(), ElementsAre("take 1", "take 0"));
    EXPECT_EQ(recorder.take(), ksRecords());
    EXPECT_EQ(osg::ProbeContainer::takeCalls().size(), 1u);
}

TEST_F(ksInvokeBoolFieldUndoCommandTest, NeverMerges)
{
    const auto older = make("take(bool)");
    const auto newer = make("take(bool)", false);
    ksCommandTime::of(*older) = 1.0;
    newer->setMergeResponseDelta(-1.0);
    EXPECT_FALSE(older->canMergeWith(newer.get()));
    EXPECT_FALSE(older->mergeWith(newer.get()));
    EXPECT_EQ(ksCommandTime::of(*older), 1.0);

    ksUndoStack stack;
    for (const bool value : {true, false}) {
        auto command = make("take(bool)", value);
        command->setMergeResponseDelta(-1.0);
        stack.add(command.release());
    }
    EXPECT_EQ(stack.count(), 2);
    stack.undo();
    stack.undo();
    EXPECT_FALSE(probe->getFlag());
    EXPECT_THAT(receiver.takeCalls(), ElementsAre("take 1", "take 0"));
}

TEST_F(ksInvokeBoolFieldUndoCommandTest, TellsItsIdAndItsAim)
{
    const auto command = make("take(bool)");
    EXPECT_EQ(command->id(), Command::commandId());
    EXPECT_EQ(command->id(), ksUndoCommand::makeId(typeid(Command)));
    EXPECT_NE(command->id(), ksBoolFieldUndoCommand::commandId());
    EXPECT_EQ(ksMessageOf(*command), "container=uint:" + std::to_string(probeId()) +
                                         " fieldId=uint:" + std::to_string(osg::ProbeContainer::FlagFieldId) +
                                         " id=int:" + std::to_string(command->id()));
}

TEST_F(ksInvokeBoolFieldUndoCommandTest, KeepsItsVirtualFunctionsInOrder)
{
    EXPECT_EQ(ksVirtualSlot(&Command::undo), 2u);
    EXPECT_EQ(ksVirtualSlot(&Command::redo), 3u);
    EXPECT_EQ(ksVirtualSlot(&Command::id), 4u);
    EXPECT_EQ(ksVirtualSlot(&Command::mergeWith), 5u);
    EXPECT_EQ(ksVirtualSlot(&Command::makeMessage), 6u);
    EXPECT_EQ(ksVirtualSlot(&Command::canMergeWith), 7u);
}
