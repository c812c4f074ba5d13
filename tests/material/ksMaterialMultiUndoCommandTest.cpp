// SPDX-License-Identifier: MIT
#include "ksMaterialFixture.h"

#include <ksundo/core/ksUndoStack.h>
#include <ksundo/material/ksColorComponentUndoCommand.h>
#include <ksundo/material/ksMaterialMultiUndoCommand.h>
#include <ksundo/material/ksMaterialUndoCommand.h>
#include <ksundo/material/ksSetEnvironmentUndoCommand.h>

#include <memory>
#include <set>
#include <support/ksVirtualSlot.h>
#include <thread>
#include <type_traits>

static_assert(!std::is_base_of_v<ksUndoCommand, ksMaterialMultiUndoCommand>);
static_assert(!std::is_constructible_v<ksMaterialMultiUndoCommand, QString, osg::FieldContainerPtr,
                                       osg::FieldContainerPtr, QUndoCommand *>,
              "always a top-level command");

namespace {

using Command = ksMaterialMultiUndoCommand;

class ksMaterialMultiUndoCommandTest : public ksMaterialFixture
{
protected:
    /// A batch with two commands on the weight, made at \a time, of which the later one sets \a weight.
    std::unique_ptr<Command> make(float weight, double time = 0.0) const
    {
        return fill(std::make_unique<Command>(QStringLiteral("text"), material.get(), settings.get()), weight,
                    time);
    }

    template <class Batch>
    std::unique_ptr<Batch> fill(std::unique_ptr<Batch> batch, float weight, double time) const
    {
        for (const float each : {weight + 0.5f, weight})
            ksCommandTime::of(*weightCommand(each, batch.get())) = time;
        return batch;
    }

    /// The record of a step of a batch.
    ksRecords batchEdit() const
    {
        return weightEdit()
            .change(recorder.idOf(component.get()), weightMask)
            .change(recorder.idOf(settings.get()), projectionMask)
            .change(recorder.idOf(material.get()), componentsMask);
    }

    /// The calls of handlers by a step that sets the weight to \a between, then to \a last.
    std::vector<ksHandlerCall> batchCalls(const char *between, const char *last) const
    {
        return {{idOf(component.get()), weightMask, 1, 1, between},
                {idOf(component.get()), weightMask, 1, 2, last},
                {idOf(settings.get()), projectionMask, 1, 3, last},
                {idOf(material.get()), componentsMask, 1, 4, last}};
    }

    std::string messageOf(const osg::FieldContainerPtr &first, const osg::FieldContainerPtr &second) const
    {
        return ksMessageOf(Command(QString(), first, second));
    }
};

/// Two batches that merge; each test changes one thing about the newer one.
class ksMaterialMultiCommandMerging : public ksMaterialMultiUndoCommandTest
{
protected:
    std::unique_ptr<Command> newerWith(const osg::FieldContainerPtr &first,
                                       const osg::FieldContainerPtr &second) const
    {
        return fill(std::make_unique<Command>(QString(), first, second), 3, 0.125);
    }

    void expectNoMerge(const QUndoCommand &newer)
    {
        EXPECT_FALSE(older->mergeWith(&newer));
        EXPECT_EQ(timeOf(0), 0.0);
        EXPECT_EQ(timeOf(1), 0.0);
    }

    double timeOf(int child) const
    {
        return ksCommandTime::of(
            const_cast<ksUndoCommand &>(dynamic_cast<const ksUndoCommand &>(*older->child(child))));
    }

    const std::unique_ptr<Command> older = make(2);
};

} // namespace

TEST_F(ksMaterialMultiUndoCommandTest, TouchesTheSettingsThenTheMaterialAfterItsChildren)
{
    const auto command = make(2);
    for (int i = 0; i < 2; ++i) {
        command->redo();
        expectStep(batchEdit(), batchCalls("2.5", "2"));
        command->undo();
        expectStep(batchEdit(), batchCalls("2.5", "1"));
    }
}

