// SPDX-License-Identifier: MIT
#include <ksundo/core/ksUndoStack.h>
#include <ksundo/material/ksSetEnvironmentUndoCommand.h>

#include <OpenSG/OSGGroup.h>
#include <OpenSG/OSGSimpleMaterial.h>

#include <support/ksEchoTranslator.h>
#include <support/ksSceneFixture.h>
#include <support/ksSlotSwap.h>
#include <support/ksVirtualSlot.h>
#include <support/ksWatched.h>
#include <thread>

namespace {

using Command = ksSetEnvironmentUndoCommand;
using testing::ElementsAre;

/// A material in the dusk, and the dawn. The test holds a reference on all of them.
class ksSetEnvironmentUndoCommandTest : public ksSceneFixture
{
protected:
    ksSetEnvironmentUndoCommandTest() { setEnvironment(dusk.get()); }

    void setEnvironment(const osg::MaterialPtr &environment)
    {
        material->setEnvironment(environment);
        forget();
    }

    osg::MaterialPtr environment() const { return material->getEnvironment(); }

    long long idOf(const osg::FieldContainerPtr &container) const { return recorder.idOf(container); }
    osg::UInt32 materialId() const { return material.get().getFieldContainerId(); }

    /// The references on dusk and dawn.
    std::vector<int> counts() const { return {countOf(dusk.get()), countOf(dawn.get())}; }

    /// The record of the change of the material.
    ksRecords change() const { return ksRecords().change(idOf(material.get()), mask); }

    static constexpr osg::BitVector mask = osg::UBRDFMaterial::EnvironmentFieldMask;

    osg::RefPtr<osg::UBRDFMaterialPtr> material{ksWatched<osg::UBRDFMaterial>::create()};
    osg::RefPtr<osg::MaterialPtr> dusk{osg::SimpleMaterial::create()};
    osg::RefPtr<osg::MaterialPtr> dawn{osg::UBRDFMaterial::create()};
};

} // namespace

TEST_F(ksSetEnvironmentUndoCommandTest, SetsTheEnvironmentAndBringsTheOldOneBack)
{
    Command command(material, dawn);
    EXPECT_EQ(environment(), dusk.get());
    for (int i = 0; i < 2; ++i) {
        command.redo();
        EXPECT_EQ(environment(), dawn.get());
        command.undo();
        EXPECT_EQ(environment(), dusk.get());
    }
}

TEST_F(ksSetEnvironmentUndoCommandTest, BringsBackThatThereWasNone)
{
    setEnvironment(osg::NullFC);
    Command command(material, dawn);
    command.redo();
    EXPECT_EQ(environment(), dawn.get());
    EXPECT_EQ(recorder.take(), change().addRef(idOf(dawn.get())));
    command.undo();
    EXPECT_EQ(environment(), osg::NullFC);
    EXPECT_EQ(recorder.take(), change().subRef(idOf(dawn.get())));
}

TEST_F(ksSetEnvironmentUndoCommandTest, BringsBackWhatWasThereWhenItWasBuilt)
{
    Command command(material, dawn);
    setEnvironment(osg::NullFC);
    command.redo();
    command.undo();
    EXPECT_EQ(environment(), dusk.get());
}

TEST_F(ksSetEnvironmentUndoCommandTest, HoldsNoReferenceItselfAndRecordsOneChangePerStep)
{
    {
        Command command(material, dawn);
        EXPECT_THAT(counts(), ElementsAre(2, 1)) << "of the test and the field";
        EXPECT_EQ(recorder.take(), ksRecords());
        for (int i = 0; i < 2; ++i) {
            command.redo();
            EXPECT_THAT(counts(), ElementsAre(1, 2));
            EXPECT_EQ(recorder.take(), change().addRef(idOf(dawn.get())).subRef(idOf(dusk.get())));
            command.undo();
            EXPECT_THAT(counts(), ElementsAre(2, 1));
            EXPECT_EQ(recorder.take(), change().addRef(idOf(dusk.get())).subRef(idOf(dawn.get())));
        }
        command.redo();
        forget();
    }
    EXPECT_EQ(recorder.take(), ksRecords());
    EXPECT_THAT(counts(), ElementsAre(1, 2));
    EXPECT_EQ(countOf(material.get()), 1);
}

