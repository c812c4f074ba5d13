// SPDX-License-Identifier: MIT
#include "ksFieldFixture.h"

#include <ksundo/core/ksUndoStack.h>
#include <ksundo/field/ksStringFieldUndoCommand.h>
#include <ksundo/field/ksStringsFieldUndoCommand.h>

#include <OpenSG/OSGGroup.h>

#include <memory>
#include <support/ksCommandTime.h>
#include <support/ksDescribe.h>
#include <support/ksFieldTarget.h>
#include <support/ksSlotSwap.h>
#include <support/ksVirtualSlot.h>
#include <thread>

namespace {

/// The probe's field text; its content is spelt as it is.
struct Text
{
    using Command = ksStringFieldUndoCommand;
    using Other = struct Words;
    using Field = osg::SField<std::string>;

    static constexpr const char *name = "text";
    static constexpr const char *otherName = "label";
    static constexpr osg::UInt32 id = osg::ProbeContainer::TextFieldId;
    static constexpr osg::BitVector mask = osg::ProbeContainer::TextFieldMask;

    static std::string contentOf(const std::string &letters) { return letters; }

    static std::string lettersOf(const Field &field) { return field.getValue(); }
    static void write(Field &field, const std::string &letters) { field.setValue(letters); }
};

/// The probe's list of strings; its content is spelt with one letter per string.
struct Words
{
    using Command = ksStringsFieldUndoCommand;
    using Other = Text;
    using Field = osg::MField<std::string>;

    static constexpr const char *name = "words";
    static constexpr const char *otherName = "tags";
    static constexpr osg::UInt32 id = osg::ProbeContainer::WordsFieldId;
    static constexpr osg::BitVector mask = osg::ProbeContainer::WordsFieldMask;

    static Field contentOf(const std::string &letters)
    {
        Field field;
        write(field, letters);
        return field;
    }

    static std::string lettersOf(const Field &field)
    {
        std::string letters;
        for (const std::string &word : field)
            letters += word;
        return letters;
    }

    static void write(Field &field, const std::string &letters)
    {
        field.clear();
        for (const char letter : letters)
            field.push_back(std::string(1, letter));
    }
};

/// A command called "set".
template <class Kind>
std::unique_ptr<typename Kind::Command> makeCommand(const osg::FieldContainerPtr &container,
                                                    const std::string &name, const std::string &letters)
{
    return std::make_unique<typename Kind::Command>(QStringLiteral("set"), container, name,
                                                    Kind::contentOf(letters));
}

/// Commands on a field that holds "a".
template <class Kind>
class ksTextFieldUndoCommandTest : public ksFieldFixture
{
protected:
    using Command = typename Kind::Command;

    ksTextFieldUndoCommandTest() { set("a"); }

    static typename Kind::Field &fieldOf(const osg::ProbeContainerPtr &container, const char *name)
    {
        return static_cast<typename Kind::Field &>(*container->getField(name));
    }

    void set(const std::string &letters) { Kind::write(fieldOf(probe, Kind::name), letters); }
    std::string get() const { return Kind::lettersOf(fieldOf(probe, Kind::name)); }

    std::string valueText() const { return values()[Kind::name]; }

    std::unique_ptr<Command> make(const std::string &letters) const
    {
        return makeCommand<Kind>(container(), Kind::name, letters);
    }

    /// Expects that \a command does nothing at all, however it is run.
    void expectIdle(Command &command)
    {
        forget();
        command.redo();
        command.undo();
        command.redo();
        expectNoEdit();
    }
};

/// Two commands of which the newer one goes on from the content of the older one; each test changes one thing
/// about them.
template <class Kind>
class ksTextFieldCommandMerging : public ksTextFieldUndoCommandTest<Kind>
{
protected:
    using Command = typename Kind::Command;

    ksTextFieldCommandMerging()
    {
        older = this->make("ab");
        older->redo();
        newer = this->make("abc");
        setTimes();
    }

    void setTimes()
    {
        ksCommandTime::of(*older) = 0.0;
        ksCommandTime::of(*newer) = 0.125;
    }

    void expectMerge()
    {
        EXPECT_TRUE(older->canMergeWith(newer.get()));
        EXPECT_TRUE(older->mergeWith(newer.get()));
        EXPECT_EQ(ksCommandTime::of(*older), 0.125);
    }

    void expectNoMerge()
    {
        EXPECT_FALSE(older->canMergeWith(newer.get()));
        EXPECT_FALSE(older->mergeWith(newer.get()));
        EXPECT_EQ(ksCommandTime::of(*older), 0.0);
        older->redo();
        EXPECT_EQ(this->get(), "ab");
    }