TEST_F(ksMaterialMultiUndoCommandTest, TouchesAlsoWithoutChildren)
{
    Command command(QString(), material.get(), settings.get());
    for (const auto step : {&QUndoCommand::redo, &QUndoCommand::undo}) {
        (command.*step)();
        EXPECT_EQ(recorder.take(), ksRecords()
                                       .change(recorder.idOf(settings.get()), projectionMask)
                                       .change(recorder.idOf(material.get()), componentsMask));
    }
}

TEST_F(ksMaterialMultiUndoCommandTest, RecordsWithoutCallingHandlersWhenChangesAreIgnored)
{
    const auto command = make(2);
    osg::FieldContainerPtr::_ignore_change = true;
    command->redo();
    expectStep(batchEdit(), {});
    command->undo();
    expectStep(batchEdit(), {});
}

TEST_F(ksMaterialMultiUndoCommandTest, CallsHandlersOnAThreadWithoutAList)
{
    const auto command = make(2);
    std::thread([&command] { command->redo(); }).join();
    auto expected = batchCalls("2.5", "2");
    for (ksHandlerCall &call : expected)
        call.recorded = 0;
    expectStep({}, expected);
}

TEST_F(ksMaterialMultiUndoCommandTest, ReachesTheOtherAspect)
{
    shareMaterial();
    const auto command = make(2);
    for (const auto step : {&QUndoCommand::redo, &QUndoCommand::undo}) {
        (command.get()->*step)();
        expectSharedStep();
    }
}

TEST_F(ksMaterialMultiUndoCommandTest, TouchesNoNullContainers)
{
    Command onlyMaterial(QString(), material.get(), osg::NullFC);
    onlyMaterial.redo();
    EXPECT_EQ(recorder.take(), ksRecords().change(recorder.idOf(material.get()), componentsMask));
    Command onlySettings(QString(), osg::NullFC, settings.get());
    onlySettings.undo();
    EXPECT_EQ(recorder.take(), ksRecords().change(recorder.idOf(settings.get()), projectionMask));
    Command nothing(QString(), osg::NullFC, osg::NullFC);
    expectIdle(nothing);
}

TEST_F(ksMaterialMultiUndoCommandTest, PassesOverContainersThatHaveGone)
{
    const auto command = make(2);
    command->redo();
    destroySettings();
    command->undo();
    EXPECT_EQ(recorder.take(), weightEdit()
                                   .change(recorder.idOf(component.get()), weightMask)
                                   .change(recorder.idOf(material.get()), componentsMask));
    destroyMaterial();
    command->redo();
    EXPECT_EQ(recorder.take(), weightEdit().change(recorder.idOf(component.get()), weightMask));
    component = osg::NullFC;
    expectIdle(*command);
}

TEST_F(ksMaterialMultiUndoCommandTest, TellsWhatItsFirstChildDoesAndItsContainers)
{
    const auto command = make(2);
    EXPECT_EQ(ksMessageOf(*command),
              keyOf("componentSettings", settings.get()) + ' ' + keyOf("container", component.get()) +
                  " fieldId=uint:" + std::to_string(osg::ColorComponent::WeightFieldId) +
                  " id=int:" + std::to_string(Weight::commandId()) + ' ' + keyOf("material", material.get()));
}

TEST_F(ksMaterialMultiUndoCommandTest, TellsNoNullContainersAndNothingElseWithoutChildren)
{
    const osg::FieldContainerPtr null;
    EXPECT_EQ(messageOf(material.get(), settings.get()),
              keyOf("componentSettings", settings.get()) + ' ' + keyOf("material", material.get()));
    EXPECT_EQ(messageOf(material.get(), null), keyOf("material", material.get()));
    EXPECT_EQ(messageOf(null, settings.get()), keyOf("componentSettings", settings.get()));
    EXPECT_EQ(messageOf(null, null), "");
}

TEST_F(ksMaterialMultiUndoCommandTest, HasItsTextAndAnIdOfItsOwn)
{
    const auto command = make(2);
    EXPECT_EQ(command->text(), QStringLiteral("text"));
    EXPECT_EQ(command->id(), Command::commandId());
    EXPECT_EQ(command->id(), ksUndoCommand::makeId(typeid(Command)));
}

