// SPDX-License-Identifier: MIT
#include <ksundo/core/ksFindContainer.h>
#include <ksundo/core/ksUndoStack.h>
#include <ksundo/field/ksImageFieldUndoCommand.h>

#include <OSGColorComponent.h>
#include <OpenSG/OSGGroup.h>
#include <ksTextureManager.h>

#include <memory>
#include <support/ksEchoTranslator.h>
#include <support/ksFieldTarget.h>
#include <support/ksSceneFixture.h>
#include <support/ksSlotSwap.h>
#include <support/ksVirtualSlot.h>
#include <support/ksWatched.h>
#include <thread>

namespace {

using osg::ImagePtr;
using testing::ElementsAre;

/// Commands on a component that shows an image. The test holds a reference on that image and on a fresh one.
class ksImageFieldUndoCommandTest : public ksSceneFixture
{
protected:
    ksImageFieldUndoCommandTest()
    {
        ksTextureManager::the()->clear();
        show(shown);
        forget();
    }

    /// An image without references; those of one \a brightness are equal.
    static ImagePtr imageOf(osg::UInt8 brightness)
    {
        const ImagePtr image = osg::Image::create();
        image->set(osg::Image::OSG_L_PF, 1, 1, 1, 1, 1, 0, &brightness);
        return image;
    }

    void show(const ImagePtr &image)
    {
        component->setImage(image);
        osg::endEditCP(component, mask);
    }

    osg::FieldContainerPtr container() const { return component.get(); }
    osg::UInt32 componentId() const { return container().getFieldContainerId(); }
    long long idOf(const osg::FieldContainerPtr &container) const { return recorder.idOf(container); }

    static bool lives(osg::UInt32 id) { return ksFindContainer<osg::FieldContainerPtr>(id) != osg::NullFC; }

    std::unique_ptr<ksImageFieldUndoCommand> make(const ImagePtr &image) const
    {
        return std::make_unique<ksImageFieldUndoCommand>(container(), "image", image);
    }
    std::unique_ptr<ksImageFieldUndoCommand> make() const { return make(fresh); }

    /// The references on the image shown at first and on the fresh one.
    std::vector<int> counts() const { return {countOf(shown.get()), countOf(fresh.get())}; }

    /// The records of a step that replaces \a before by \a after, both of which go on living.
    ksRecords exchangeOf(const ImagePtr &before, const ImagePtr &after) const
    {
        return ksRecords().change(idOf(container()), mask).addRef(idOf(after)).subRef(idOf(before));
    }

    /// Expects that \a command does nothing at all, however it is run.
    void expectIdleAndQuiet(ksImageFieldUndoCommand &command)
    {
        int notified = 0;
        command.setNotifyFunction([&notified] { ++notified; });
        calls.take();
        expectIdle(command);
        command.apply(shown);
        EXPECT_EQ(recorder.take(), ksRecords());
        EXPECT_EQ(calls.take().size(), 0u);
        EXPECT_EQ(notified, 0);
        EXPECT_EQ(command.getField().second, nullptr);
        command.setNotifyFunction({});
    }

    static constexpr osg::BitVector mask = osg::ColorComponent::ImageFieldMask;

    osg::RefPtr<osg::ColorComponentPtr> component{ksWatched<osg::ColorComponent>::create()};
    osg::RefPtr<ImagePtr> shown{imageOf(1)};
    osg::RefPtr<ImagePtr> fresh{imageOf(2)};
    ksHandlerCalls calls{[] { return std::string(); }};
};

/// The texture manager knows an image that equals the one that commands are given.
class ksImageSubstitution : public ksImageFieldUndoCommandTest
{
protected:
    ksImageSubstitution()
    {
        ksTextureManager::the()->getImage(known, true);
        forget();
    }

    osg::RefPtr<ImagePtr> known{imageOf(3)};
    const ImagePtr given{imageOf(3)};
    const osg::UInt32 givenId{given.getFieldContainerId()};
    const long long givenRecordId{idOf(given)};
};

} // namespace

