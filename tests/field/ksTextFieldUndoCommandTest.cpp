// SPDX-License-Identifier: MIT
#include "ksFieldFixture.h"

#include <ksundo/field/ksStringFieldUndoCommand.h>
#include <ksundo/field/ksStringsFieldUndoCommand.h>

#include <memory>
#include <support/ksCommandTime.h>

namespace {

/// The probe's field text; its content is spelt as it is.
struct Text
{
    using Command = ksStringFieldUndoCommand;
    using Field = osg::SField<std::string>;

    static constexpr const char *name = "text";
    static constexpr const char *otherName = "label";
    static constexpr osg::BitVector mask = osg::ProbeContainer::TextFieldMask;

    static std::string contentOf(const std::string &letters) { return letters; }

    static std::string lettersOf(const Field &field) { return field.getValue(); }
    static void write(Field &field, const std::string &letters) { field.setValue(letters); }
};

/// The probe's list of strings; its content is spelt with one letter per string.
struct Words
{
    using Command = ksStringsFieldUndoCommand;
    using Field = osg::MField<std::string>;

    static constexpr const char *name = "words";
    static constexpr const char *otherName = "tags";
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

TYPED_TEST(ksTextFieldUndoCommandTest, EndsTheEditAlsoWhenTheContentStays)
{
    this->make("a")->redo();
    this->expectOneEdit(TypeParam::mask, this->valueText());
}

TYPED_TEST(ksTextFieldUndoCommandTest, HasNoOldContentWithoutAField)
{
    const auto older = this->make("");
    for (const auto &command : {makeCommand<TypeParam>(osg::NullFC, TypeParam::name, "xy"),
                                makeCommand<TypeParam>(this->container(), "flag", "xy")}) {
        EXPECT_EQ(command->getField().second, nullptr);
        ksCommandTime::of(*command) = ksCommandTime::of(*older);
        EXPECT_TRUE(older->canMergeWith(command.get()));
    }
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

TYPED_TEST(ksTextFieldCommandMerging, TakesOverTheNewContentAndKeepsTheOldOne)
{
    this->expectMerge();
    this->older->undo();
    EXPECT_EQ(this->get(), "a");
    this->older->redo();
    EXPECT_EQ(this->get(), "abc");
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

TYPED_TEST(ksTextFieldCommandMerging, HappensOnAnotherFieldAndOnAnotherContainer)
{
    const osg::ProbeContainerRefPtr other(osg::ProbeContainer::create());
    for (const auto &[container, name] :
         {std::pair(this->probe, TypeParam::otherName), {other, TypeParam::name}}) {
        auto &field = this->fieldOf(container, name);
        TypeParam::write(field, "ab");
        this->older = this->make("ab");
        this->newer = makeCommand<TypeParam>(container.get(), name, "abc");
        this->setTimes();
        this->expectMerge();
        this->older->redo();
        EXPECT_EQ(this->get(), "abc");
        EXPECT_EQ(TypeParam::lettersOf(field), "ab");
    }
}
