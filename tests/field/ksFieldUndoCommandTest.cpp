// SPDX-License-Identifier: MIT
#include "ksFieldFixture.h"

#include <ksundo/core/ksMultiCommand.h>
#include <ksundo/core/ksUndoStack.h>
#include <ksundo/field/ksFieldUndoCommand.h>

#include <OpenSG/OSGGroup.h>

#include <cstring>
#include <limits>
#include <memory>
#include <set>
#include <support/ksCommandTime.h>
#include <support/ksDescribe.h>
#include <support/ksFieldTarget.h>
#include <thread>

namespace {

/// Field commands on the probe's field that is exactly an osg::SField<T>.
template <class T>
class ksFieldUndoCommandTest : public ksFieldFixture
{
protected:
    using Command = ksFieldUndoCommand<T>;

    ksFieldUndoCommandTest()
    {
        for (id = 1; dynamic_cast<osg::SField<T> *>(probe->getField(id)) == nullptr;)
            ++id;
        const osg::FieldDescription *description = probe->getType().getFieldDescription(id);
        name = description->getCName();
        mask = description->getFieldMask();
        set(T(5));
    }

    osg::SField<T> &field() { return static_cast<osg::SField<T> &>(*probe->getField(id)); }
    T get() { return field().getValue(); }
    void set(T value) { field().setValue(value); }

    std::string text()
    {
        std::string result;
        return field().getValueByStr(result);
    }