    std::unique_ptr<Command> older;
    std::unique_ptr<Command> newer;
};

using Kinds = testing::Types<Text, Words>;
TYPED_TEST_SUITE(ksTextFieldUndoCommandTest, Kinds);
TYPED_TEST_SUITE(ksTextFieldCommandMerging, Kinds);

} // namespace

TYPED_TEST(ksTextFieldUndoCommandTest, WritesTheNewContentAndBringsTheOldOneBack)
{
    const auto command = this->make("xy");
    EXPECT_EQ(this->get(), "a");
    for (int i = 0; i < 2; ++i) {
        command->redo();
        EXPECT_EQ(this->get(), "xy");
        command->undo();
        EXPECT_EQ(this->get(), "a");
    }
}

TYPED_TEST(ksTextFieldUndoCommandTest, BringsBackWhatWasThereWhenItWasBuilt)
{
    const auto command = this->make("xy");
    this->set("b");
    command->redo();
    EXPECT_EQ(this->get(), "xy");
    this->set("c");
    command->undo();
    EXPECT_EQ(this->get(), "a");
    this->set("d");
    command->undo();
    EXPECT_EQ(this->get(), "a");
    command->redo();
    EXPECT_EQ(this->get(), "xy");
}

TYPED_TEST(ksTextFieldUndoCommandTest, WritesAndBringsBackEmptyContent)
{
    const auto clearing = this->make("");
    clearing->redo();
    EXPECT_EQ(this->get(), "");
    const auto filling = this->make("xy");
    filling->redo();
    filling->undo();
    EXPECT_EQ(this->get(), "");
    clearing->undo();
    EXPECT_EQ(this->get(), "a");
}

TYPED_TEST(ksTextFieldUndoCommandTest, ChangesAndHoldsNothingBeforeItRuns)
{
    const auto before = this->values();
    this->make("xy").reset();
    const auto command = this->make("xy");
    EXPECT_EQ(this->values(), before);
    EXPECT_EQ(this->container().getRefCount(), 1);
    this->expectNoEdit();
}

TYPED_TEST(ksTextFieldUndoCommandTest, ChangesNoOtherField)
{
    auto expected = this->values();
    this->make("xy")->redo();
    expected[TypeParam::name] = this->valueText();
    EXPECT_EQ(this->values(), expected);
}

TYPED_TEST(ksTextFieldUndoCommandTest, EndsOneEditAtEveryStep)
{
    const auto command = this->make("xy");
    command->redo();
    this->expectOneEdit(TypeParam::mask, this->valueText());
    command->undo();
    this->expectOneEdit(TypeParam::mask, this->valueText());
    command->redo();
    this->expectOneEdit(TypeParam::mask, this->valueText());
}

TYPED_TEST(ksTextFieldUndoCommandTest, EndsTheEditAlsoWhenTheContentStays)
{
    this->make("a")->redo();
    this->expectOneEdit(TypeParam::mask, this->valueText());
}

TYPED_TEST(ksTextFieldUndoCommandTest, ReachesTheOtherAspect)
{
    const auto command = this->make("xy");
    for (const auto step : {&QUndoCommand::redo, &QUndoCommand::undo}) {
        (command.get()->*step)();
        EXPECT_NE(this->values(1), this->values(0));
        this->changes().applyTo(1);
        EXPECT_EQ(this->values(1), this->values(0));
    }
}

TYPED_TEST(ksTextFieldUndoCommandTest, RecordsWithoutCallingHandlersWhenChangesAreIgnored)
{
    osg::FieldContainerPtr::_ignore_change = true;
    const auto command = this->make("xy");
    for (const auto step : {&QUndoCommand::redo, &QUndoCommand::undo}) {
        (command.get()->*step)();
        EXPECT_EQ(this->recorder.take(), this->editOf(TypeParam::mask));
    }
    EXPECT_EQ(osg::ProbeContainer::takeCalls().size(), 0u);
}

TYPED_TEST(ksTextFieldUndoCommandTest, RunsOnAThreadWithoutAList)
{
    const auto command = this->make("xy");
    std::thread([&command] { command->redo(); }).join();
    EXPECT_EQ(this->get(), "xy");
    EXPECT_EQ(this->recorder.take(), ksRecords());
    EXPECT_EQ(osg::ProbeContainer::takeCalls().size(), 1u);
}

