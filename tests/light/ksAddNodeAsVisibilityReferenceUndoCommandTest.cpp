// SPDX-License-Identifier: MIT
#include "ksLightFixture.h"

#include <ksundo/core/ksFindContainer.h>
#include <ksundo/core/ksUndoStack.h>
#include <ksundo/light/ksAddNodeAsVisibilityReferenceUndoCommand.h>

#include <optional>
#include <support/ksEchoTranslator.h>
#include <support/ksVirtualSlot.h>
#include <thread>

namespace {

using Command = ksAddNodeAsVisibilityReferenceUndoCommand;

constexpr osg::UInt32 bit = 0x10;
constexpr osg::BitVector lightMask = osg::UberLightBase::VisibilityReferenceFieldMask;
constexpr osg::BitVector flagsMask = osg::Node::ExternalFlagsFieldMask;

/// The lamp's light, and a box and a ball that may be its visibility reference.
class ksAddNodeAsVisibilityReferenceUndoCommandTest : public ksLightFixture
{
protected:
    ksAddNodeAsVisibilityReferenceUndoCommandTest()
    {
        append(root, box);
        append(root, ball);
    }

    Command add(const osg::NodePtr &node) const { return Command(light, node, false); }
    Command remove(const osg::NodePtr &node) const { return Command(light, node, true); }

    /// Who is the lamp's visibility reference, and the flags of box and ball.
    std::string state() const
    {
        const osg::NodePtr reference = light->getVisibilityReference();
        return (reference == osg::NullFC  ? "none"
                : reference == box.get()  ? "box"
                : reference == ball.get() ? "ball"
                                          : "other") +
               (' ' + std::to_string(box->getExternalFlags())) + ' ' +
               std::to_string(ball->getExternalFlags());
    }

    static osg::UInt32 idOf(const osg::FieldContainerPtr &container)
    {
        return container.getFieldContainerId();
    }

    const osg::UberLightPtr light{lightOf(lamp)};
    osg::NodeRefPtr box{nodeWith(osg::Group::create())};
    osg::NodeRefPtr ball{nodeWith(osg::Group::create())};
};

} // namespace

TEST_F(ksAddNodeAsVisibilityReferenceUndoCommandTest, MakesTheNodeTheReferenceAndMarksIt)
{
    Command command = add(box);
    EXPECT_EQ(state(), "none 0 0") << "nothing happens before the command runs";
    for (int i = 0; i < 2; ++i) {
        command.redo();
        EXPECT_EQ(state(), "box 16 0");
        command.undo();
        EXPECT_EQ(state(), "none 0 0");
    }
}

TEST_F(ksAddNodeAsVisibilityReferenceUndoCommandTest, TakesTheReferenceAndTheMarkAway)
{
    add(box).redo();
    Command command = remove(box);
    EXPECT_EQ(state(), "box 16 0");
    for (int i = 0; i < 2; ++i) {
        command.redo();
        EXPECT_EQ(state(), "none 0 0");
        command.undo();
        EXPECT_EQ(state(), "box 16 0");
    }
}

TEST_F(ksAddNodeAsVisibilityReferenceUndoCommandTest, LeavesTheOtherFlags)
{
    for (const osg::UInt32 others : {0xFFFFFFEFu, 0x2u, 0x20u}) {
        box->setExternalFlags(others);
        Command command = add(box);
        command.redo();
        EXPECT_EQ(box->getExternalFlags(), others | bit);
        command.undo();
        EXPECT_EQ(box->getExternalFlags(), others);
    }
}

TEST_F(ksAddNodeAsVisibilityReferenceUndoCommandTest, ReplacesAnotherReferenceAndLeavesItsMark)
{
    add(ball).redo();
    Command command = add(box);
    command.redo();
    EXPECT_EQ(state(), "box 16 16");
    command.undo();
    EXPECT_EQ(state(), "none 0 16") << "the one before does not come back";
}

