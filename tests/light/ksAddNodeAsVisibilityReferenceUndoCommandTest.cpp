// SPDX-License-Identifier: MIT
#include "ksLightFixture.h"

#include <ksundo/core/ksFindContainer.h>
#include <ksundo/light/ksAddNodeAsVisibilityReferenceUndoCommand.h>

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

TEST_F(ksAddNodeAsVisibilityReferenceUndoCommandTest, LetsTheHandlersFindReferenceAndMark)
{
    const osg::NodeRefPtr watched(ksWatched<osg::Node>::create());
    ksHandlerCalls calls([&] {
        return std::string(light->getVisibilityReference() == watched.get() ? "there " : "none ") +
               std::to_string(watched->getExternalFlags());
    });
    Command command = add(watched);
    const auto found = [&calls] {
        std::vector<std::string> result;
        for (const ksHandlerCall &call : calls.take())
            result.push_back(call.found);
        return result;
    };
    command.redo();
    EXPECT_THAT(found(), testing::ElementsAre("there 16", "there 16", "there 16"));
    command.undo();
    EXPECT_THAT(found(), testing::ElementsAre("none 0", "none 0"));
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

TEST_F(ksAddNodeAsVisibilityReferenceUndoCommandTest, LosesTheNodeThatOnlyTheReferenceBeforeHolds)
{
    osg::NodeRefPtr lid(nodeWith(osg::Group::create()));
    append(box, lid);
    const osg::NodePtr node = lid;
    const long long boxId = recorder.idOf(box.get());
    const long long boxCoreId = recorder.idOf(box->getCore());
    const long long lidId = recorder.idOf(node);
    const long long lidCoreId = recorder.idOf(lid->getCore());
    add(box).redo();
    {
        const osg::CPEditor edit(root, osg::Node::ChildrenFieldMask);
        root->subChild(box);
    }
    box = osg::NullFC;
    Command command = add(node);
    lid = osg::NullFC;
    forget();
    command.redo();
    EXPECT_EQ(light->getVisibilityReference(), osg::NullFC);
    EXPECT_EQ(recorder.take(), ksRecords()
                                   .destroy(boxId)
                                   .change(boxCoreId, osg::NodeCore::ParentsFieldMask)
                                   .destroy(boxCoreId)
                                   .change(lidId, osg::Node::ParentFieldMask)
                                   .destroy(lidId)
                                   .change(lidCoreId, osg::NodeCore::ParentsFieldMask)
                                   .destroy(lidCoreId)
                                   .change(recorder.idOf(light), lightMask));
    expectIdle(command);
}

TEST_F(ksAddNodeAsVisibilityReferenceUndoCommandTest, StandsALightThatGoesWithItsReference)
{
    for (const bool replacing : {false, true}) {
        osg::NodeRefPtr own(nodeWith(osg::UberLight::create()));
        const auto ownLight = osg::UberLightPtr::dcast(own->getCore());
        const osg::UInt32 lightId = idOf(ownLight);
        Command command(ownLight, own, false);
        Command replacement(ownLight, ball, false);
        command.redo();
        own = osg::NullFC;
        EXPECT_NE(ksFindContainer<osg::UberLightPtr>(lightId), osg::NullFC) << "it holds itself";
        if (replacing)
            replacement.redo();
        else
            command.undo();
        EXPECT_EQ(ksFindContainer<osg::UberLightPtr>(lightId), osg::NullFC);
        EXPECT_EQ(ball->getExternalFlags(), 0u);
        expectIdle(command);
        expectIdle(replacement);
    }
}

TEST_F(ksAddNodeAsVisibilityReferenceUndoCommandTest, IsIdleWithoutANode)
{
    add(ball).redo();
    for (const bool removing : {false, true}) {
        Command command(light, osg::NullFC, removing);
        expectIdle(command);
    }
}