TEST_F(ksMaterialMultiUndoCommandTest, KeepsItsVirtualFunctionsInOrder)
{
    EXPECT_EQ(ksVirtualSlot(&Command::undo), 2u);
    EXPECT_EQ(ksVirtualSlot(&Command::redo), 3u);
    EXPECT_EQ(ksVirtualSlot(&Command::id), 4u);
    EXPECT_EQ(ksVirtualSlot(&Command::mergeWith), 5u);
    EXPECT_EQ(ksVirtualSlot(&Command::makeMessage), 6u);
}

TEST_F(ksMaterialMultiUndoCommandTest, TouchesAContainerByItsIdWhenAsked)
{
    Command(QString(), osg::NullFC, osg::NullFC).touch(idOf(settings.get()), 4);
    expectStep(ksRecords().change(recorder.idOf(settings.get()), 4), {{idOf(settings.get()), 4, 1, 1, "1"}});
}

TEST_F(ksMaterialMultiUndoCommandTest, UndoesADragAtOnce)
{
    ksUndoStack stack;
    for (const int step : {1, 2, 3})
        stack.add(make(1 + static_cast<float>(step), 0.1 * step).release());
    EXPECT_EQ(stack.count(), 1);
    EXPECT_EQ(component->getWeight(), 4);
    stack.undo();
    EXPECT_EQ(component->getWeight(), 1);
}

TEST_F(ksMaterialMultiCommandMerging, SlidesTheWindowsOfItsChildrenAndTouchesNothing)
{
    EXPECT_TRUE(older->mergeWith(newerWith(material.get(), settings.get()).get()));
    EXPECT_EQ(timeOf(0), 0.125);
    EXPECT_EQ(timeOf(1), 0.125);
    expectStep({}, {});
}

TEST_F(ksMaterialMultiCommandMerging, HappensWithoutContainersAndChildren)
{
    Command one(QString(), osg::NullFC, osg::NullFC);
    const Command two(QString(), osg::NullFC, osg::NullFC);
    EXPECT_TRUE(one.mergeWith(&two));
}

TEST_F(ksMaterialMultiCommandMerging, IsRefusedForAnotherMaterial)
{
    expectNoMerge(*newerWith(component.get(), settings.get()));
    expectNoMerge(*newerWith(osg::NullFC, settings.get()));
}

TEST_F(ksMaterialMultiCommandMerging, IsRefusedForOtherSettings)
{
    expectNoMerge(*newerWith(material.get(), component.get()));
    expectNoMerge(*newerWith(material.get(), osg::NullFC));
}

TEST_F(ksMaterialMultiCommandMerging, IsRefusedForAnotherClass)
{
    const auto plain = fill(std::make_unique<ksMultiCommand>(QString()), 3, 0.125);
    expectNoMerge(*plain);
    EXPECT_FALSE(plain->mergeWith(older.get()));
}

TEST_F(ksMaterialMultiCommandMerging, IsRefusedForAnotherNumberOfChildren)
{
    const auto newer = newerWith(material.get(), settings.get());
    ksCommandTime::of(*weightCommand(5, newer.get())) = 0.125;
    expectNoMerge(*newer);
    expectNoMerge(Command(QString(), material.get(), settings.get()));
}

TEST_F(ksMaterialMultiCommandMerging, IsRefusedAtTheEndOfAChildsWindow)
{
    const auto newer = newerWith(material.get(), settings.get());
    auto &second = const_cast<ksUndoCommand &>(dynamic_cast<const ksUndoCommand &>(*newer->child(1)));
    ksCommandTime::of(second) = 0.4;
    expectNoMerge(*newer);
}

TEST(ksMaterialCommandIds, AreAllDistinct)
{
    const std::set<int> ids{ksMaterialUndoCommand::commandId(), ksColorComponentUndoCommand::commandId(),
                            ksMaterialMultiUndoCommand::commandId(), ksMultiCommand::commandId(),
                            ksSetEnvironmentUndoCommand::commandId()};
    EXPECT_EQ(ids.size(), 5u);
}
