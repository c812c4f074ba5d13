// SPDX-License-Identifier: MIT
#include "ksTransformVariantFixture.h"

#include <ksundo/core/ksUndoStack.h>
#include <ksundo/transform/ksAddTransformVariantUndoCommand.h>

#include <functional>
#include <memory>
#include <optional>
#include <support/ksEchoTranslator.h>

namespace {

using Command = ksAddTransformVariantUndoCommand;

/// Commands that add X, which the test holds once.
class ksAddTransformVariantUndoCommandTest : public ksTransformVariantFixture
{
protected:
    Command add(unsigned long index) { return Command(child, added, index, nullptr, notification()); }

    long long addedId() const { return recorder.idOf(added); }

    osg::TransformVariantRefPtr added{variant("X")};
};

} // namespace

TEST_F(ksAddTransformVariantUndoCommandTest, CreatesTheAttachmentOnceAndTakesItAwayAgain)
{
    Command command = add(0);
    EXPECT_EQ(order(), "none");
    command.redo();
    EXPECT_THAT(take(), testing::ElementsAre("0: [X]"));
    EXPECT_EQ(at(0), added.get());
    const osg::TransformVariantsAttachmentPtr own = attachment();
    const osg::UInt32 ownId = own.getFieldContainerId();
    for (int i = 0; i < 2; ++i) {
        command.undo();
        EXPECT_THAT(take(), testing::ElementsAre("0: none"));
        EXPECT_EQ(ksFindContainer<osg::TransformVariantsAttachmentPtr>(ownId), own);
        command.redo();
        EXPECT_THAT(take(), testing::ElementsAre("0: [X]"));
        EXPECT_EQ(attachment(), own) << "the very same one";
    }
}

TEST_F(ksAddTransformVariantUndoCommandTest, RecordsExactlyWhatItDoesWithItsOwnAttachment)
{
    const long long x = addedId();
    forget();
    std::optional<Command> command;
    command.emplace(child, added, 0, nullptr, notification());
    EXPECT_EQ(recorder.take(), ksRecords().addRef(x));

    command->redo();
    const long long own = recorder.idOf(attachment());
    EXPECT_EQ(recorder.take(), attaching(own).create(own).addRef(own).addRef(x).change(own, variantsMask));

    command->undo();
    EXPECT_EQ(recorder.take(), ksRecords()
                                   .subRef(x)
                                   .change(own, variantsMask)
                                   .change(own, parentsMask)
                                   .subRef(own)
                                   .change(recorder.idOf(child), attachmentsMask));

    command->redo();
    EXPECT_EQ(recorder.take(), attaching(own).addRef(x).change(own, variantsMask));

    command->undo();
    recorder.take();
    command.reset();
    EXPECT_EQ(recorder.take(), ksRecords().subRef(x).destroy(own));
}

TEST_F(ksAddTransformVariantUndoCommandTest, CountsItsReferences)
{
    std::optional<Command> command;
    EXPECT_EQ(countOf(added), 1);
    command.emplace(child, added, 0, nullptr, notification());
    EXPECT_EQ(countOf(added), 2);
    command->redo();
    const osg::TransformVariantsAttachmentPtr own = attachment();
    EXPECT_EQ(countOf(added), 3);
    EXPECT_EQ(countOf(own), 2);
    command->undo();
    EXPECT_EQ(countOf(added), 2);
    EXPECT_EQ(countOf(own), 1);
    command->redo();
    EXPECT_EQ(countOf(added), 3);
    EXPECT_EQ(countOf(own), 2);
    command.reset();
    EXPECT_EQ(countOf(added), 2);
    EXPECT_EQ(countOf(own), 1);
    EXPECT_EQ(order(), "[X]");
}

TEST_F(ksAddTransformVariantUndoCommandTest, DestroysWhatOnlyItHolds)
{
    std::optional<Command> command;
    command.emplace(child, added, 0, nullptr, notification());
    const osg::UInt32 id = added.get().getFieldContainerId();
    const long long x = addedId();
    added = osg::NullFC;
    command->redo();
    const long long own = recorder.idOf(attachment());
    const osg::UInt32 ownId = attachment().getFieldContainerId();
    command->undo();
    forget();
    command.reset();
    const ksRecords records = recorder.take();
    EXPECT_THAT(records.destroyed, testing::ElementsAre(x, x - 1, own)) << "first the variant";
    EXPECT_EQ(ksFindContainer<osg::FieldContainerPtr>(id), osg::NullFC);
    EXPECT_EQ(ksFindContainer<osg::FieldContainerPtr>(ownId), osg::NullFC);
}

TEST_F(ksAddTransformVariantUndoCommandTest, InsertsIntoTheAttachmentThatIsThere)
{
    addVariants(child, "abc");
    const osg::TransformVariantsAttachmentPtr there = attachment();
    const long long list = recorder.idOf(there);
    Command command = add(1);
    forget();
    command.redo();
    EXPECT_EQ(recorder.take(), ksRecords().addRef(addedId()).change(list, variantsMask));
    EXPECT_EQ(countOf(there), 1);
    command.undo();
    EXPECT_EQ(recorder.take(), ksRecords().subRef(addedId()).change(list, variantsMask));
    command.redo();
    EXPECT_THAT(take(), testing::ElementsAre("1: [aXbc]", "1: [abc]", "1: [aXbc]"));
    EXPECT_EQ(attachment(), there);
}

