// SPDX-License-Identifier: MIT
#include "ksTransformFixture.h"

#include <ksundo/transform/ksTransformVariantOptionsUndoCommand.h>

#include <limits>
#include <utility>

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