TEST_F(ksImageFieldUndoCommandTest, ShowsTheNewImageAndBringsTheOldOneBack)
{
    const auto command = make();
    EXPECT_EQ(component->getImage(), shown.get());
    for (int i = 0; i < 2; ++i) {
        command->redo();
        EXPECT_EQ(component->getImage(), fresh.get());
        command->undo();
        EXPECT_EQ(component->getImage(), shown.get());
    }
}

TEST_F(ksImageFieldUndoCommandTest, BringsBackWhatWasShownWhenItWasBuilt)
{
    const auto command = make();
    show(imageOf(9));
    command->redo();
    EXPECT_EQ(component->getImage(), fresh.get());
    command->undo();
    EXPECT_EQ(component->getImage(), shown.get());
}

TEST_F(ksImageFieldUndoCommandTest, HasAConstructorPerWayToNameTheField)
{
    QUndoCommand parent;
    ksImageFieldUndoCommand *const commands[] = {
        new ksImageFieldUndoCommand(container(), "Image", fresh, &parent),
        new ksImageFieldUndoCommand(container(), int(osg::ColorComponent::ImageFieldId), fresh, &parent),
    };
    ASSERT_EQ(parent.childCount(), 2);
    for (int i = 0; i < 2; ++i) {
        ksImageFieldUndoCommand &command = *commands[i];
        EXPECT_EQ(parent.child(i), &command);
        EXPECT_EQ(command.text(), QStringLiteral("Set Texture"));
        EXPECT_EQ(command.containerId(), componentId());
        EXPECT_EQ(ksFieldTarget::idOfField(command), osg::ColorComponent::ImageFieldId);
        EXPECT_EQ(ksFieldTarget::maskOf(command), mask);
        command.redo();
        EXPECT_EQ(component->getImage(), fresh.get());
        command.undo();
        EXPECT_EQ(component->getImage(), shown.get());
    }
}

TEST_F(ksImageFieldUndoCommandTest, TranslatesItsTextInTheContextOfItsClass)
{
    const ksEchoTranslator translator;
    const QString translated = QStringLiteral("ksImageFieldUndoCommand|Set Texture");
    EXPECT_EQ(make()->text(), translated);
    EXPECT_EQ(
        ksImageFieldUndoCommand(container(), int(osg::ColorComponent::ImageFieldId), fresh, nullptr).text(),
        translated);
}

TEST_F(ksImageFieldUndoCommandTest, HoldsAReferenceOnBothImagesForItsWholeLife)
{
    EXPECT_THAT(counts(), ElementsAre(2, 1)) << "of the test and the field";
    auto command = make();
    EXPECT_THAT(counts(), ElementsAre(3, 2));
    EXPECT_EQ(recorder.take(), ksRecords().addRef(idOf(shown)).addRef(idOf(fresh)));
    for (int i = 0; i < 2; ++i) {
        command->redo();
        EXPECT_THAT(counts(), ElementsAre(2, 3));
        EXPECT_EQ(recorder.take(), exchangeOf(shown, fresh));
        command->undo();
        EXPECT_THAT(counts(), ElementsAre(3, 2));
        EXPECT_EQ(recorder.take(), exchangeOf(fresh, shown));
    }
    EXPECT_EQ(countOf(container()), 1);
    command.reset();
    EXPECT_THAT(counts(), ElementsAre(2, 1));
    EXPECT_EQ(recorder.take(), ksRecords().subRef(idOf(fresh)).subRef(idOf(shown)));
}

TEST_F(ksImageFieldUndoCommandTest, LeavesTheFieldItsReferenceWhenItGoesDone)
{
    auto command = make();
    command->redo();
    forget();
    command.reset();
    EXPECT_THAT(counts(), ElementsAre(1, 2));
    EXPECT_EQ(recorder.take(), ksRecords().subRef(idOf(fresh)).subRef(idOf(shown)));
}