TYPED_TEST(ksTextFieldUndoCommandTest, IsIdleWhenTheContainerWentBeforeTheRedo)
{
    const auto command = this->make("xy");
    this->destroy();
    this->expectIdle(*command);
}

TYPED_TEST(ksTextFieldUndoCommandTest, IsIdleWhenTheContainerWentBeforeTheUndo)
{
    const auto command = this->make("xy");
    command->redo();
    this->destroy();
    command->undo();
    this->expectNoEdit();
    this->expectIdle(*command);
}

TYPED_TEST(ksTextFieldUndoCommandTest, IsIdleWhenTheContainerWentBeforeTheSecondRedo)
{
    const auto command = this->make("xy");
    command->redo();
    command->undo();
    this->destroy();
    this->expectIdle(*command);
}

TYPED_TEST(ksTextFieldUndoCommandTest, IsIdleWithoutAnAimAndHasNoOldContentThen)
{
    const auto before = this->values();
    const auto older = this->make("");
    for (const auto &command : {makeCommand<TypeParam>(osg::NullFC, TypeParam::name, "xy"),
                                makeCommand<TypeParam>(this->container(), "unknown", "xy")}) {
        this->expectIdle(*command);
        EXPECT_EQ(this->values(), before);
        EXPECT_EQ(command->getField().second, nullptr);
        ksCommandTime::of(*command) = ksCommandTime::of(*older);
        EXPECT_TRUE(older->canMergeWith(command.get()));
    }
}

TYPED_TEST(ksTextFieldUndoCommandTest, IsIdleOnAFieldOfAnyOtherClassAndHasNoOldContentThen)
{
    const auto before = this->values();
    const auto older = this->make("");
    for (const auto &[name, value] : before) {
        const auto command = makeCommand<TypeParam>(this->container(), name, "xy");
        if (command->getField().second != nullptr)
            continue;
        EXPECT_EQ(command->getField().first, this->container());
        this->expectIdle(*command);
        ksCommandTime::of(*command) = ksCommandTime::of(*older);
        EXPECT_TRUE(older->canMergeWith(command.get()));
    }
    EXPECT_EQ(this->values(), before);
}

TYPED_TEST(ksTextFieldUndoCommandTest, IsIdleWhenItsFieldIsBeyondThoseOfTheContainer)
{
    const auto command = this->make("xy");
    const auto count = this->probe->getType().getNumFieldDescs();
    for (const osg::UInt32 id : {0u, count + 1, ~0u}) {
        ksFieldTarget::idOfField(*command) = id;
        this->expectIdle(*command);
        EXPECT_EQ(command->getField().second, nullptr);
    }
}

TYPED_TEST(ksTextFieldUndoCommandTest, IsIdleWhileItsIdNamesAnotherContainer)
{
    const osg::GroupRefPtr group(osg::Group::create());
    const auto command = this->make("xy");
    {
        const ksSlotSwap swap(this->probeId(), group);
        this->expectIdle(*command);
    }
    command->redo();
    EXPECT_EQ(this->get(), "xy");
    const ksSlotSwap swap(this->probeId(), group);
    this->expectIdle(*command);
}

TYPED_TEST(ksTextFieldUndoCommandTest, GivesItsContainerAndField)
{
    const auto command = this->make("xy");
    EXPECT_EQ(command->getField().first, this->container());
    EXPECT_EQ(command->getField().second, &this->fieldOf(this->probe, TypeParam::name));
    this->destroy();
    EXPECT_EQ(command->getField().first, osg::NullFC);
    EXPECT_EQ(command->getField().second, nullptr);
}

TYPED_TEST(ksTextFieldUndoCommandTest, TellsItsIdAndItsAim)
{
    const auto command = this->make("xy");
    EXPECT_EQ(command->id(), TypeParam::Command::commandId());
    EXPECT_EQ(command->id(), ksUndoCommand::makeId(typeid(*command)));
    EXPECT_NE(command->id(), TypeParam::Other::Command::commandId());
    EXPECT_EQ(ksMessageOf(*command), "container=uint:" + std::to_string(this->probeId()) +
                                         " fieldId=uint:" + std::to_string(TypeParam::id) +
                                         " id=int:" + std::to_string(command->id()));
}

TYPED_TEST(ksTextFieldUndoCommandTest, KeepsItsVirtualFunctionsInOrder)
{
    using Command = typename TypeParam::Command;
    EXPECT_EQ(ksVirtualSlot(&Command::undo), 2u);
    EXPECT_EQ(ksVirtualSlot(&Command::redo), 3u);
    EXPECT_EQ(ksVirtualSlot(&Command::id), 4u);
    EXPECT_EQ(ksVirtualSlot(&Command::mergeWith), 5u);
    EXPECT_EQ(ksVirtualSlot(&Command::makeMessage), 6u);
    EXPECT_EQ(ksVirtualSlot(&Command::canMergeWith), 7u);
}

