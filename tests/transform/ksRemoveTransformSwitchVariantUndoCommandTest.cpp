// SPDX-License-Identifier: MIT
#include "ksTransformVariantFixture.h"

#include <ksundo/core/ksUndoStack.h>
#include <ksundo/transform/ksRemoveTransformSwitchVariantUndoCommand.h>

#include <functional>
#include <memory>
#include <optional>
#include <support/ksEchoTranslator.h>

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

TEST_F(ksRemoveTransformSwitchVariantUndoCommandTest, RecordsExactlyWhatItDoesWithOneOfSeveral)
{
    addVariants(child, "ab");
    const long long b = recorder.idOf(at(1));
    const long long list = recorder.idOf(attachment());
    std::optional<Command> command;
    command.emplace(child, 1, nullptr, notification());
    forget();
    command->redo();
    EXPECT_EQ(recorder.take(), ksRecords().subRef(b).change(list, variantsMask));
    command->undo();
    EXPECT_EQ(recorder.take(), ksRecords().addRef(b).change(list, variantsMask));
    command.reset();
    EXPECT_EQ(recorder.take(), ksRecords().subRef(b).subRef(list));
}

TEST_F(ksRemoveTransformSwitchVariantUndoCommandTest, CountsItsReferences)
{
    addVariants(child, "a");
    const osg::TransformVariantRefPtr a(at(0));
    const osg::TransformVariantsAttachmentRefPtr list(attachment());
    EXPECT_EQ(countOf(a), 2);
    EXPECT_EQ(countOf(list), 2);
    std::optional<Command> command;
    command.emplace(child, 0, nullptr, notification());
    EXPECT_EQ(countOf(a), 3);
    EXPECT_EQ(countOf(list), 3);
    command->redo();
    EXPECT_EQ(countOf(a), 2);
    EXPECT_EQ(countOf(list), 2);
    command->undo();
    EXPECT_EQ(countOf(a), 3);
    EXPECT_EQ(countOf(list), 3);
    command->redo();
    command.reset();
    EXPECT_EQ(countOf(a), 1);
    EXPECT_EQ(countOf(list), 1);
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

TEST_F(ksRemoveTransformSwitchVariantUndoCommandTest, PutsNothingBackWhileAnIdNamesSomethingElse)
{
    addVariants(child, "a");
    const osg::UInt32 variantId = at(0).getFieldContainerId();
    const osg::UInt32 attachmentId = attachment().getFieldContainerId();
    Command command = remove(0);
    command.redo();
    take();
    for (const osg::UInt32 id : {variantId, attachmentId}) {
        for (const osg::FieldContainerPtr &other :
             {osg::FieldContainerPtr(node.get()), osg::FieldContainerPtr()}) {
            const ksSlotSwap swap(id, other);
            forget();
            command.undo();
            EXPECT_EQ(recorder.take(), ksRecords());
        }
    }
    EXPECT_EQ(order(), "none");
    EXPECT_THAT(take(), testing::IsEmpty());
    command.undo();
    EXPECT_EQ(order(), "[a]");
}

TEST_F(ksRemoveTransformSwitchVariantUndoCommandTest, IsIdleWithoutANode)
{
    addVariants(child, "abc");
    Command nowhere(osg::NullFC, 0, nullptr, notification());
    Command fresh = remove(0);
    Command undone = remove(0);
    undone.redo();
    undone.undo();
    Command applied = remove(0);
    applied.redo();
    {
        const ksSlotSwap swap(childId, child->getCore());
        take();
        expectIdle(fresh);
    }
    destroyChild();
    for (Command *command : {&nowhere, &fresh, &undone, &applied})
        expectIdle(*command);
    EXPECT_THAT(take(), testing::IsEmpty());
}

TEST_F(ksRemoveTransformSwitchVariantUndoCommandTest, ThrowsAfterItHasChangedTheSceneWithoutANotification)
{
    addVariants(child, "a");
    Command command(child, 0, nullptr, {});
    EXPECT_THROW(command.redo(), std::bad_function_call);
    EXPECT_EQ(order(), "none");
    EXPECT_THROW(command.undo(), std::bad_function_call);
    EXPECT_EQ(order(), "[a]");
    destroyChild();
    EXPECT_NO_THROW(command.redo());
}

TEST_F(ksRemoveTransformSwitchVariantUndoCommandTest, LetsGoOfItsNotification)
{
    auto held = std::make_shared<int>();
    const std::weak_ptr<int> watch = held;
    {
        const Command command(child, 0, nullptr, [held](unsigned int, int) {});
        held.reset();
        EXPECT_FALSE(watch.expired());
    }
    EXPECT_TRUE(watch.expired());
}

TEST_F(ksRemoveTransformSwitchVariantUndoCommandTest, IsCalledByTheNodeUntranslated)
{
    const ksEchoTranslator translator;
    const auto textFor = [](const osg::NodePtr &target) {
        return Command(target, 0, nullptr, {}).text().toStdString();
    };
    EXPECT_EQ(textFor(node), "Remove transform variant 'Box'");
    EXPECT_EQ(textFor(group), "Remove transform variant 'Group'");
    EXPECT_EQ(textFor(osg::NullFC), "Remove transform variant ''");
    osg::setName(node.get(), "K\xc3\xb6rper %1");
    EXPECT_EQ(textFor(node), "Remove transform variant 'K\xc3\xb6rper %1'");
}

TEST_F(ksRemoveTransformSwitchVariantUndoCommandTest, TellsItsIdAndBelongsToItsParent)
{
    QUndoCommand parent;
    const auto *command = new Command(child, 0, &parent, {});
    EXPECT_EQ(parent.child(0), command);
    EXPECT_EQ(command->id(), Command::commandId());
    EXPECT_EQ(ksMessageOf(*command), "id=int:" + std::to_string(Command::commandId()));
}

TEST_F(ksRemoveTransformSwitchVariantUndoCommandTest, NeverMerges)
{
    addVariants(child, "abc");
    Command older = remove(0);
    Command newer = remove(0);
    expectNoMerge(older, newer);

    ksUndoStack stack;
    for (int i = 0; i < 3; ++i) {
        auto *command = new Command(child, 0, nullptr, notification());
        command->setMergeResponseDelta(-1.0);
        stack.add(command);
    }
    EXPECT_EQ(stack.count(), 3);
    EXPECT_EQ(order(), "none");
    for (const char *expected : {"[c]", "[bc]", "[abc]"}) {
        stack.undo();
        EXPECT_EQ(order(), expected);
    }
    for (const char *expected : {"[bc]", "[c]", "none"}) {
        stack.redo();
        EXPECT_EQ(order(), expected);
    }
}