TEST_F(ksImageFieldUndoCommandTest, KeepsItsImagesAliveAlone)
{
    const osg::UInt32 shownId = shown.get().getFieldContainerId();
    const osg::UInt32 freshId = fresh.get().getFieldContainerId();
    const ksRecords gone = ksRecords().destroy(idOf(fresh)).destroy(idOf(shown));
    auto command = make();
    show(osg::NullFC);
    shown = osg::NullFC;
    fresh = osg::NullFC;
    EXPECT_TRUE(lives(shownId));
    EXPECT_TRUE(lives(freshId));
    forget();
    command.reset();
    EXPECT_FALSE(lives(shownId));
    EXPECT_FALSE(lives(freshId));
    EXPECT_EQ(recorder.take(), gone) << "the new image goes first";
}

TEST_F(ksImageFieldUndoCommandTest, AnnouncesTheChangeWhileThePreviousImageStillLives)
{
    const auto command = make();
    const ImagePtr previous = imageOf(9);
    const osg::UInt32 previousId = previous.getFieldContainerId();
    const long long previousRecordId = idOf(previous);
    show(previous);
    forget();
    int previousCount = 0;
    int freshCount = 0;
    ImagePtr there;
    const ksHandlerCalls watching([&] {
        previousCount = lives(previousId) ? countOf(previous) : -1;
        freshCount = countOf(fresh.get());
        there = component->getImage();
        return std::string();
    });
    command->redo();
    EXPECT_EQ(previousCount, 1);
    EXPECT_EQ(freshCount, 2) << "the field's reference comes after the announcement";
    EXPECT_EQ(there, fresh.get());
    EXPECT_FALSE(lives(previousId));
    EXPECT_EQ(recorder.take(),
              ksRecords().change(idOf(container()), mask).addRef(idOf(fresh)).destroy(previousRecordId));
}

TEST_F(ksImageFieldUndoCommandTest, TakesTheNewReferenceBeforeItReleasesThePrevious)
{
    const auto command = make();
    const ImagePtr only = imageOf(9);
    const osg::UInt32 id = only.getFieldContainerId();
    show(only);
    forget();
    command->apply(only);
    ASSERT_TRUE(lives(id));
    EXPECT_EQ(countOf(only), 1);
    EXPECT_EQ(recorder.take(), exchangeOf(only, only));
    EXPECT_EQ(component->getImage(), only);
}

TEST_F(ksImageFieldUndoCommandTest, CallsTheHandlerOnceAtEveryStepAfterTheRecord)
{
    const auto command = make();
    calls.take();
    forget();
    const ksHandlerCall call{componentId(), mask, 1, 1, ""};
    command->redo();
    EXPECT_THAT(calls.take(), ElementsAre(call));
    forget();
    command->undo();
    EXPECT_THAT(calls.take(), ElementsAre(call));
    forget();
    command->apply(shown);
    EXPECT_THAT(calls.take(), ElementsAre(call)) << "what is there already is written as well";
}

TEST_F(ksImageFieldUndoCommandTest, RecordsWithoutCallingHandlersWhenChangesAreIgnored)
{
    const auto command = make();
    int notified = 0;
    command->setNotifyFunction([&notified] { ++notified; });
    calls.take();
    forget();
    osg::FieldContainerPtr::_ignore_change = true;
    command->redo();
    EXPECT_EQ(recorder.take(), exchangeOf(shown, fresh));
    command->undo();
    EXPECT_EQ(recorder.take(), exchangeOf(fresh, shown));
    EXPECT_EQ(calls.take().size(), 0u);
    EXPECT_EQ(notified, 2);
}

TEST_F(ksImageFieldUndoCommandTest, RunsOnAThreadWithoutAList)
{
    const auto command = make();
    calls.take();
    forget();
    std::thread([&command] { command->redo(); }).join();
    EXPECT_EQ(component->getImage(), fresh.get());
    EXPECT_THAT(counts(), ElementsAre(2, 3));
    EXPECT_EQ(recorder.take(), ksRecords());
    EXPECT_EQ(calls.take().size(), 1u);
}

TEST_F(ksImageFieldUndoCommandTest, ReachesTheOtherAspect)
{
    show(osg::NullFC);
    const auto first = make(fresh);
    forget();
    first->redo();
    ksExpectSync(container());
    const auto second = make(shown);
    forget();
    second->redo();
    ksExpectSync(container());
    second->undo();
    ksExpectSync(container());
    first->undo();
    ksExpectSync(container());
}

