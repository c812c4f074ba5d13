// SPDX-License-Identifier: MIT
#include "ksFunctionTarget.h"
#include "ksMergeForm.h"
#include "ksTransformFixture.h"

#include <ksundo/transform/ksEulerRotationOrderUndoCommand.h>

#include <type_traits>
#include <utility>

static_assert(std::is_base_of_v<ksTransformUndoCommand<std::string>, ksEulerRotationOrderUndoCommand>);

namespace {

using Command = ksEulerRotationOrderUndoCommand;

/// Box has the variants a, b and c; all transforms turn in the order YZX.
class ksEulerRotationOrderUndoCommandTest : public ksTransformFixture
{
protected:
    ksEulerRotationOrderUndoCommandTest() { addVariants(node, "abc"); }
    ~ksEulerRotationOrderUndoCommandTest() override { Command::setSyncFunction({}); }

    std::string order(int index = -1) const
    {
        return ksNodeUtils::getTransformNodeEulerRotationOrder(node, index);
    }

    Command::ChangeCallback callback(int watched = -1)
    {
        return [this, watched](unsigned int id, const std::string &written, int index) {
            events.push_back("callback " + std::to_string(id) + ' ' + written + ' ' + std::to_string(index) +
                             " at " + order(watched));
        };
    }

    void logSync()
    {
        Command::setSyncFunction([this](const osg::NodePtr &synced, const std::string &written) {
            events.push_back("sync " + std::to_string(synced.getFieldContainerId()) + ' ' + written + " at " +
                             order());
        });
    }

    ksTransformEvents take() { return std::exchange(events, {}); }

    std::string id() const { return std::to_string(nodeId()); }

    ksTransformEvents events;
};

} // namespace

TEST_F(ksEulerRotationOrderUndoCommandTest, ExchangesTheOrderAtEveryStep)
{
    for (const int index : {-1, 0, 2}) {
        Command command(node, "ZXY", nullptr, {}, index);
        EXPECT_EQ(order(index), "YZX");
        command.redo();
        EXPECT_EQ(order(index), "ZXY");
        command.undo();
        EXPECT_EQ(order(index), "YZX");
        command.redo();
        EXPECT_EQ(order(index), "ZXY");
    }
}

TEST_F(ksEulerRotationOrderUndoCommandTest, PassesAnyTextOn)
{
    for (const std::string text : {"", "xyz", "%1", "Z\xc3\xb6X"}) {
        Command command(node, text);
        command.redo();
        EXPECT_EQ(order(), text);
        EXPECT_EQ(command.get(node), text);
        command.undo();
        EXPECT_EQ(order(), "YZX");
    }
}

TEST_F(ksEulerRotationOrderUndoCommandTest, CallsTheCallbackThenTheSyncFunctionAfterItHasWritten)
{
    logSync();
    Command command(node, "ZXY", nullptr, callback());
    EXPECT_EQ(take(), ksTransformEvents());
    command.redo();
    EXPECT_THAT(take(),
                testing::ElementsAre("callback " + id() + " ZXY -1 at ZXY", "sync " + id() + " ZXY at ZXY"));
    command.undo();
    EXPECT_THAT(take(),
                testing::ElementsAre("callback " + id() + " YZX -1 at YZX", "sync " + id() + " YZX at YZX"));
}

TEST_F(ksEulerRotationOrderUndoCommandTest, CallsTheSyncFunctionOnlyForTheNodesOwnTransform)
{
    logSync();
    for (const int index : {0, 2}) {
        Command(node, "ZXY", nullptr, callback(index), index).redo();
        EXPECT_THAT(take(),
                    testing::ElementsAre("callback " + id() + " ZXY " + std::to_string(index) + " at ZXY"));
    }
    Command(node, "ZXY", nullptr, {}, -2).redo();
    EXPECT_EQ(take(), ksTransformEvents());
}

TEST_F(ksEulerRotationOrderUndoCommandTest, HasAConstructorPerWayToMerge)
{
    const Command older(node, "ZXY", nullptr, {}, 0);
    std::vector<double> windows;
    for (const ksMergeForm &form : {ksMergeForm(), ksMergeForm(true), ksMergeForm(false), ksMergeForm(2.0)}) {
        QUndoCommand parent;
        Command &newer = *ksBuilderOf<Command>(form, node, "XZY")(&parent, callback(0), 0);
        EXPECT_EQ(parent.child(0), &newer);
        EXPECT_EQ(newer.text(), older.text());
        windows.push_back(ksMergeWindow(older, newer));
        newer.redo();
        EXPECT_THAT(take(), testing::ElementsAre("callback " + id() + " XZY 0 at XZY"));
        newer.undo();
        take();
    }
    EXPECT_THAT(windows, testing::ElementsAre(0.375, 0.375, 0, 1.875));
}

TEST_F(ksEulerRotationOrderUndoCommandTest, MergesOnlyWithTheSameIndex)
{
    Command older(node, "ZXY");
    Command variant(node, "XZY", nullptr, {}, 0);
    expectNoMerge(older, variant);
}

TEST_F(ksEulerRotationOrderUndoCommandTest, ReadsAnEmptyOrderFromANodeWithoutATransform)
{
    logSync();
    Command command(group, "ZXY", nullptr, callback());
    command.redo();
    EXPECT_EQ(take().size(), 2u);
    EXPECT_EQ(ksFunctionTarget<std::string>::valueOf(command), "");
}