TEST_F(ksAddNodeAsVisibilityReferenceUndoCommandTest, TakesAwayWhateverReferenceThereIs)
{
    add(ball).redo();
    Command command = remove(box);
    command.redo();
    EXPECT_EQ(state(), "none 0 16");
    command.undo();
    EXPECT_EQ(state(), "box 16 16");
}

TEST_F(ksAddNodeAsVisibilityReferenceUndoCommandTest, RunsInAnyOrder)
{
    Command command = add(box);
    command.undo();
    EXPECT_EQ(state(), "none 0 0");
    command.redo();
    command.redo();
    EXPECT_EQ(state(), "box 16 0");
    EXPECT_EQ(countOf(box.get()), 3) << "the test, the parent and the light, once";
}

TEST_F(ksAddNodeAsVisibilityReferenceUndoCommandTest, RecordsTheNodeTwiceWhenItAdds)
{
    Command command = add(box);
    const long long lightId = recorder.idOf(light);
    const long long boxId = recorder.idOf(box.get());
    forget();
    for (int i = 0; i < 2; ++i) {
        command.redo();
        EXPECT_EQ(recorder.take(), ksRecords()
                                       .addRef(boxId)
                                       .change(boxId, flagsMask)
                                       .change(lightId, lightMask)
                                       .change(boxId, flagsMask));
        command.undo();
        EXPECT_EQ(recorder.take(),
                  ksRecords().subRef(boxId).change(lightId, lightMask).change(boxId, flagsMask));
    }
    add(ball).redo();
    forget();
    command.redo();
    EXPECT_EQ(recorder.take(), ksRecords()
                                   .subRef(recorder.idOf(ball.get()))
                                   .addRef(boxId)
                                   .change(boxId, flagsMask)
                                   .change(lightId, lightMask)
                                   .change(boxId, flagsMask));
}

TEST_F(ksAddNodeAsVisibilityReferenceUndoCommandTest, AnnouncesEditsThatChangeNothing)
{
    add(box).redo();
    const long long lightId = recorder.idOf(light);
    const long long boxId = recorder.idOf(box.get());
    forget();
    add(box).redo();
    EXPECT_EQ(recorder.take(),
              ksRecords().change(boxId, flagsMask).change(lightId, lightMask).change(boxId, flagsMask));
    remove(box).redo();
    forget();
    remove(box).redo();
    EXPECT_EQ(recorder.take(), ksRecords().change(lightId, lightMask).change(boxId, flagsMask));
}

TEST_F(ksAddNodeAsVisibilityReferenceUndoCommandTest, CallsTheHandlersInTheOrderOfItsRecords)
{
    box = nodeWith(osg::Group::create());
    const osg::NodeRefPtr watched(ksWatched<osg::Node>::create());
    ksHandlerCalls calls([&] {
        return std::string(light->getVisibilityReference() == watched.get() ? "there " : "none ") +
               std::to_string(watched->getExternalFlags());
    });
    Command command = add(watched);
    forget();
    command.redo();
    EXPECT_THAT(calls.take(),
                testing::ElementsAre(ksHandlerCall{idOf(watched.get()), flagsMask, 1, 1, "there 16"},
                                     ksHandlerCall{idOf(light), lightMask, 1, 2, "there 16"},
                                     ksHandlerCall{idOf(watched.get()), flagsMask, 1, 3, "there 16"}));
    forget();
    command.undo();
    EXPECT_THAT(calls.take(),
                testing::ElementsAre(ksHandlerCall{idOf(light), lightMask, 1, 1, "none 0"},
                                     ksHandlerCall{idOf(watched.get()), flagsMask, 1, 2, "none 0"}));

    osg::FieldContainerPtr::_ignore_change = true;
    forget();
    command.redo();
    EXPECT_THAT(calls.take(), testing::IsEmpty());
    EXPECT_EQ(recorder.take().changed.size(), 3u);
    osg::FieldContainerPtr::_ignore_change = false;

    std::thread([&command] { command.undo(); }).join();
    EXPECT_EQ(calls.take().size(), 2u);
    EXPECT_EQ(recorder.take(), ksRecords());
}