TEST_F(ksAddTransformVariantUndoCommandTest, InsertsAtAnyIndex)
{
    addVariants(child, "abc");
    for (const auto &[index, expected] :
         std::vector<std::pair<unsigned long, const char *>>{{0, "[Xabc]"}, {2, "[abXc]"}, {3, "[abcX]"}}) {
        Command command = add(index);
        command.redo();
        EXPECT_EQ(order(), expected);
        command.undo();
        EXPECT_EQ(order(), "[abc]");
    }
}

TEST_F(ksAddTransformVariantUndoCommandTest, LeavesAnAttachmentThatWasThereAlsoWhenItBecomesEmpty)
{
    addVariants(child, "");
    const osg::TransformVariantsAttachmentPtr there = attachment();
    Command command = add(0);
    command.redo();
    command.undo();
    command.redo();
    command.undo();
    EXPECT_THAT(take(), testing::ElementsAre("0: [X]", "0: []", "0: [X]", "0: []"));
    EXPECT_EQ(attachment(), there);
}

TEST_F(ksAddTransformVariantUndoCommandTest, LeavesItsOwnAttachmentWhileItIsNotEmpty)
{
    Command command = add(0);
    command.redo();
    ksNodeUtils::insertTransformVariant(child, 1, variant("y"));
    command.undo();
    EXPECT_EQ(order(), "[y]");
    command.redo();
    EXPECT_EQ(order(), "[Xy]");
}

TEST_F(ksAddTransformVariantUndoCommandTest, UsesTheAttachmentThatCameInTheMeantime)
{
    Command command = add(0);
    command.redo();
    const osg::TransformVariantsAttachmentPtr own = attachment();
    command.undo();
    addVariants(child, "y");
    const osg::TransformVariantsAttachmentPtr other = attachment();
    command.redo();
    EXPECT_EQ(order(), "[Xy]");
    EXPECT_EQ(attachment(), other);
    EXPECT_EQ(countOf(own), 1);
    command.undo();
    EXPECT_EQ(order(), "[y]");
}

TEST_F(ksAddTransformVariantUndoCommandTest, TakesAwayWhateverAttachmentIsEmptyOnceItHasCreatedOne)
{
    Command command = add(0);
    command.redo();
    command.undo();
    addVariants(child, "");
    command.redo();
    command.undo();
    EXPECT_EQ(order(), "none");
}

TEST_F(ksAddTransformVariantUndoCommandTest, CreatesAnotherAttachmentWhenItsOwnHasGone)
{
    Command command = add(0);
    command.redo();
    osg::TransformVariantsAttachmentPtr own = attachment();
    command.undo();
    {
        const ksSlotSwap swap(own.getFieldContainerId(), osg::NullFC);
        command.redo();
        EXPECT_NE(attachment(), own);
        EXPECT_EQ(order(), "[X]");
    }
    const osg::TransformVariantsAttachmentPtr second = attachment();
    command.undo();
    EXPECT_EQ(order(), "none");
    command.redo();
    EXPECT_EQ(attachment(), second) << "the second one is the command's own now";
    EXPECT_EQ(countOf(own), 1) << "which was taken for gone";
    osg::subRefCP(own);
}

TEST_F(ksAddTransformVariantUndoCommandTest, RemovesWhateverStandsAtItsIndex)
{
    addVariants(child, "abc");
    Command command = add(1);
    command.redo();
    ksNodeUtils::insertTransformVariant(child, 0, variant("y"));
    ASSERT_EQ(order(), "[yaXbc]");
    command.undo();
    EXPECT_EQ(order(), "[yXbc]");
}

TEST_F(ksAddTransformVariantUndoCommandTest, RemovesAndNotifiesWhenUndoComesFirst)
{
    addVariants(child, "a");
    Command command = add(0);
    command.undo();
    EXPECT_THAT(take(), testing::ElementsAre("0: []")) << "the attachment is not its own";
    Command bare =
        Command(node, added, 0, nullptr, [this](unsigned int, int) { notified.push_back("bare"); });
    bare.undo();
    EXPECT_THAT(take(), testing::ElementsAre("bare"));
}

TEST_F(ksAddTransformVariantUndoCommandTest, PassesItsIndexOnUnchanged)
{
    addVariants(child, "abc");
    Command beyond = add(10);
    beyond.redo();
    beyond.undo();
    EXPECT_THAT(take(), testing::ElementsAre("10: [abcX]", "10: [abcX]"));
    Command wide = add((1ul << 32) + 1);
    wide.redo();
    wide.undo();
    EXPECT_THAT(take(), testing::ElementsAre("1: [abcXX]", "1: [acXX]"));
}

