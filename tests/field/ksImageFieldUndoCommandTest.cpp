// SPDX-License-Identifier: MIT
#include <ksundo/core/ksFindContainer.h>
#include <ksundo/field/ksImageFieldUndoCommand.h>

#include <OSGColorComponent.h>
#include <ksTextureManager.h>

#include <memory>
#include <support/ksSceneFixture.h>
#include <support/ksWatched.h>

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

TEST_F(ksImageFieldUndoCommandTest, BringsBackWhatWasShownWhenItWasBuilt)
{
    const auto command = make();
    show(imageOf(9));
    command->redo();
    EXPECT_EQ(component->getImage(), fresh.get());
    command->undo();
    EXPECT_EQ(component->getImage(), shown.get());
}

TEST_F(ksImageFieldUndoCommandTest, NamesTheFieldByItsIdAsWell)
{
    QUndoCommand parent;
    auto *command =
        new ksImageFieldUndoCommand(container(), int(osg::ColorComponent::ImageFieldId), fresh, &parent);
    EXPECT_EQ(parent.child(0), command);
    EXPECT_EQ(command->text(), QStringLiteral("Set Texture"));
    command->redo();
    EXPECT_EQ(component->getImage(), fresh.get());
    command->undo();
    EXPECT_EQ(component->getImage(), shown.get());
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

TEST_F(ksImageFieldUndoCommandTest, GivesItsContainerAndField)
{
    const auto command = make();
    EXPECT_EQ(command->getField().first, container());
    EXPECT_EQ(command->getField().second, component->getSFImage());
}

TEST_F(ksImageFieldUndoCommandTest, HoldsOnlyTheNewImageWithoutAField)
{
    int notified = 0;
    ksImageFieldUndoCommand command(container(), "unknown", fresh);
    command.setNotifyFunction([&notified] { ++notified; });
    EXPECT_THAT(counts(), ElementsAre(2, 2));
    command.redo();
    command.apply(shown);
    EXPECT_EQ(notified, 0);
    EXPECT_EQ(component->getImage(), shown.get());
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