TEST_F(ksAddNodeAsVisibilityReferenceUndoCommandTest, ReachesTheOtherAspect)
{
    expectAspectsInStep();
    Command command = add(box);
    for (int i = 0; i < 2; ++i) {
        command.redo();
        EXPECT_NE(scene(1), scene());
        expectAspectsInStep();
        command.undo();
        EXPECT_NE(scene(1), scene());
        expectAspectsInStep();
    }
}

TEST_F(ksAddNodeAsVisibilityReferenceUndoCommandTest, HoldsNoReferenceItself)
{
    EXPECT_EQ(countOf(box.get()), 2);
    EXPECT_EQ(countOf(light), 1);
    std::optional<Command> command(std::in_place, light, box, false);
    EXPECT_EQ(countOf(box.get()), 2);
    EXPECT_EQ(countOf(light), 1);
    command->redo();
    EXPECT_EQ(countOf(box.get()), 3);
    command->undo();
    EXPECT_EQ(countOf(box.get()), 2);
    command->redo();
    forget();
    command.reset();
    EXPECT_EQ(recorder.take(), ksRecords());
    EXPECT_EQ(countOf(box.get()), 3) << "which the light holds";
    EXPECT_EQ(countOf(light), 1);
}

TEST_F(ksAddNodeAsVisibilityReferenceUndoCommandTest, DestroysTheNodeThatOnlyTheLightStillHolds)
{
    Command command = add(box);
    command.redo();
    const osg::UInt32 boxId = idOf(box.get());
    const long long boxRecordId = recorder.idOf(box.get());
    const long long coreRecordId = recorder.idOf(box->getCore());
    {
        const osg::CPEditor edit(root, osg::Node::ChildrenFieldMask);
        root->subChild(box);
    }
    box = osg::NullFC;
    ASSERT_NE(ksFindContainer<osg::NodePtr>(boxId), osg::NullFC);
    forget();
    command.undo();
    EXPECT_EQ(light->getVisibilityReference(), osg::NullFC);
    EXPECT_EQ(ksFindContainer<osg::NodePtr>(boxId), osg::NullFC);
    EXPECT_EQ(recorder.take(), ksRecords()
                                   .destroy(boxRecordId)
                                   .change(coreRecordId, osg::NodeCore::ParentsFieldMask)
                                   .destroy(coreRecordId)
                                   .change(recorder.idOf(light), lightMask));
    expectIdle(command);
}

TEST_F(ksAddNodeAsVisibilityReferenceUndoCommandTest, HasThisTextUntranslated)
{
    const ksEchoTranslator translator;
    EXPECT_EQ(add(box).text(), QStringLiteral("Add Node as Visibility Reference"));
    EXPECT_EQ(remove(box).text(), QStringLiteral("Add Node as Visibility Reference"));
    EXPECT_EQ(Command(osg::NullFC, osg::NullFC, false).text(),
              QStringLiteral("Add Node as Visibility Reference"));
}

TEST_F(ksAddNodeAsVisibilityReferenceUndoCommandTest, TellsTheIdOfTheLight)
{
    const std::string id = "id=int:" + std::to_string(Command::commandId());
    EXPECT_EQ(ksMessageOf(add(box)), id + " lightCommand=uint:" + std::to_string(idOf(light)));
    EXPECT_EQ(ksMessageOf(Command(light, osg::NullFC, true)),
              id + " lightCommand=uint:" + std::to_string(idOf(light)));
    EXPECT_EQ(ksMessageOf(Command(osg::NullFC, box, false)), id + " lightCommand=uint:0");
}