TEST_F(ksAddTransformVariantUndoCommandTest, AddsNothingWithoutAVariant)
{
    addVariants(child, "a");
    Command command(child, osg::NullFC, 0, nullptr, notification());
    forget();
    command.redo();
    EXPECT_EQ(recorder.take(), ksRecords());
    EXPECT_THAT(take(), testing::IsEmpty());
    command.undo();
    EXPECT_THAT(take(), testing::ElementsAre("0: []")) << "undo asks for no variant";
}

TEST_F(ksAddTransformVariantUndoCommandTest, AddsNothingWhileItsVariantsIdNamesSomethingElse)
{
    Command command = add(0);
    for (const osg::FieldContainerPtr &other :
         {osg::FieldContainerPtr(node.get()), osg::FieldContainerPtr()}) {
        const ksSlotSwap swap(added.get().getFieldContainerId(), other);
        command.redo();
        EXPECT_EQ(order(), "none") << "not even an attachment";
    }
    EXPECT_THAT(take(), testing::IsEmpty());
    command.redo();
    EXPECT_EQ(order(), "[X]");
}

TEST_F(ksAddTransformVariantUndoCommandTest, IsIdleWithoutANode)
{
    Command nowhere(osg::NullFC, added, 0, nullptr, notification());
    Command fresh = add(0);
    Command applied = add(0);
    applied.redo();
    {
        const ksSlotSwap swap(childId, child->getCore());
        take();
        expectIdle(fresh);
    }
    destroyChild();
    for (Command *command : {&nowhere, &fresh, &applied})
        expectIdle(*command);
    EXPECT_THAT(take(), testing::IsEmpty());
}

TEST_F(ksAddTransformVariantUndoCommandTest, ReleasesItsReferencesAfterTheNodeHasGone)
{
    {
        Command command = add(0);
        command.redo();
        const osg::TransformVariantsAttachmentPtr own = attachment();
        destroyChild();
        EXPECT_EQ(countOf(own), 1);
        EXPECT_EQ(countOf(added), 3);
    }
    EXPECT_EQ(countOf(added), 1);
}

TEST_F(ksAddTransformVariantUndoCommandTest, ThrowsAfterItHasChangedTheSceneWithoutANotification)
{
    Command command(child, added, 0, nullptr, {});
    EXPECT_THROW(command.redo(), std::bad_function_call);
    EXPECT_EQ(order(), "[X]");
    EXPECT_THROW(command.undo(), std::bad_function_call);
    EXPECT_EQ(order(), "none");
    destroyChild();
    EXPECT_NO_THROW(command.redo());
}

TEST_F(ksAddTransformVariantUndoCommandTest, LetsGoOfItsNotification)
{
    auto held = std::make_shared<int>();
    const std::weak_ptr<int> watch = held;
    {
        const Command command(child, added, 0, nullptr, [held](unsigned int, int) {});
        held.reset();
        EXPECT_FALSE(watch.expired());
    }
    EXPECT_TRUE(watch.expired());
}

TEST_F(ksAddTransformVariantUndoCommandTest, IsCalledByTheNodeUntranslated)
{
    const ksEchoTranslator translator;
    const auto textFor = [this](const osg::NodePtr &target) {
        return Command(target, added, 0, nullptr, {}).text().toStdString();
    };
    EXPECT_EQ(textFor(node), "Insert transform variant 'Box'");
    EXPECT_EQ(textFor(group), "Insert transform variant 'Group'");
    EXPECT_EQ(textFor(osg::NullFC), "Insert transform variant ''");
    osg::setName(node.get(), "K\xc3\xb6rper %1");
    EXPECT_EQ(textFor(node), "Insert transform variant 'K\xc3\xb6rper %1'");
}

TEST_F(ksAddTransformVariantUndoCommandTest, TellsItsIdAndBelongsToItsParent)
{
    QUndoCommand parent;
    const auto *command = new Command(child, added, 0, &parent, {});
    EXPECT_EQ(parent.child(0), command);
    EXPECT_EQ(command->id(), Command::commandId());
    EXPECT_EQ(ksMessageOf(*command), "id=int:" + std::to_string(Command::commandId()));
}

TEST_F(ksAddTransformVariantUndoCommandTest, NeverMerges)
{
    Command older = add(0);
    Command newer = add(0);
    expectNoMerge(older, newer);

    ksUndoStack stack;
    for (const char *name : {"a", "b", "c"}) {
        auto *command = new Command(child, variant(name), 0, nullptr, notification());
        command->setMergeResponseDelta(-1.0);
        stack.add(command);
    }
    EXPECT_EQ(stack.count(), 3);
    EXPECT_EQ(order(), "[cba]");
    for (const char *expected : {"[ba]", "[a]", "none"}) {
        stack.undo();
        EXPECT_EQ(order(), expected);
    }
    for (const char *expected : {"[a]", "[ba]", "[cba]"}) {
        stack.redo();
        EXPECT_EQ(order(), expected);
    }
}