    std::unique_ptr<Command> make(T value)
    {
        return std::make_unique<Command>(QStringLiteral("set"), container(), name, value);
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

    osg::UInt32 id;
    std::string name;
    osg::BitVector mask;
};

template <class T>
std::vector<T> extremes()
{
    using Limits = std::numeric_limits<T>;
    std::vector<T> result{T(0), T(1), T(-1), Limits::lowest(), Limits::min(), Limits::max()};
    if (!Limits::is_integer)
        result.insert(result.end(), {Limits::denorm_min(), Limits::infinity(), -Limits::infinity(), -T(0),
                                     Limits::quiet_NaN(), T(1) + Limits::epsilon()});
    return result;
}

template <class T>
bool areSameBits(T left, T right)
{
    return std::memcmp(&left, &right, sizeof(T)) == 0;
}

using Numbers = testing::Types<long long, unsigned long long, int, unsigned int, short, unsigned short,
                               signed char, unsigned char, float, double>;
TYPED_TEST_SUITE(ksFieldUndoCommandTest, Numbers);

} // namespace

TYPED_TEST(ksFieldUndoCommandTest, ExchangesTheValueAtEveryStep)
{
    const auto command = this->make(TypeParam(9));
    command->redo();
    EXPECT_EQ(this->get(), TypeParam(9));
    command->undo();
    EXPECT_EQ(this->get(), TypeParam(5));
    command->redo();
    EXPECT_EQ(this->get(), TypeParam(9));
}

TYPED_TEST(ksFieldUndoCommandTest, ChangesAFieldGivenByItsId)
{
    QUndoCommand parent;
    auto *command = new ksFieldUndoCommand<TypeParam>(QStringLiteral("text"), this->container(),
                                                      static_cast<int>(this->id), TypeParam(9), &parent);
    EXPECT_EQ(parent.child(0), command);
    EXPECT_EQ(command->text(), QStringLiteral("text"));
    command->redo();
    this->expectOneEdit(this->mask, this->text());
    EXPECT_EQ(this->get(), TypeParam(9));
    command->undo();
    EXPECT_EQ(this->get(), TypeParam(5));
}

TYPED_TEST(ksFieldUndoCommandTest, RestoresWhatItFindsNotWhatWasThereWhenBuilt)
{
    const auto command = this->make(TypeParam(9));
    this->set(TypeParam(6));
    command->redo();
    this->set(TypeParam(7));
    command->undo();
    EXPECT_EQ(this->get(), TypeParam(6));
    command->redo();
    EXPECT_EQ(this->get(), TypeParam(7));
}

TYPED_TEST(ksFieldUndoCommandTest, KeepsEveryBitOfExtremeValues)
{
    for (const TypeParam before : extremes<TypeParam>())
        for (const TypeParam after : extremes<TypeParam>()) {
            this->set(before);
            const auto command = this->make(after);
            command->redo();
            EXPECT_TRUE(areSameBits(this->get(), after)) << this->text();
            command->undo();
            EXPECT_TRUE(areSameBits(this->get(), before)) << this->text();
        }
}

TYPED_TEST(ksFieldUndoCommandTest, ChangesNothingBeforeItRuns)
{
    const auto before = this->values();
    this->make(TypeParam(9)).reset();
    const auto command = this->make(TypeParam(9));
    EXPECT_EQ(this->values(), before);
    this->expectNoEdit();
}

TYPED_TEST(ksFieldUndoCommandTest, ChangesNoOtherField)
{
    auto expected = this->values();
    this->make(TypeParam(9))->redo();
    expected[this->name] = this->text();
    EXPECT_EQ(this->values(), expected);
}

TYPED_TEST(ksFieldUndoCommandTest, EndsOneEditAtEveryStep)
{
    const auto command = this->make(TypeParam(9));
    command->redo();
    this->expectOneEdit(this->mask, this->text());
    command->undo();
    this->expectOneEdit(this->mask, this->text());
    command->redo();
    this->expectOneEdit(this->mask, this->text());
}

TYPED_TEST(ksFieldUndoCommandTest, EndsTheEditAlsoWhenTheValueStays)
{
    this->make(TypeParam(5))->redo();
    this->expectOneEdit(this->mask, this->text());
}

TYPED_TEST(ksFieldUndoCommandTest, ReachesTheOtherAspect)
{
    const auto command = this->make(TypeParam(9));
    command->redo();
    EXPECT_NE(this->values(1), this->values(0));
    this->changes().applyTo(1);
    EXPECT_EQ(this->values(1), this->values(0));
    command->undo();
    EXPECT_NE(this->values(1), this->values(0));
    this->changes().applyTo(1);
    EXPECT_EQ(this->values(1), this->values(0));
}

TYPED_TEST(ksFieldUndoCommandTest, RecordsWithoutCallingHandlersWhenChangesAreIgnored)
{
    osg::FieldContainerPtr::_ignore_change = true;
    this->make(TypeParam(9))->redo();
    EXPECT_EQ(this->get(), TypeParam(9));
    EXPECT_EQ(this->recorder.take(), this->editOf(this->mask));
    EXPECT_EQ(osg::ProbeContainer::takeCalls().size(), 0u);
}

TYPED_TEST(ksFieldUndoCommandTest, CallsHandlersWithAReadOnlyList)
{
    this->changes().setReadOnly(true);
    this->make(TypeParam(9))->redo();
    this->changes().setReadOnly(false);
    EXPECT_EQ(this->get(), TypeParam(9));
    EXPECT_EQ(this->recorder.take(), ksRecords());
    EXPECT_EQ(osg::ProbeContainer::takeCalls().size(), 1u);
}

TYPED_TEST(ksFieldUndoCommandTest, RunsOnAThreadWithoutAList)
{
    const auto command = this->make(TypeParam(9));
    std::thread([&command] { command->redo(); }).join();
    EXPECT_EQ(this->get(), TypeParam(9));
    EXPECT_EQ(this->recorder.take(), ksRecords());
    const auto calls = osg::ProbeContainer::takeCalls();
    ASSERT_EQ(calls.size(), 1u);
    EXPECT_EQ(calls[0].mask, this->mask);
}

TYPED_TEST(ksFieldUndoCommandTest, HoldsNoReference)
{
    const auto command = this->make(TypeParam(9));
    command->redo();
    EXPECT_EQ(this->container().getRefCount(), 1);
    command->undo();
    EXPECT_EQ(this->container().getRefCount(), 1);
}

TYPED_TEST(ksFieldUndoCommandTest, IsIdleWhenTheContainerWentBeforeTheRedo)
{
    const auto command = this->make(TypeParam(9));
    this->destroy();
    this->expectIdle(*command);
}

TYPED_TEST(ksFieldUndoCommandTest, IsIdleWhenTheContainerWentBeforeTheUndo)
{
    const auto command = this->make(TypeParam(9));
    command->redo();
    this->destroy();
    command->undo();
    this->expectNoEdit();
    this->expectIdle(*command);
}

TYPED_TEST(ksFieldUndoCommandTest, IsIdleWhenTheContainerWentBeforeTheSecondRedo)
{
    const auto command = this->make(TypeParam(9));
    command->redo();
    command->undo();
    this->destroy();
    this->expectIdle(*command);
}

TYPED_TEST(ksFieldUndoCommandTest, IsIdleWithoutAnAim)
{
    const auto before = this->values();
    ksFieldUndoCommand<TypeParam> nowhere(QString(), osg::NullFC, this->name, TypeParam(9));
    ksFieldUndoCommand<TypeParam> unknown(QString(), this->container(), "unknown", TypeParam(9));
    this->expectIdle(nowhere);
    this->expectIdle(unknown);
    EXPECT_EQ(this->values(), before);
    EXPECT_EQ(nowhere.getField().second, nullptr);
    EXPECT_EQ(unknown.getField().second, nullptr);
}

TYPED_TEST(ksFieldUndoCommandTest, IsIdleOnAFieldOfAnyOtherClass)
{
    const auto before = this->values();
    osg::FieldContainerType &type = this->probe->getType();
    for (osg::UInt32 id = 1; id <= type.getNumFieldDescs(); ++id) {
        if (dynamic_cast<osg::SField<TypeParam> *>(this->probe->getField(id)) != nullptr)
            continue;
        ksFieldUndoCommand<TypeParam> command(QString(), this->container(),
                                              type.getFieldDescription(id)->getCName(), TypeParam(9));
        ksFieldTarget::idOfField(command) = id;
        this->expectIdle(command);
        EXPECT_EQ(command.getField().second, nullptr);
    }
    EXPECT_EQ(this->values(), before);
}

TYPED_TEST(ksFieldUndoCommandTest, IsIdleWhenItsFieldIsBeyondThoseOfTheContainer)
{
    const osg::GroupRefPtr group(osg::Group::create());
    const auto command = this->make(TypeParam(9));
    ksFieldTarget::idOfContainer(*command) = group.get().getFieldContainerId();
    ksFieldTarget::idOfField(*command) = group->getType().getNumFieldDescs() + 1;
    this->expectIdle(*command);
    EXPECT_EQ(command->getField().second, nullptr);
}

TYPED_TEST(ksFieldUndoCommandTest, IsIdleWhenItsIdNamesAContainerOfAnotherType)
{
    const osg::GroupRefPtr group(osg::Group::create());
    const auto command = this->make(TypeParam(9));
    command->redo();
    ksFieldTarget::idOfContainer(*command) = group.get().getFieldContainerId();
    ksFieldTarget::idOfField(*command) = osg::Group::AttachmentsFieldId;
    this->expectIdle(*command);
}

TYPED_TEST(ksFieldUndoCommandTest, GivesItsContainerAndField)
{
    const auto command = this->make(TypeParam(9));
    const auto [container, field] = command->getField();
    EXPECT_EQ(container, this->container());
    EXPECT_EQ(field, &this->field());
    this->destroy();
    EXPECT_EQ(command->getField().first, osg::NullFC);
    EXPECT_EQ(command->getField().second, nullptr);
}

TYPED_TEST(ksFieldUndoCommandTest, MergesARunOfEditsIntoOneStep)
{
    ksUndoStack stack;
    for (const int value : {9, 10, 11}) {
        auto command = this->make(TypeParam(value));
        ksCommandTime::of(*command) = 0.375 * value;
        stack.add(command.release());
    }
    EXPECT_EQ(stack.count(), 1);
    EXPECT_EQ(this->get(), TypeParam(11));
    stack.undo();
    EXPECT_EQ(this->get(), TypeParam(5));
    stack.redo();
    EXPECT_EQ(this->get(), TypeParam(11));
}

TYPED_TEST(ksFieldUndoCommandTest, DoesNotMergeAfterTheWindow)
{
    ksUndoStack stack;
    for (const int value : {9, 10}) {
        auto command = this->make(TypeParam(value));
        ksCommandTime::of(*command) = 0.4 * (value - 9);
        stack.add(command.release());
    }
    EXPECT_EQ(stack.count(), 2);
    stack.undo();
    EXPECT_EQ(this->get(), TypeParam(9));
}

TYPED_TEST(ksFieldUndoCommandTest, LeavesItsValueWhenItRefusesToMerge)
{
    const auto older = this->make(TypeParam(9));
    const auto newer = this->make(TypeParam(10));
    newer->setMergeEnabled(false);
    older->redo();
    EXPECT_FALSE(older->mergeWith(newer.get()));
    older->undo();
    EXPECT_EQ(this->get(), TypeParam(5));
}

TYPED_TEST(ksFieldUndoCommandTest, HasTextParentAndMessage)
{
    QUndoCommand parent;
    const auto *command = new ksFieldUndoCommand<TypeParam>(QStringLiteral("text"), this->container(),
                                                            this->name, TypeParam(9), &parent);
    EXPECT_EQ(parent.child(0), command);
    EXPECT_EQ(command->text(), QStringLiteral("text"));
    EXPECT_EQ(ksMessageOf(*command), "container=uint:" + std::to_string(this->probeId()) +
                                         " fieldId=uint:" + std::to_string(this->id) +
                                         " id=int:" + std::to_string(command->id()));
}

TYPED_TEST(ksFieldUndoCommandTest, HasAnIdOfItsClass)
{
    EXPECT_EQ(this->make(TypeParam(9))->id(), ksFieldUndoCommand<TypeParam>::commandId());
    EXPECT_EQ(ksFieldUndoCommand<TypeParam>::commandId(),
              ksUndoCommand::makeId(typeid(ksFieldUndoCommand<TypeParam>)));
}

TEST(ksFieldUndoCommand, HasAnIdPerInstance)
{
    const std::set<int> ids{
        ksFieldUndoCommand<long long>::commandId(),   ksFieldUndoCommand<unsigned long long>::commandId(),
        ksFieldUndoCommand<int>::commandId(),         ksFieldUndoCommand<unsigned int>::commandId(),
        ksFieldUndoCommand<short>::commandId(),       ksFieldUndoCommand<unsigned short>::commandId(),
        ksFieldUndoCommand<signed char>::commandId(), ksFieldUndoCommand<unsigned char>::commandId(),
        ksFieldUndoCommand<float>::commandId(),       ksFieldUndoCommand<double>::commandId()};
    EXPECT_EQ(ids.size(), 10u);
}

using ksFieldUndoCommandInAStack = ksFieldFixture;

TEST_F(ksFieldUndoCommandInAStack, DoesNotMergeOnAnotherField)
{
    ksUndoStack stack;
    for (const char *name : {"Level", "q"}) {
        auto *command = new ksFieldUndoCommand<int>(QString(), container(), name, 9);
        command->setMergeResponseDelta(-1.0);
        stack.add(command);
    }
    EXPECT_EQ(stack.count(), 2);
}

TEST_F(ksFieldUndoCommandInAStack, DoesNotMergeOnAnotherContainer)
{
    const osg::ProbeContainerRefPtr other(osg::ProbeContainer::create());
    ksUndoStack stack;
    for (const osg::ProbeContainerPtr &each : {probe.get(), other.get()}) {
        auto *command = new ksFieldUndoCommand<int>(QString(), each, "q", 9);
        command->setMergeResponseDelta(-1.0);
        stack.add(command);
    }
    EXPECT_EQ(stack.count(), 2);
    EXPECT_EQ(other->getQ(), 9);
}

TEST_F(ksFieldUndoCommandInAStack, IsSkippedQuietlyWhenItsContainerHasGone)
{
    ksUndoStack stack;
    stack.add(new ksFieldUndoCommand<int>(QStringLiteral("set"), container(), "q", 9));
    destroy();
    stack.undo();
    stack.redo();
    EXPECT_EQ(stack.index(), 1);
    expectNoEdit();
}

TEST_F(ksFieldUndoCommandInAStack, RunsAsAChildOfABatch)
{
    ksUndoStack stack;
    auto *batch = new ksMultiCommand(QString());
    new ksFieldUndoCommand<int>(QString(), container(), "q", 9, batch);
    new ksFieldUndoCommand<int>(QString(), container(), "q", 10, batch);
    EXPECT_EQ(probe->getQ(), 0);
    stack.add(batch);
    EXPECT_EQ(probe->getQ(), 10);
    stack.undo();
    EXPECT_EQ(probe->getQ(), 0);
}

TEST_F(ksFieldUndoCommandInAStack, MergesWithTheOnesAtTheSamePlaceOfABatch)
{
    probe->setQ(5);
    ksUndoStack stack;
    for (const int step : {1, 2, 3}) {
        auto *batch = new ksMultiCommand(QString());
        for (const char *name : {"Level", "q"}) {
            auto *command = new ksFieldUndoCommand<int>(QString(), container(), name, 10 * step, batch);
            ksCommandTime::of(*command) = 0.1 * step;
        }
        stack.add(batch);
    }
    EXPECT_EQ(stack.count(), 1);
    stack.undo();
    EXPECT_THAT(std::make_pair(probe->getFirstLevel(), probe->getQ()), testing::Pair(0, 5));
    stack.redo();
    EXPECT_THAT(std::make_pair(probe->getFirstLevel(), probe->getQ()), testing::Pair(30, 30));
}

TEST_F(ksFieldUndoCommandInAStack, UndoesByTheRedoOfADerivedClass)
{
    struct Command : ksFieldUndoCommand<int>
    {
        using ksFieldUndoCommand<int>::ksFieldUndoCommand;
        void redo() override { ++runs; }
        int runs = 0;
    };

    Command command(QString(), container(), "q", 9);
    command.undo();
    EXPECT_EQ(command.runs, 1);
}