TYPED_TEST(ksTextFieldUndoCommandTest, MergesAChainOfEditsIntoOneStep)
{
    ksUndoStack stack;
    for (const int length : {1, 2, 3}) {
        auto command = this->make(std::string("xyz").substr(0, std::size_t(length)));
        ksCommandTime::of(*command) = 0.1 * length;
        stack.add(command.release());
    }
    EXPECT_EQ(stack.count(), 1);
    EXPECT_EQ(this->get(), "xyz");
    stack.undo();
    EXPECT_EQ(this->get(), "a");
    stack.redo();
    EXPECT_EQ(this->get(), "xyz");
}

TYPED_TEST(ksTextFieldUndoCommandTest, StartsANewStepWhenTheFieldWasChangedByOtherMeans)
{
    ksUndoStack stack;
    for (const char *letters : {"x", "xy"}) {
        auto command = this->make(letters);
        command->setMergeResponseDelta(-1.0);
        stack.add(command.release());
        this->set("other");
    }
    EXPECT_EQ(stack.count(), 2);
}

TYPED_TEST(ksTextFieldCommandMerging, TakesOverTheNewContentAndKeepsTheOldOne)
{
    this->expectMerge();
    this->older->undo();
    EXPECT_EQ(this->get(), "a");
    this->older->redo();
    EXPECT_EQ(this->get(), "abc");
}

TYPED_TEST(ksTextFieldCommandMerging, IsRefusedWhenSwitchedOff)
{
    this->newer->setMergeEnabled(false);
    this->expectNoMerge();
}

TYPED_TEST(ksTextFieldCommandMerging, HappensWhateverTheSwitchOfTheOlder)
{
    this->older->setMergeEnabled(false);
    this->expectMerge();
}

TYPED_TEST(ksTextFieldCommandMerging, IsRefusedAtTheEndOfTheWindow)
{
    ksCommandTime::of(*this->newer) = 0.4;
    this->expectNoMerge();
}

TYPED_TEST(ksTextFieldCommandMerging, HappensJustBeforeTheEndOfTheWindow)
{
    ksCommandTime::of(*this->newer) = 0.39;
    EXPECT_TRUE(this->older->canMergeWith(this->newer.get()));
}

TYPED_TEST(ksTextFieldCommandMerging, IsRefusedForAnotherClass)
{
    const auto other = makeCommand<typename TypeParam::Other>(osg::NullFC, "", "");
    ksCommandTime::of(*other) = 0.125;
    EXPECT_FALSE(this->make("")->canMergeWith(other.get()));
}

TYPED_TEST(ksTextFieldCommandMerging, IsRefusedWhenTheOldContentIsNotTheNewOneBefore)
{
    for (const char *letters : {"", "a", "abc", "ba", "aB", "bb", "b"}) {
        this->set(letters);
        this->newer = this->make("abc");
        this->setTimes();
        this->expectNoMerge();
    }
}

TYPED_TEST(ksTextFieldCommandMerging, HappensOnAnotherField)
{
    TypeParam::write(this->fieldOf(this->probe, TypeParam::otherName), "ab");
    this->newer = makeCommand<TypeParam>(this->container(), TypeParam::otherName, "abc");
    this->setTimes();
    this->expectMerge();
    this->older->redo();
    EXPECT_EQ(this->get(), "abc");
    EXPECT_EQ(TypeParam::lettersOf(this->fieldOf(this->probe, TypeParam::otherName)), "ab");
}

TYPED_TEST(ksTextFieldCommandMerging, HappensOnAnotherContainer)
{
    const osg::ProbeContainerRefPtr other(osg::ProbeContainer::create());
    TypeParam::write(this->fieldOf(other, TypeParam::name), "ab");
    this->newer = makeCommand<TypeParam>(other.get(), TypeParam::name, "abc");
    this->setTimes();
    this->expectMerge();
    this->older->redo();
    EXPECT_EQ(this->get(), "abc");
    EXPECT_EQ(TypeParam::lettersOf(this->fieldOf(other, TypeParam::name)), "ab");
}

TYPED_TEST(ksTextFieldCommandMerging, HappensAlsoWhenTheContainerHasGone)
{
    this->destroy();
    this->expectMerge();
}