TEST_F(ksImageFieldUndoCommandTest, BringsBackThatNoImageWasShown)
{
    show(osg::NullFC);
    forget();
    auto command = make();
    EXPECT_EQ(recorder.take(), ksRecords().addRef(idOf(fresh)));
    command->redo();
    EXPECT_EQ(recorder.take(), ksRecords().change(idOf(container()), mask).addRef(idOf(fresh)));
    command->undo();
    EXPECT_EQ(component->getImage(), osg::NullFC);
    EXPECT_EQ(recorder.take(), ksRecords().change(idOf(container()), mask).subRef(idOf(fresh)));
    command.reset();
    EXPECT_EQ(recorder.take(), ksRecords().subRef(idOf(fresh)));
    EXPECT_THAT(counts(), ElementsAre(1, 1));
}

TEST_F(ksImageFieldUndoCommandTest, TakesTheImageAwayWithNull)
{
    auto command = make(osg::NullFC);
    EXPECT_EQ(recorder.take(), ksRecords().addRef(idOf(shown)));
    command->redo();
    EXPECT_EQ(component->getImage(), osg::NullFC);
    EXPECT_EQ(recorder.take(), ksRecords().change(idOf(container()), mask).subRef(idOf(shown)));
    EXPECT_EQ(countOf(shown.get()), 2);
    command->undo();
    EXPECT_EQ(component->getImage(), shown.get());
    EXPECT_EQ(recorder.take(), ksRecords().change(idOf(container()), mask).addRef(idOf(shown)));
    command.reset();
    EXPECT_EQ(countOf(shown.get()), 2);
}

TEST_F(ksImageFieldUndoCommandTest, StandsOneImageAsOldAndNew)
{
    auto command = make(shown);
    EXPECT_EQ(countOf(shown.get()), 4);
    command->redo();
    command->undo();
    EXPECT_EQ(countOf(shown.get()), 4);
    command.reset();
    EXPECT_EQ(countOf(shown.get()), 2);
}

TEST_F(ksImageFieldUndoCommandTest, NotifiesAfterEverythingElse)
{
    const auto command = make();
    const ImagePtr previous = imageOf(9);
    const osg::UInt32 previousId = previous.getFieldContainerId();
    show(previous);
    calls.take();
    std::vector<std::string> events;
    command->setNotifyFunction([&] {
        events.push_back(std::string(component->getImage() == fresh.get() ? "fresh" : "shown") +
                         (lives(previousId) ? ", previous lives" : ""));
        EXPECT_EQ(calls.take().size(), 1u);
    });
    EXPECT_THAT(events, ElementsAre());
    command->redo();
    EXPECT_THAT(events, ElementsAre("fresh"));
    command->undo();
    EXPECT_THAT(events, ElementsAre("fresh", "shown"));
    command->apply(fresh);
    EXPECT_THAT(events, ElementsAre("fresh", "shown", "fresh"));
}

TEST_F(ksImageFieldUndoCommandTest, ReplacesAndDropsItsNotifyFunction)
{
    auto first = std::make_shared<int>(0);
    auto second = std::make_shared<int>(0);
    auto command = make();
    command->setNotifyFunction([first] { ++*first; });
    EXPECT_EQ(first.use_count(), 2);
    command->setNotifyFunction([second] { ++*second; });
    EXPECT_EQ(first.use_count(), 1);
    command->redo();
    EXPECT_EQ(*first, 0);
    EXPECT_EQ(*second, 1);
    command->setNotifyFunction({});
    EXPECT_EQ(second.use_count(), 1);
    command->undo();
    EXPECT_EQ(*second, 1);
    command->setNotifyFunction([first] {});
    command.reset();
    EXPECT_EQ(first.use_count(), 1);
}

