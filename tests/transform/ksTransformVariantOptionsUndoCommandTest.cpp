// SPDX-License-Identifier: MIT
#include "ksTransformFixture.h"

#include <ksundo/core/ksUndoStack.h>
#include <ksundo/transform/ksTransformVariantOptionsUndoCommand.h>

#include <functional>
#include <memory>
#include <support/ksEchoTranslator.h>

namespace {

using Command = ksTransformVariantOptionsUndoCommand;

/// A variant with the flags 0x5, and a log of the flags that notifications find.
class ksTransformVariantOptionsUndoCommandTest : public ksTransformFixture
{
protected:
    ksTransformVariantOptionsUndoCommandTest() { variant->setApplyFlags(0x5); }

    Command command(unsigned long long flags)
    {
        return Command(variant, flags, nullptr, [this] { notified.push_back(this->flags()); });
    }

    osg::UInt64 flags() const { return variant->getApplyFlags(); }

    ksRecords edit() const
    {
        return ksRecords().change(recorder.idOf(variant), osg::TransformVariant::ApplyFlagsFieldMask);
    }

    std::vector<osg::UInt64> take() { return std::exchange(notified, {}); }

    osg::TransformVariantRefPtr variant{ksTransformFixture::variant("a")};
    std::vector<osg::UInt64> notified;
};

} // namespace

TEST_F(ksTransformVariantOptionsUndoCommandTest, SetsTheFlagsThenNotifiesAtEveryStep)
{
    Command command = this->command(0x3);
    EXPECT_EQ(flags(), 0x5u);
    command.redo();
    EXPECT_EQ(flags(), 0x3u);
    EXPECT_THAT(take(), testing::ElementsAre(0x3));
    command.undo();
    EXPECT_EQ(flags(), 0x5u);
    EXPECT_THAT(take(), testing::ElementsAre(0x5));
    command.redo();
    EXPECT_EQ(flags(), 0x3u);
    EXPECT_THAT(take(), testing::ElementsAre(0x3));
}

TEST_F(ksTransformVariantOptionsUndoCommandTest, KeepsAll64Bits)
{
    const osg::UInt64 all = std::numeric_limits<osg::UInt64>::max();
    for (const osg::UInt64 before : {osg::UInt64(0), all, osg::UInt64(1) << 63, osg::UInt64(1) << 32}) {
        variant->setApplyFlags(before);
        Command command = this->command(~before);
        command.redo();
        EXPECT_EQ(flags(), ~before);
        command.undo();
        EXPECT_EQ(flags(), before);
    }
}

TEST_F(ksTransformVariantOptionsUndoCommandTest, CapturesTheOldFlagsWhenItIsBuilt)
{
    Command command = this->command(0x3);
    variant->setApplyFlags(0x100);
    command.redo();
    EXPECT_EQ(flags(), 0x3u);
    variant->setApplyFlags(0x200);
    command.undo();
    EXPECT_EQ(flags(), 0x5u);
    command.redo();
    EXPECT_EQ(flags(), 0x3u);
}

TEST_F(ksTransformVariantOptionsUndoCommandTest, SetsTheOldFlagsWhenUndoComesFirst)
{
    Command command = this->command(0x3);
    variant->setApplyFlags(0x100);
    command.undo();
    EXPECT_EQ(flags(), 0x5u);
    EXPECT_THAT(take(), testing::ElementsAre(0x5));
}

TEST_F(ksTransformVariantOptionsUndoCommandTest, RecordsOneEditPerStepAndHoldsNoReference)
{
    forget();
    {
        Command command = this->command(0x5);
        EXPECT_EQ(recorder.take(), ksRecords());
        EXPECT_EQ(countOf(variant), 1);
        command.redo();
        EXPECT_EQ(recorder.take(), edit()) << "also when the flags are there already";
        command.undo();
        EXPECT_EQ(recorder.take(), edit());
    }
    EXPECT_EQ(recorder.take(), ksRecords());
    EXPECT_EQ(countOf(variant), 1);
}

TEST_F(ksTransformVariantOptionsUndoCommandTest, IsIdleWhenTheVariantHasGone)
{
    Command fresh = command(0x3);
    Command undone = command(0x3);
    undone.redo();
    undone.undo();
    Command applied = command(0x3);
    applied.redo();
    {
        const ksSlotSwap swap(variant.get().getFieldContainerId(), node.get());
        take();
        expectIdle(fresh);
    }
    variant = osg::NullFC;
    for (Command *command : {&fresh, &undone, &applied})
        expectIdle(*command);
    EXPECT_THAT(take(), testing::IsEmpty());
}

TEST_F(ksTransformVariantOptionsUndoCommandTest, ThrowsAfterItHasWrittenWithoutANotification)
{
    Command command(variant, 0x3, nullptr, {});
    EXPECT_THROW(command.redo(), std::bad_function_call);
    EXPECT_EQ(flags(), 0x3u);
    EXPECT_THROW(command.undo(), std::bad_function_call);
    EXPECT_EQ(flags(), 0x5u);
    variant = osg::NullFC;
    EXPECT_NO_THROW(command.redo());
}

TEST_F(ksTransformVariantOptionsUndoCommandTest, LetsGoOfItsNotification)
{
    auto held = std::make_shared<int>();
    const std::weak_ptr<int> watch = held;
    {
        const Command command(variant, 0x3, nullptr, [held] {});
        held.reset();
        EXPECT_FALSE(watch.expired());
    }
    EXPECT_TRUE(watch.expired());
}

TEST_F(ksTransformVariantOptionsUndoCommandTest, IsCalledByATranslatedText)
{
    EXPECT_EQ(command(1).text(), QStringLiteral("Transform Variant Options"));
    const ksEchoTranslator translator;
    EXPECT_EQ(command(1).text(),
              QStringLiteral("ksTransformVariantOptionsUndoCommand|Transform Variant Options"));
}

TEST_F(ksTransformVariantOptionsUndoCommandTest, TellsItsIdAndBelongsToItsParent)
{
    QUndoCommand parent;
    const auto *command = new Command(variant, 0x3, &parent, [] {});
    EXPECT_EQ(parent.child(0), command);
    EXPECT_EQ(command->id(), Command::commandId());
    EXPECT_EQ(ksMessageOf(*command), "id=int:" + std::to_string(Command::commandId()));
}

TEST_F(ksTransformVariantOptionsUndoCommandTest, NeverMerges)
{
    Command older = command(0x3);
    Command newer = command(0x1);
    expectNoMerge(older, newer);

    ksUndoStack stack;
    for (const unsigned long long flags : {1, 2}) {
        auto *command = new Command(variant, flags, nullptr, [] {});
        command->setMergeResponseDelta(-1.0);
        stack.add(command);
    }
    EXPECT_EQ(stack.count(), 2);
    stack.undo();
    EXPECT_EQ(flags(), 1u);
    stack.undo();
    EXPECT_EQ(flags(), 0x5u);
}
