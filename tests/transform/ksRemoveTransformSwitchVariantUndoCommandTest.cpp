// SPDX-License-Identifier: MIT
#include "ksTransformVariantFixture.h"

#include <ksundo/transform/ksRemoveTransformSwitchVariantUndoCommand.h>

#include <optional>

namespace {

using Command = ksRemoveTransformSwitchVariantUndoCommand;

class ksRemoveTransformSwitchVariantUndoCommandTest : public ksTransformVariantFixture
{
protected:
    Command remove(unsigned long index) { return Command(child, index, nullptr, notification()); }
};

} // namespace

TEST_F(ksRemoveTransformSwitchVariantUndoCommandTest, RemovesTheAttachmentWithTheLastVariant)
{
    addVariants(child, "a");
    const osg::TransformVariantPtr variant = at(0);
    const osg::TransformVariantsAttachmentPtr captured = attachment();
    Command command = remove(0);
    EXPECT_EQ(order(), "[a]");
    for (int i = 0; i < 2; ++i) {
        command.redo();
        EXPECT_THAT(take(), testing::ElementsAre("0: none"));
        command.undo();
        EXPECT_THAT(take(), testing::ElementsAre("0: [a]"));
        EXPECT_EQ(at(0), variant) << "the very same one";
        EXPECT_EQ(attachment(), captured) << "the very same one";
    }
}

TEST_F(ksRemoveTransformSwitchVariantUndoCommandTest, RemovesAnyOfSeveralAndPutsItBack)
{
    addVariants(child, "abc");
    const osg::TransformVariantsAttachmentPtr captured = attachment();
    for (const auto &[index, expected] :
         std::vector<std::pair<unsigned long, const char *>>{{0, "[bc]"}, {1, "[ac]"}, {2, "[ab]"}}) {
        Command command = remove(index);
        const osg::TransformVariantPtr variant = at(index);
        const std::string start = std::to_string(index) + ": ";
        command.redo();
        EXPECT_THAT(take(), testing::ElementsAre(start + expected));
        EXPECT_EQ(attachment(), captured);
        command.undo();
        EXPECT_THAT(take(), testing::ElementsAre(start + "[abc]"));
        EXPECT_EQ(at(index), variant);
    }
}

TEST_F(ksRemoveTransformSwitchVariantUndoCommandTest, RecordsExactlyWhatItDoesWithTheLastVariant)
{
    addVariants(child, "a");
    const long long a = recorder.idOf(at(0));
    const long long list = recorder.idOf(attachment());
    forget();
    std::optional<Command> command;
    command.emplace(child, 0, nullptr, notification());
    EXPECT_EQ(recorder.take(), ksRecords().addRef(a).addRef(list));

    const ksRecords removed = ksRecords()
                                  .subRef(a)
                                  .change(list, variantsMask)
                                  .change(list, parentsMask)
                                  .subRef(list)
                                  .change(recorder.idOf(child), attachmentsMask);
    command->redo();
    EXPECT_EQ(recorder.take(), removed);
    command->undo();
    EXPECT_EQ(recorder.take(), attaching(list).addRef(a).change(list, variantsMask));
    command->redo();
    EXPECT_EQ(recorder.take(), removed);

    command.reset();
    const ksRecords last = recorder.take();
    EXPECT_THAT(last.destroyed, testing::ElementsAre(a, a - 1, list)) << "first the variant";
    EXPECT_THAT(last.subRefd, testing::IsEmpty());
}

TEST_F(ksRemoveTransformSwitchVariantUndoCommandTest, CapturesWhenItIsBuilt)
{
    addVariants(child, "abc");
    Command command = remove(1);
    ksNodeUtils::insertTransformVariant(child, 0, variant("y"));
    ASSERT_EQ(order(), "[yabc]");
    command.redo();
    EXPECT_EQ(order(), "[ybc]") << "whatever stands at the index";
    command.undo();
    EXPECT_EQ(order(), "[ybbc]") << "the variant that stood there when it was built";
}

TEST_F(ksRemoveTransformSwitchVariantUndoCommandTest, RemovesWithoutAVariantToPutBack)
{
    addVariants(child, "ab");
    Command command = remove(2);
    EXPECT_EQ(countOf(attachment()), 1) << "without a variant it holds no attachment";
    command.redo();
    EXPECT_THAT(take(), testing::ElementsAre("2: [ab]"));
    ksNodeUtils::insertTransformVariant(child, 2, variant("c"));
    command.redo();
    EXPECT_THAT(take(), testing::ElementsAre("2: [ab]"));
    const auto before = scene();
    command.undo();
    EXPECT_THAT(take(), testing::IsEmpty());
    EXPECT_EQ(scene(), before);
}

TEST_F(ksRemoveTransformSwitchVariantUndoCommandTest, FindsNoVariantWhereTheListHasANull)
{
    addVariants(child, "ab");
    attachment()->insertVariant(1, osg::NullFC);
    Command command = remove(1);
    EXPECT_EQ(countOf(attachment()), 1);
    command.redo();
    EXPECT_THAT(take(), testing::ElementsAre("1: [ab]"));
    command.undo();
    EXPECT_THAT(take(), testing::IsEmpty());
}

TEST_F(ksRemoveTransformSwitchVariantUndoCommandTest, NotifiesWithoutAnAttachment)
{
    Command command = remove(0);
    forget();
    command.redo();
    EXPECT_THAT(take(), testing::ElementsAre("0: none"));
    EXPECT_EQ(recorder.take(), ksRecords());
    command.undo();
    EXPECT_THAT(take(), testing::IsEmpty());
}

TEST_F(ksRemoveTransformSwitchVariantUndoCommandTest, RemovesAnEmptyAttachment)
{
    addVariants(child, "");
    Command command = remove(0);
    command.redo();
    EXPECT_THAT(take(), testing::ElementsAre("0: none"));
    command.undo();
    EXPECT_EQ(order(), "none");
    EXPECT_THAT(take(), testing::IsEmpty());
}

TEST_F(ksRemoveTransformSwitchVariantUndoCommandTest, PutsBackWhenUndoComesFirst)
{
    addVariants(child, "ab");
    Command command = remove(1);
    command.undo();
    EXPECT_THAT(take(), testing::ElementsAre("1: [abb]"));
    command.redo();
    EXPECT_THAT(take(), testing::ElementsAre("1: [ab]"));
}

TEST_F(ksRemoveTransformSwitchVariantUndoCommandTest, PutsBackIntoTheAttachmentThatCameInTheMeantime)
{
    addVariants(child, "a");
    const osg::TransformVariantsAttachmentRefPtr captured(attachment());
    Command command = remove(0);
    command.redo();
    addVariants(child, "y");
    const osg::TransformVariantsAttachmentPtr other = attachment();
    command.undo();
    EXPECT_EQ(order(), "[ay]");
    EXPECT_EQ(attachment(), other);
    EXPECT_EQ(countOf(captured), 2);
}

TEST_F(ksRemoveTransformSwitchVariantUndoCommandTest, PassesItsIndexOnUnchanged)
{
    addVariants(child, "abc");
    Command command = remove((1ul << 32) + 1);
    command.redo();
    EXPECT_THAT(take(), testing::ElementsAre("1: [ac]")) << "there is no variant to capture at that index";
    command.undo();
    EXPECT_THAT(take(), testing::IsEmpty());
}
