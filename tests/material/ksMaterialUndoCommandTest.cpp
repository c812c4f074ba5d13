// SPDX-License-Identifier: MIT
#include "ksMaterialFixture.h"

#include <ksundo/material/ksMaterialUndoCommand.h>

#include <OpenSG/OSGGroup.h>

#include <memory>
#include <support/ksSlotSwap.h>
#include <thread>

namespace {

class ksMaterialUndoCommandTest : public ksMaterialFixture
{
protected:
    std::unique_ptr<ksMaterialUndoCommand> make(const osg::FieldContainerPtr &first,
                                                const osg::FieldContainerPtr &second) const
    {
        return std::make_unique<ksMaterialUndoCommand>(QString(), weightCommand(2), first, second);
    }
    std::unique_ptr<ksMaterialUndoCommand> make() const { return make(material.get(), settings.get()); }

    ksRecords settingsTouch() const
    {
        return ksRecords().change(recorder.idOf(settings.get()), projectionMask);
    }
    ksRecords materialTouch() const
    {
        return ksRecords().change(recorder.idOf(material.get()), componentsMask);
    }
};

} // namespace

TEST_F(ksMaterialUndoCommandTest, TouchesTheSettingsThenTheMaterialAfterEveryStepOfItsInnerCommand)
{
    const auto command = make();
    for (int i = 0; i < 2; ++i) {
        command->redo();
        expectStep(touchingEdit(), touchingCalls("2"));
        command->undo();
        expectStep(touchingEdit(), touchingCalls("1"));
    }
}

TEST_F(ksMaterialUndoCommandTest, LetsTheMaterialTakeNoticeOfItsComponent)
{
    const osg::RefPtr<osg::ColorComponentPtr> red(osg::ColorComponent::create());
    red->setColor(osg::Vec3f(1, 0, 0));
    material->addColorComponent(red);
    const auto command = make();
    command->redo();
    EXPECT_EQ(material->getBlendedColor(), osg::Vec3f(1, 2, 2) * (1 / 3.0f) + osg::Vec3f(2 / 3.0f, 0, 0));
    command->undo();
    EXPECT_EQ(material->getBlendedColor(), osg::Vec3f(1, 0.5f, 0.5f));
}

TEST_F(ksMaterialUndoCommandTest, RecordsWithoutCallingHandlersWhenChangesAreIgnored)
{
    const auto command = make();
    osg::FieldContainerPtr::_ignore_change = true;
    command->redo();
    expectStep(touchingEdit(), {});
    command->undo();
    expectStep(touchingEdit(), {});
}

TEST_F(ksMaterialUndoCommandTest, CallsHandlersOnAThreadWithoutAList)
{
    const auto command = make();
    std::thread([&command] { command->redo(); }).join();
    auto expected = touchingCalls("2");
    for (ksHandlerCall &call : expected)
        call.recorded = 0;
    expectStep({}, expected);
}

TEST_F(ksMaterialUndoCommandTest, ReachesTheOtherAspect)
{
    shareMaterial();
    const auto command = make();
    for (const auto step : {&QUndoCommand::redo, &QUndoCommand::undo}) {
        (command.get()->*step)();
        expectSharedStep();
    }
}

TEST_F(ksMaterialUndoCommandTest, TouchesOnlyTheMaterialWithoutSettings)
{
    const auto command = make(material.get(), osg::NullFC);
    for (const auto step : {&QUndoCommand::redo, &QUndoCommand::undo}) {
        (command.get()->*step)();
        EXPECT_EQ(recorder.take(), weightEdit().change(recorder.idOf(material.get()), componentsMask));
        EXPECT_EQ(calls.take().size(), 2u);
    }
}

TEST_F(ksMaterialUndoCommandTest, TouchesOnlyTheSettingsWithoutAMaterial)
{
    const auto command = make(osg::NullFC, settings.get());
    for (const auto step : {&QUndoCommand::redo, &QUndoCommand::undo}) {
        (command.get()->*step)();
        EXPECT_EQ(recorder.take(), weightEdit().change(recorder.idOf(settings.get()), projectionMask));
        EXPECT_EQ(calls.take().size(), 2u);
    }
}

TEST_F(ksMaterialUndoCommandTest, TouchesNothingWithoutContainers)
{
    const auto command = make(osg::NullFC, osg::NullFC);
    command->redo();
    expectStep(weightEdit(), weightCalls("2"));
    command->undo();
    expectStep(weightEdit(), weightCalls("1"));
}

TEST_F(ksMaterialUndoCommandTest, PassesOverSettingsThatHaveGone)
{
    const auto untried = make();
    const auto applied = make();
    applied->redo();
    destroySettings();
    const ksRecords edit = weightEdit().change(recorder.idOf(material.get()), componentsMask);
    applied->undo();
    EXPECT_EQ(recorder.take(), edit);
    untried->redo();
    EXPECT_EQ(recorder.take(), edit);
}

TEST_F(ksMaterialUndoCommandTest, PassesOverAMaterialThatHasGone)
{
    const auto untried = make();
    const auto applied = make();
    applied->redo();
    destroyMaterial();
    const ksRecords edit = weightEdit().change(recorder.idOf(settings.get()), projectionMask);
    applied->undo();
    EXPECT_EQ(recorder.take(), edit);
    untried->redo();
    EXPECT_EQ(recorder.take(), edit);
}

TEST_F(ksMaterialUndoCommandTest, TouchesAlsoWhenItsInnerCommandFindsNothing)
{
    const auto command = make();
    destroyComponent();
    calls.take();
    for (const auto step : {&QUndoCommand::redo, &QUndoCommand::undo}) {
        (command.get()->*step)();
        expectStep(settingsTouch().change(recorder.idOf(material.get()), componentsMask),
                   {{idOf(settings.get()), projectionMask, 1, 1, "gone"},
                    {idOf(material.get()), componentsMask, 1, 2, "gone"}});
    }
}

TEST_F(ksMaterialUndoCommandTest, IsIdleWhenEverythingHasGone)
{
    const auto command = make();
    destroyComponent();
    destroySettings();
    destroyMaterial();
    expectIdle(*command);
}

TEST_F(ksMaterialUndoCommandTest, TouchesWhateverItsIdsName)
{
    const osg::GroupRefPtr group(osg::Group::create());
    const auto command = make();
    forget();
    const ksSlotSwap swap(idOf(settings.get()), group);
    command->redo();
    EXPECT_EQ(recorder.take(), weightEdit()
                                   .change(recorder.idOf(group.get()), projectionMask)
                                   .change(recorder.idOf(material.get()), componentsMask));
}