TEST_F(ksSetEnvironmentUndoCommandTest, AnnouncesAlsoAnEnvironmentThatIsThereAlready)
{
    Command command(material, dusk);
    command.redo();
    EXPECT_EQ(recorder.take(), change());
    EXPECT_THAT(counts(), ElementsAre(2, 1));
}

TEST_F(ksSetEnvironmentUndoCommandTest, CallsTheHandlerOnceAfterTheWriteAndTheRecord)
{
    ksHandlerCalls calls([this] { return std::to_string(environment().getFieldContainerId()); });
    Command command(material, dawn);
    EXPECT_THAT(calls.take(), ElementsAre());
    command.redo();
    EXPECT_THAT(calls.take(), ElementsAre(ksHandlerCall{materialId(), mask, 1, 1,
                                                        std::to_string(dawn.get().getFieldContainerId())}));
    forget();
    command.undo();
    EXPECT_THAT(calls.take(), ElementsAre(ksHandlerCall{materialId(), mask, 1, 1,
                                                        std::to_string(dusk.get().getFieldContainerId())}));
}

TEST_F(ksSetEnvironmentUndoCommandTest, RecordsWithoutCallingHandlersWhenChangesAreIgnored)
{
    ksHandlerCalls calls([] { return std::string(); });
    Command command(material, dawn);
    osg::FieldContainerPtr::_ignore_change = true;
    command.redo();
    EXPECT_EQ(recorder.take(), change().addRef(idOf(dawn.get())).subRef(idOf(dusk.get())));
    EXPECT_THAT(calls.take(), ElementsAre());
}

TEST_F(ksSetEnvironmentUndoCommandTest, RunsOnAThreadWithoutAList)
{
    ksHandlerCalls calls([] { return std::string(); });
    Command command(material, dawn);
    std::thread([&command] { command.redo(); }).join();
    EXPECT_EQ(environment(), dawn.get());
    EXPECT_THAT(counts(), ElementsAre(1, 2));
    EXPECT_EQ(recorder.take(), ksRecords());
    EXPECT_EQ(calls.take().size(), 1u);
}

TEST_F(ksSetEnvironmentUndoCommandTest, ReachesTheOtherAspect)
{
    setEnvironment(osg::NullFC);
    Command first(material, dawn);
    first.redo();
    ksExpectSync(material.get());
    Command second(material, dusk);
    second.redo();
    ksExpectSync(material.get());
    second.undo();
    ksExpectSync(material.get());
    first.undo();
    ksExpectSync(material.get());
}

TEST_F(ksSetEnvironmentUndoCommandTest, LetsAnEnvironmentGoThatNobodyElseHolds)
{
    const long long id = idOf(dusk.get());
    Command command(material, dawn);
    dusk = osg::NullFC;
    forget();
    command.redo();
    EXPECT_EQ(recorder.take(), change().addRef(idOf(dawn.get())).destroy(id));
    command.undo();
    EXPECT_EQ(environment(), osg::NullFC) << "the old environment has gone";
    EXPECT_EQ(recorder.take(), change().subRef(idOf(dawn.get())));
    command.redo();
    EXPECT_EQ(environment(), dawn.get());
}

TEST_F(ksSetEnvironmentUndoCommandTest, SetsNoneForANewEnvironmentThatHasGone)
{
    Command untried(material, dawn);
    Command undone(material, dawn);
    undone.redo();
    undone.undo();
    dawn = osg::NullFC;
    for (Command *command : {&untried, &undone}) {
        setEnvironment(dusk.get());
        command->redo();
        EXPECT_EQ(environment(), osg::NullFC);
        EXPECT_EQ(recorder.take(), change().subRef(idOf(dusk.get())));
        command->undo();
        EXPECT_EQ(environment(), dusk.get());
    }
}

