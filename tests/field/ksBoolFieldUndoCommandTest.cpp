// SPDX-License-Identifier: MIT
#include "ksFieldFixture.h"

#include <ksundo/core/ksUndoStack.h>
#include <ksundo/field/ksBoolFieldUndoCommand.h>

#include <OpenSG/OSGGroup.h>

#include <limits>
#include <support/ksDescribe.h>
#include <support/ksFieldTarget.h>
#include <thread>

namespace {

/// What tests share that run commands on the probe.
class ksBoolFieldUndoCommandTest : public ksFieldFixture
{
protected:
    void expectIdle(ksBoolFieldUndoCommand &command)
    {
        const ksFieldTexts before = values();
        forget();
        command.redo();
        command.undo();
        command.redo();
        EXPECT_EQ(values(), before);
        expectNoEdit();
    }

    static constexpr osg::BitVector flagMask = osg::ProbeContainer::FlagFieldMask;
};

/// Bool commands on the probe's integer field that is exactly an osg::SField<T>.
template <class T>
class ksBoolCommandOnAnInteger : public ksBoolFieldUndoCommandTest
{
protected:
    ksBoolCommandOnAnInteger()
    {
        for (id = 1; dynamic_cast<osg::SField<T> *>(probe->getField(id)) == nullptr;)
            ++id;
    }

    osg::SField<T> &field() { return static_cast<osg::SField<T> &>(*probe->getField(id)); }

    /// The values that the field has, after each other, when it holds \a before and a command with \a value
    /// runs forth, back and forth.
    std::vector<T> valuesOfRuns(T before, bool value)
    {
        field().setValue(before);
        ksBoolFieldUndoCommand command(container(), int(id), value);
        std::vector<T> result;
        command.redo();
        result.push_back(field().getValue());
        command.undo();
        result.push_back(field().getValue());
        command.redo();
        result.push_back(field().getValue());
        return result;
    }

    osg::UInt32 id;
};

using Integers = testing::Types<long long, unsigned long long, int, unsigned int, short, unsigned short,
                                signed char, unsigned char>;
TYPED_TEST_SUITE(ksBoolCommandOnAnInteger, Integers);

} // namespace

TEST_F(ksBoolFieldUndoCommandTest, ExchangesTheFlagAtEveryStep)
{
    ksBoolFieldUndoCommand command(QString(), container(), "flag", true);
    command.redo();
    EXPECT_TRUE(probe->getFlag());
    command.undo();
    EXPECT_FALSE(probe->getFlag());
    command.redo();
    EXPECT_TRUE(probe->getFlag());
}

TEST_F(ksBoolFieldUndoCommandTest, SwitchesOff)
{
    probe->setFlag(true);
    ksBoolFieldUndoCommand command(QString(), container(), "flag", false);
    command.redo();
    EXPECT_FALSE(probe->getFlag());
    command.undo();
    EXPECT_TRUE(probe->getFlag());
}

TEST_F(ksBoolFieldUndoCommandTest, RestoresWhatItFindsNotWhatWasThereWhenBuilt)
{
    ksBoolFieldUndoCommand command(QString(), container(), "flag", true);
    probe->setFlag(true);
    command.redo();
    command.undo();
    EXPECT_TRUE(probe->getFlag());
}

TEST_F(ksBoolFieldUndoCommandTest, ChangesNothingBeforeItRuns)
{
    const ksBoolFieldUndoCommand command(QString(), container(), "flag", true);
    EXPECT_FALSE(probe->getFlag());
    expectNoEdit();
}

TEST_F(ksBoolFieldUndoCommandTest, ChangesNoOtherField)
{
    ksFieldTexts expected = values();
    ksBoolFieldUndoCommand(QString(), container(), "flag", true).redo();
    expected["flag"] = values()["flag"];
    EXPECT_EQ(values(), expected);
}