TEST_F(ksImageFieldUndoCommandTest, IsIdleWhenTheContainerHasGone)
{
    const auto untried = make();
    const auto applied = make();
    applied->redo();
    const auto undone = make();
    undone->redo();
    undone->undo();
    component = osg::NullFC;
    for (const auto *command : {&untried, &applied, &undone})
        expectIdleAndQuiet(**command);
    EXPECT_EQ(untried->getField().first, osg::NullFC);
}

TEST_F(ksImageFieldUndoCommandTest, LeavesTheImagesOfAContainerThatWentAsTheyAre)
{
    auto command = make();
    command->redo();
    component = osg::NullFC;
    EXPECT_THAT(counts(), ElementsAre(2, 2));
    command->undo();
    EXPECT_THAT(counts(), ElementsAre(2, 2));
    command.reset();
    EXPECT_THAT(counts(), ElementsAre(1, 1));
}

TEST_F(ksImageFieldUndoCommandTest, IsIdleWithoutAnAimAndHoldsOnlyTheNewImage)
{
    const int count = static_cast<int>(component->getType().getNumFieldDescs());
    std::vector<std::unique_ptr<ksImageFieldUndoCommand>> commands;
    commands.push_back(std::make_unique<ksImageFieldUndoCommand>(osg::NullFC, "image", fresh));
    commands.push_back(std::make_unique<ksImageFieldUndoCommand>(
        osg::NullFC, int(osg::ColorComponent::ImageFieldId), fresh));
    for (const char *name : {"", "unknown", "IMAGE"})
        commands.push_back(std::make_unique<ksImageFieldUndoCommand>(container(), name, fresh));
    for (const int id : {0, -1, count + 1})
        commands.push_back(std::make_unique<ksImageFieldUndoCommand>(container(), id, fresh));
    for (const auto &command : commands) {
        expectIdleAndQuiet(*command);
        EXPECT_EQ(ksMessageOf(*command), "container=uint:0 fieldId=uint:0 id=int:" +
                                             std::to_string(ksImageFieldUndoCommand::commandId()));
    }
    EXPECT_THAT(counts(), ElementsAre(2, 1 + static_cast<int>(commands.size())));
}

TEST_F(ksImageFieldUndoCommandTest, IsIdleOnFieldsOfOtherClasses)
{
    osg::FieldContainerType &type = component->getType();
    for (osg::UInt32 id = 1; id <= type.getNumFieldDescs(); ++id) {
        if (id == osg::ColorComponent::ImageFieldId)
            continue;
        SCOPED_TRACE(type.getFieldDescription(id)->getCName());
        ksImageFieldUndoCommand command(container(), int(id), fresh);
        ASSERT_EQ(ksFieldTarget::idOfField(command), id);
        expectIdleAndQuiet(command);
    }
    EXPECT_THAT(counts(), ElementsAre(2, 1));
}

TEST_F(ksImageFieldUndoCommandTest, IsIdleWhenItsFieldIsBeyondThoseOfTheContainer)
{
    const auto command = make();
    const osg::UInt32 count = component->getType().getNumFieldDescs();
    for (const osg::UInt32 id : {0u, count + 1, ~0u}) {
        ksFieldTarget::idOfField(*command) = id;
        expectIdleAndQuiet(*command);
    }
}

TEST_F(ksImageFieldUndoCommandTest, IsIdleWhileItsIdNamesAnotherContainer)
{
    const osg::GroupRefPtr group(osg::Group::create());
    const auto command = make();
    {
        const ksSlotSwap swap(componentId(), group);
        expectIdleAndQuiet(*command);
    }
    command->redo();
    EXPECT_EQ(component->getImage(), fresh.get());
}

TEST_F(ksImageFieldUndoCommandTest, GivesItsContainerAndField)
{
    const auto command = make();
    EXPECT_EQ(command->getField().first, container());
    EXPECT_EQ(command->getField().second, component->getSFImage());
}

TEST_F(ksImageFieldUndoCommandTest, NeverMerges)
{
    const auto older = make();
    const auto newer = make();
    expectNoMerge(*older, *newer);

    ksUndoStack stack;
    for (const osg::UInt8 brightness : {8, 9}) {
        auto command = make(imageOf(brightness));
        command->setMergeResponseDelta(-1.0);
        stack.add(command.release());
    }
    EXPECT_EQ(stack.count(), 2);
    stack.undo();
    stack.undo();
    EXPECT_EQ(component->getImage(), shown.get());
}

