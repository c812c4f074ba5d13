// SPDX-License-Identifier: MIT
#include "ksTransformVariantFixture.h"

#include <ksundo/transform/ksAddTransformVariantUndoCommand.h>

#include <optional>
#include <support/ksSlotSwap.h>

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
    Command command(child, osg::NullFC, 0, nullptr, notification());
    command.redo();
    EXPECT_EQ(order(), "none") << "not even an attachment";
    EXPECT_THAT(take(), testing::IsEmpty());
    addVariants(child, "a");
    command.undo();
    EXPECT_THAT(take(), testing::ElementsAre("0: []")) << "undo asks for no variant";
}