TEST_F(ksBoolFieldUndoCommandTest, HasAConstructorPerWayToNameTheField)
{
    QUndoCommand parent;
    const QString text = QStringLiteral("text");
    const int id = osg::ProbeContainer::FlagFieldId;
    ksBoolFieldUndoCommand *const commands[] = {
        new ksBoolFieldUndoCommand(text, container(), "flag", true, &parent),
        new ksBoolFieldUndoCommand(container(), "flag", true, &parent),
        new ksBoolFieldUndoCommand(text, container(), id, true, &parent),
        new ksBoolFieldUndoCommand(container(), id, true, &parent),
    };
    ASSERT_EQ(parent.childCount(), 4);
    for (int i = 0; i < 4; ++i) {
        ksBoolFieldUndoCommand &command = *commands[i];
        EXPECT_EQ(parent.child(i), &command);
        EXPECT_EQ(command.text(), i % 2 == 0 ? text : QString());
        EXPECT_EQ(command.containerId(), probeId());
        EXPECT_EQ(ksFieldTarget::idOfField(command), osg::ProbeContainer::FlagFieldId);
        EXPECT_EQ(ksFieldTarget::maskOf(command), flagMask);
        probe->setFlag(false);
        command.redo();
        EXPECT_TRUE(probe->getFlag());
    }
}

TEST_F(ksBoolFieldUndoCommandTest, EndsOneEditAtEveryStep)
{
    ksBoolFieldUndoCommand command(QString(), container(), "flag", true);
    command.redo();
    expectOneEdit(flagMask, values()["flag"]);
    command.undo();
    expectOneEdit(flagMask, values()["flag"]);
}

TEST_F(ksBoolFieldUndoCommandTest, ReachesTheOtherAspect)
{
    ksBoolFieldUndoCommand command(QString(), container(), "flag", true);
    command.redo();
    changes().applyTo(1);
    EXPECT_EQ(values(1), values(0));
    command.undo();
    EXPECT_NE(values(1), values(0));
    changes().applyTo(1);
    EXPECT_EQ(values(1), values(0));
}

TEST_F(ksBoolFieldUndoCommandTest, RecordsWithoutCallingHandlersWhenChangesAreIgnored)
{
    osg::FieldContainerPtr::_ignore_change = true;
    ksBoolFieldUndoCommand(QString(), container(), "flag", true).redo();
    EXPECT_EQ(recorder.take(), editOf(flagMask));
    EXPECT_EQ(osg::ProbeContainer::takeCalls().size(), 0u);
}

TEST_F(ksBoolFieldUndoCommandTest, RunsOnAThreadWithoutAList)
{
    ksBoolFieldUndoCommand command(QString(), container(), "flag", true);
    std::thread([&command] { command.redo(); }).join();
    EXPECT_TRUE(probe->getFlag());
    EXPECT_EQ(recorder.take(), ksRecords());
    EXPECT_EQ(osg::ProbeContainer::takeCalls().size(), 1u);
}

TEST_F(ksBoolFieldUndoCommandTest, IsIdleWhenTheContainerWentBeforeTheRedo)
{
    ksBoolFieldUndoCommand command(QString(), container(), "flag", true);
    destroy();
    command.redo();
    command.undo();
    expectNoEdit();
}

TEST_F(ksBoolFieldUndoCommandTest, IsIdleWhenTheContainerWentBeforeTheUndo)
{
    ksBoolFieldUndoCommand command(QString(), container(), "flag", true);
    command.redo();
    destroy();
    command.undo();
    command.redo();
    expectNoEdit();
}

TEST_F(ksBoolFieldUndoCommandTest, IsIdleWhenTheContainerWentBeforeTheSecondRedo)
{
    ksBoolFieldUndoCommand command(QString(), container(), "flag", true);
    command.redo();
    command.undo();
    destroy();
    command.redo();
    expectNoEdit();
}

TEST_F(ksBoolFieldUndoCommandTest, IsIdleWithoutAnAim)
{
    for (const char *name : {"unknown", "FLAG", ""}) {
        ksBoolFieldUndoCommand command(QString(), container(), name, true);
        expectIdle(command);
    }
    ksBoolFieldUndoCommand nowhere(QString(), osg::NullFC, "flag", true);
    expectIdle(nowhere);
    ksBoolFieldUndoCommand noField(container(), 0, true);
    expectIdle(noField);
}