TEST_F(ksImageFieldUndoCommandTest, TellsItsIdAndItsAim)
{
    const auto command = make();
    EXPECT_EQ(command->id(), ksImageFieldUndoCommand::commandId());
    EXPECT_EQ(command->id(), ksUndoCommand::makeId(typeid(ksImageFieldUndoCommand)));
    EXPECT_EQ(ksMessageOf(*command), "container=uint:" + std::to_string(componentId()) + " fieldId=uint:" +
                                         std::to_string(osg::ColorComponent::ImageFieldId) +
                                         " id=int:" + std::to_string(command->id()));
}

TEST_F(ksImageFieldUndoCommandTest, KeepsItsVirtualFunctionsInOrder)
{
    EXPECT_EQ(ksVirtualSlot(&ksImageFieldUndoCommand::undo), 2u);
    EXPECT_EQ(ksVirtualSlot(&ksImageFieldUndoCommand::redo), 3u);
    EXPECT_EQ(ksVirtualSlot(&ksImageFieldUndoCommand::id), 4u);
    EXPECT_EQ(ksVirtualSlot(&ksImageFieldUndoCommand::mergeWith), 5u);
    EXPECT_EQ(ksVirtualSlot(&ksImageFieldUndoCommand::makeMessage), 6u);
    EXPECT_EQ(ksVirtualSlot(&ksImageFieldUndoCommand::canMergeWith), 7u);
}

TEST_F(ksImageSubstitution, DestroysAnImageThatNobodyHolds)
{
    const auto command = make(given);
    EXPECT_FALSE(lives(givenId));
    EXPECT_EQ(recorder.take(), ksRecords().addRef(idOf(shown)).destroy(givenRecordId).addRef(idOf(known)));
    command->redo();
    EXPECT_EQ(component->getImage(), known.get());
    EXPECT_EQ(countOf(known.get()), 3);
}

TEST_F(ksImageSubstitution, DestroysAnImageOfWhichTheCallerHandsTheOnlyReferenceOver)
{
    osg::addRefCP(given);
    forget();
    const auto command = make(given);
    EXPECT_FALSE(lives(givenId));
    EXPECT_EQ(recorder.take(), ksRecords().addRef(idOf(shown)).destroy(givenRecordId).addRef(idOf(known)));
}

TEST_F(ksImageSubstitution, ReleasesOneReferenceOnTheGivenImage)
{
    const osg::RefPtr<ImagePtr> own(given);
    osg::addRefCP(given);
    forget();
    const auto command = make(given);
    EXPECT_EQ(countOf(given), 1);
    EXPECT_EQ(recorder.take(), ksRecords().addRef(idOf(shown)).subRef(givenRecordId).addRef(idOf(known)));
    command->redo();
    command->undo();
    EXPECT_EQ(countOf(given), 1);
}

TEST_F(ksImageSubstitution, HappensAlsoWithoutAField)
{
    const ksImageFieldUndoCommand command(osg::NullFC, "image", given);
    EXPECT_FALSE(lives(givenId));
    EXPECT_EQ(countOf(known.get()), 2);
}

TEST_F(ksImageSubstitution, LeavesTheReferencesOfAnImageThatTheManagerKeeps)
{
    const auto command = make(known);
    EXPECT_EQ(countOf(known.get()), 2);
    EXPECT_EQ(recorder.take(), ksRecords().addRef(idOf(shown)).addRef(idOf(known)));
    const auto other = make(fresh);
    EXPECT_EQ(countOf(fresh.get()), 2);
    osg::subRefCP(given);
}

TEST_F(ksImageSubstitution, MakesAnImageKnownThatHasNoEqual)
{
    const auto command = make(fresh);
    const osg::RefPtr<ImagePtr> equal(imageOf(2));
    EXPECT_EQ(ksTextureManager::the()->getImage(equal, true), fresh.get());
    osg::subRefCP(given);
}