TEST_F(ksSetEnvironmentUndoCommandTest, SetsNoneForAnIdThatNamesNoMaterial)
{
    const osg::GroupRefPtr group(osg::Group::create());
    Command command(material, dawn);
    const ksSlotSwap newer(dawn.get().getFieldContainerId(), group);
    command.redo();
    EXPECT_EQ(environment(), osg::NullFC);
    const ksSlotSwap older(dusk.get().getFieldContainerId(), group);
    setEnvironment(dawn.get());
    command.undo();
    EXPECT_EQ(environment(), osg::NullFC);
}

TEST_F(ksSetEnvironmentUndoCommandTest, IsIdleWhenTheMaterialHasGone)
{
    Command untried(material, dawn);
    Command applied(material, dawn);
    applied.redo();
    Command undone(material, dawn);
    undone.redo();
    undone.undo();
    material = osg::NullFC;
    for (Command *command : {&untried, &applied, &undone})
        expectIdle(*command);
    EXPECT_THAT(counts(), ElementsAre(1, 1));
}

TEST_F(ksSetEnvironmentUndoCommandTest, IsIdleWhileItsIdNamesAMaterialOfAnotherType)
{
    Command command(material, dawn);
    {
        const ksSlotSwap swap(materialId(), dusk.get());
        expectIdle(command);
    }
    command.redo();
    EXPECT_EQ(environment(), dawn.get());
}

TEST_F(ksSetEnvironmentUndoCommandTest, NeverMerges)
{
    Command older(material, dawn);
    Command newer(material, dawn);
    expectNoMerge(older, newer);

    ksUndoStack stack;
    for (const osg::MaterialPtr &each : {dawn.get(), dusk.get()}) {
        auto *command = new Command(material, each);
        command->setMergeResponseDelta(-1.0);
        stack.add(command);
    }
    EXPECT_EQ(stack.count(), 2);
    stack.undo();
    EXPECT_EQ(environment(), dawn.get());
    stack.undo();
    EXPECT_EQ(environment(), dusk.get());
}

TEST_F(ksSetEnvironmentUndoCommandTest, HasATranslatedTextAndAParent)
{
    QUndoCommand parent;
    const auto *command = new Command(material, dawn, &parent);
    ASSERT_EQ(parent.childCount(), 1);
    EXPECT_EQ(parent.child(0), command);
    EXPECT_EQ(command->text(), QStringLiteral("Change Environment"));
    const ksEchoTranslator translator;
    EXPECT_EQ(Command(material, dawn).text(),
              QStringLiteral("ksSetEnvironmentUndoCommand|Change Environment"));
}

TEST_F(ksSetEnvironmentUndoCommandTest, TellsItsIdAndTheMaterial)
{
    const Command command(material, dawn);
    EXPECT_EQ(command.id(), Command::commandId());
    EXPECT_EQ(command.id(), ksUndoCommand::makeId(typeid(Command)));
    const std::string message =
        "id=int:" + std::to_string(command.id()) + " material=uint:" + std::to_string(materialId());
    EXPECT_EQ(ksMessageOf(command), message);
    material = osg::NullFC;
    EXPECT_EQ(ksMessageOf(command), message);
}

TEST_F(ksSetEnvironmentUndoCommandTest, KeepsItsVirtualFunctionsInOrder)
{
    EXPECT_EQ(ksVirtualSlot(&Command::undo), 2u);
    EXPECT_EQ(ksVirtualSlot(&Command::redo), 3u);
    EXPECT_EQ(ksVirtualSlot(&Command::id), 4u);
    EXPECT_EQ(ksVirtualSlot(&Command::mergeWith), 5u);
    EXPECT_EQ(ksVirtualSlot(&Command::makeMessage), 6u);
    EXPECT_EQ(ksVirtualSlot(&Command::canMergeWith), 7u);
}