TEST_F(ksBoolFieldUndoCommandTest, IsIdleOnFieldsOfOtherClasses)
{
    for (const char *name : {"real32", "real64", "text", "glEnum", "time", "numbers"}) {
        SCOPED_TRACE(name);
        ksBoolFieldUndoCommand command(QString(), container(), name, true);
        ASSERT_NE(ksFieldTarget::idOfField(command), 0u);
        expectIdle(command);
    }
}

TEST_F(ksBoolFieldUndoCommandTest, IsIdleWhenItsFieldIsBeyondThoseOfTheContainer)
{
    const osg::GroupRefPtr group(osg::Group::create());
    ksBoolFieldUndoCommand command(QString(), container(), "flag", true);
    ksFieldTarget::idOfContainer(command) = group.get().getFieldContainerId();
    expectIdle(command);
}

TEST_F(ksBoolFieldUndoCommandTest, NeverMerges)
{
    ksBoolFieldUndoCommand older(QString(), container(), "flag", true);
    ksBoolFieldUndoCommand newer(QString(), container(), "flag", false);
    newer.setMergeResponseDelta(-1.0);
    EXPECT_FALSE(older.canMergeWith(&newer));
    EXPECT_FALSE(older.mergeWith(&newer));

    ksUndoStack stack;
    for (const bool value : {true, false}) {
        auto *command = new ksBoolFieldUndoCommand(QString(), container(), "flag", value);
        command->setMergeResponseDelta(-1.0);
        stack.add(command);
    }
    EXPECT_EQ(stack.count(), 2);
}

TEST_F(ksBoolFieldUndoCommandTest, HasAnIdOfItsOwnAndTellsItsAim)
{
    const ksBoolFieldUndoCommand command(QString(), container(), "flag", true);
    EXPECT_EQ(command.id(), ksBoolFieldUndoCommand::commandId());
    EXPECT_EQ(command.id(), ksUndoCommand::makeId(typeid(ksBoolFieldUndoCommand)));
    EXPECT_EQ(ksMessageOf(command), "container=uint:" + std::to_string(probeId()) +
                                        " fieldId=uint:" + std::to_string(osg::ProbeContainer::FlagFieldId) +
                                        " id=int:" + std::to_string(command.id()));
}

TYPED_TEST(ksBoolCommandOnAnInteger, WritesOneAndZero)
{
    EXPECT_THAT(this->valuesOfRuns(0, true), testing::ElementsAre(1, 0, 1));
    EXPECT_THAT(this->valuesOfRuns(1, false), testing::ElementsAre(0, 1, 0));
    EXPECT_THAT(this->valuesOfRuns(0, false), testing::ElementsAre(0, 0, 0));
    EXPECT_THAT(this->valuesOfRuns(1, true), testing::ElementsAre(1, 1, 1));
}

TYPED_TEST(ksBoolCommandOnAnInteger, BringsEveryNumberBackAsOne)
{
    using Limits = std::numeric_limits<TypeParam>;
    for (const TypeParam number : {TypeParam(5), TypeParam(7), TypeParam(-1), TypeParam(2), TypeParam(64),
                                   TypeParam(Limits::max() / 2 + 1), Limits::max()})
        EXPECT_THAT(this->valuesOfRuns(number, false), testing::ElementsAre(0, 1, 0)) << +number;
}

TYPED_TEST(ksBoolCommandOnAnInteger, EndsOneEditAtEveryStep)
{
    const osg::BitVector mask = osg::BitVector(1) << this->id;
    ksBoolFieldUndoCommand command(this->container(), int(this->id), true);
    command.redo();
    this->expectOneEdit(mask, "1");
    command.undo();
    this->expectOneEdit(mask, "0");
}

TYPED_TEST(ksBoolCommandOnAnInteger, ReachesTheOtherAspect)
{
    ksBoolFieldUndoCommand command(this->container(), int(this->id), true);
    command.redo();
    EXPECT_NE(this->values(1), this->values(0));
    this->changes().applyTo(1);
    EXPECT_EQ(this->values(1), this->values(0));
}

TYPED_TEST(ksBoolCommandOnAnInteger, IsIdleWhenTheContainerHasGone)
{
    ksBoolFieldUndoCommand command(this->container(), int(this->id), true);
    command.redo();
    this->destroy();
    command.undo();
    this->expectNoEdit();
}