TEST_F(ksAddNodeAsVisibilityReferenceUndoCommandTest, HasTheIdOfItsClassAndBelongsToItsParent)
{
    QUndoCommand parent;
    const auto *command = new Command(light, box, false, &parent);
    ASSERT_EQ(parent.childCount(), 1);
    EXPECT_EQ(parent.child(0), command);
    EXPECT_EQ(command->id(), Command::commandId());
    EXPECT_EQ(command->id(), ksUndoCommand::makeId(typeid(Command)));
}

TEST_F(ksAddNodeAsVisibilityReferenceUndoCommandTest, KeepsItsVirtualFunctionsInOrder)
{
    EXPECT_EQ(ksVirtualSlot(&Command::undo), 2u);
    EXPECT_EQ(ksVirtualSlot(&Command::redo), 3u);
    EXPECT_EQ(ksVirtualSlot(&Command::id), 4u);
    EXPECT_EQ(ksVirtualSlot(&Command::mergeWith), 5u);
    EXPECT_EQ(ksVirtualSlot(&Command::makeMessage), 6u);
    EXPECT_EQ(ksVirtualSlot(&Command::canMergeWith), 7u);
}

TEST_F(ksAddNodeAsVisibilityReferenceUndoCommandTest, NeverMerges)
{
    Command older = add(box);
    Command newer = add(box);
    expectNoMerge(older, newer);

    ksUndoStack stack;
    for (const bool removing : {false, true, false}) {
        auto *command = new Command(light, box, removing);
        command->setMergeResponseDelta(-1.0);
        stack.add(command);
    }
    EXPECT_EQ(stack.count(), 3);
    stack.undo();
    EXPECT_EQ(state(), "none 0 0");
    stack.undo();
    EXPECT_EQ(state(), "box 16 0");
    stack.undo();
    EXPECT_EQ(state(), "none 0 0");
}

TEST_F(ksAddNodeAsVisibilityReferenceUndoCommandTest, IsIdleWithoutALightOrANode)
{
    add(ball).redo();
    for (const bool removing : {false, true}) {
        Command lightless(osg::NullFC, box, removing);
        expectIdle(lightless);
        Command nodeless(light, osg::NullFC, removing);
        expectIdle(nodeless);
        Command empty(osg::NullFC, osg::NullFC, removing);
        expectIdle(empty);
    }
}

TEST_F(ksAddNodeAsVisibilityReferenceUndoCommandTest, IsIdleWhileAnIdNamesAnotherKindOfContainer)
{
    Command adding = add(box);
    Command removing = remove(box);
    for (const auto &[id, others] : std::vector<std::pair<osg::UInt32, std::vector<osg::FieldContainerPtr>>>{
             {idOf(light), {box->getCore(), lamp.get(), osg::NullFC}},
             {idOf(box.get()), {box->getCore(), osg::NullFC}}}) {
        for (const osg::FieldContainerPtr &other : others) {
            const ksSlotSwap swap(id, other);
            expectIdle(adding);
            expectIdle(removing);
        }
    }
    adding.redo();
    EXPECT_EQ(state(), "box 16 0");
}

TEST_F(ksAddNodeAsVisibilityReferenceUndoCommandTest, IsIdleWhenTheNodeHasGone)
{
    Command fresh = add(box);
    Command undone = add(box);
    undone.redo();
    undone.undo();
    Command removed = remove(box);
    removed.redo();
    destroy(box);
    for (Command *command : {&fresh, &undone, &removed})
        expectIdle(*command);
}

TEST_F(ksAddNodeAsVisibilityReferenceUndoCommandTest, IsIdleWhenTheLightHasGone)
{
    Command fresh = add(box);
    Command applied = add(box);
    applied.redo();
    destroy(lamp);
    EXPECT_EQ(countOf(box.get()), 2);
    for (Command *command : {&fresh, &applied})
        expectIdle(*command);
    EXPECT_EQ(box->getExternalFlags(), bit) << "which nobody clears any more";
}
