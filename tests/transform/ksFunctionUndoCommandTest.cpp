// SPDX-License-Identifier: MIT
#include "ksFunctionTarget.h"
#include "ksTransformFixture.h"

#include <ksundo/core/ksUndoStack.h>

#include <stdexcept>
#include <support/ksVirtualSlot.h>

namespace {

/// Sets a node's traversal mask and logs how it is asked to.
template <int kind = 0>
class MaskCommand : public ksFunctionUndoCommand<osg::UInt32>
{
    KS_UNDO_COMMAND(MaskCommand)

public:
    MaskCommand(const osg::NodePtr &node, osg::UInt32 mask, QUndoCommand *parent = nullptr)
        : ksFunctionUndoCommand(QStringLiteral("Mask"), node, mask, parent)
    {}

    osg::UInt32 get(osg::NodePtr node) override
    {
        log.push_back("get");
        return node->getTravMask();
    }

    void set(osg::NodePtr node, osg::UInt32 mask) override
    {
        log.push_back("set " + std::to_string(mask));
        if (failing)
            throw std::runtime_error("no");
        node->setTravMask(mask);
    }

    ksTransformEvents log;
    bool failing = false;
};

/// A value without a default, without comparison, and not to be moved.
struct Opaque
{
    explicit Opaque(int number)
        : number(number)
    {}
    Opaque(const Opaque &) = default;
    Opaque &operator=(const Opaque &) = default;

    int number;
};

class OpaqueCommand : public ksFunctionUndoCommand<Opaque>
{
    KS_UNDO_COMMAND(OpaqueCommand)

public:
    using ksFunctionUndoCommand::ksFunctionUndoCommand;

    Opaque get(osg::NodePtr) override { return current; }
    void set(osg::NodePtr, Opaque value) override { current = value; }

    Opaque current{1};
};

/// Refuses what the template would merge.
class LonelyCommand : public MaskCommand<1>
{
public:
    using MaskCommand::MaskCommand;

    bool canMergeWith(const QUndoCommand *) const override { return false; }
};

/// Counts the calls of redo().
class CountingCommand : public MaskCommand<2>
{
public:
    using MaskCommand::MaskCommand;

    void redo() override
    {
        ++redos;
        MaskCommand::redo();
    }

    int redos = 0;
};

class ksFunctionUndoCommandTest : public ksTransformFixture
{
protected:
    ksFunctionUndoCommandTest() { node->setTravMask(1); }

    osg::UInt32 mask() const { return node->getTravMask(); }

    template <int kind>
    static osg::UInt32 stored(MaskCommand<kind> &command)
    {
        return ksFunctionTarget<osg::UInt32>::valueOf(command);
    }
};

} // namespace

TEST_F(ksFunctionUndoCommandTest, ExchangesTheValueAtEveryStep)
{
    MaskCommand command(node, 5);
    EXPECT_EQ(stored(command), 5u);
    command.redo();
    EXPECT_EQ(mask(), 5u);
    EXPECT_EQ(stored(command), 1u);
    command.undo();
    EXPECT_EQ(mask(), 1u);
    EXPECT_EQ(stored(command), 5u);
    command.redo();
    EXPECT_EQ(mask(), 5u);
    EXPECT_EQ(stored(command), 1u);
}

TEST_F(ksFunctionUndoCommandTest, ExchangesAsWellWhenUndoComesFirst)
{
    MaskCommand command(node, 5);
    command.undo();
    EXPECT_EQ(mask(), 5u);
    EXPECT_EQ(stored(command), 1u);
    command.redo();
    EXPECT_EQ(mask(), 1u);
}

TEST_F(ksFunctionUndoCommandTest, TogglesHoweverOftenAndInWhateverOrder)
{
    MaskCommand command(node, 5);
    for (int i = 0; i < 10; ++i) {
        i % 3 == 0 ? command.undo() : command.redo();
        EXPECT_EQ(mask(), i % 2 == 0 ? 5u : 1u);
    }
}

TEST_F(ksFunctionUndoCommandTest, ReadsOnceThenWritesOnceAtEveryStep)
{
    MaskCommand command(node, 5);
    command.redo();
    EXPECT_THAT(std::exchange(command.log, {}), testing::ElementsAre("get", "set 5"));
    command.undo();
    EXPECT_THAT(std::exchange(command.log, {}), testing::ElementsAre("get", "set 1"));
}

TEST_F(ksFunctionUndoCommandTest, WritesAlsoWhatIsThereAlready)
{
    MaskCommand command(node, 1);
    command.redo();
    EXPECT_THAT(command.log, testing::ElementsAre("get", "set 1"));
}

TEST_F(ksFunctionUndoCommandTest, TouchesNothingBeforeItRuns)
{
    forget();
    const MaskCommand command(node, 5);
    EXPECT_EQ(mask(), 1u);
    EXPECT_THAT(command.log, testing::IsEmpty());
    EXPECT_EQ(recorder.take(), ksRecords());
    EXPECT_EQ(countOf(node), 2);
}

TEST_F(ksFunctionUndoCommandTest, RestoresWhatItFindsNotWhatWasThereWhenBuilt)
{
    MaskCommand command(node, 5);
    node->setTravMask(7);
    command.redo();
    node->setTravMask(9);
    command.undo();
    EXPECT_EQ(mask(), 7u);
    EXPECT_EQ(stored(command), 9u);
}

TEST_F(ksFunctionUndoCommandTest, UndoesThroughTheOverriddenRedo)
{
    CountingCommand command(node, 5);
    command.undo();
    EXPECT_EQ(command.redos, 1);
}

TEST_F(ksFunctionUndoCommandTest, KeepsItsValueWhenTheSetterThrows)
{
    MaskCommand command(node, 5);
    command.failing = true;
    EXPECT_THROW(command.redo(), std::runtime_error);
    EXPECT_EQ(stored(command), 5u);
    EXPECT_EQ(mask(), 1u);
}

TEST_F(ksFunctionUndoCommandTest, TakesAnyValueThatCanBeCopiedAndAssigned)
{
    OpaqueCommand command(QString(), node, Opaque(2));
    command.redo();
    EXPECT_EQ(command.current.number, 2);
    command.undo();
    EXPECT_EQ(command.current.number, 1);
}

TEST_F(ksFunctionUndoCommandTest, TakesTextAndParentAsGiven)
{
    QUndoCommand parent;
    auto *command = new OpaqueCommand(QStringLiteral("a '%1'"), node, Opaque(2), &parent);
    EXPECT_EQ(command->text(), QStringLiteral("a '%1'"));
    ASSERT_EQ(parent.childCount(), 1);
    EXPECT_EQ(parent.child(0), command);
}

TEST_F(ksFunctionUndoCommandTest, IsIdleWithANullNode)
{
    MaskCommand command(osg::NullFC, 5);
    EXPECT_EQ(ksFunctionTarget<osg::UInt32>::idOf(command), 0u);
    expectIdle(command);
    EXPECT_THAT(command.log, testing::IsEmpty());
    EXPECT_EQ(stored(command), 5u);
    EXPECT_EQ(ksMessageOf(command), "id=int:" + std::to_string(command.id()) + " node=uint:0");
}

TEST_F(ksFunctionUndoCommandTest, IsIdleWhenTheNodeWentBeforeTheRedo)
{
    MaskCommand command(node, 5);
    const osg::UInt32 id = nodeId();
    destroyNode();
    expectIdle(command);
    EXPECT_THAT(command.log, testing::IsEmpty());
    EXPECT_EQ(stored(command), 5u);
    EXPECT_EQ(ksMessageOf(command),
              "id=int:" + std::to_string(command.id()) + " node=uint:" + std::to_string(id));
}

TEST_F(ksFunctionUndoCommandTest, IsIdleWhenTheNodeWentBeforeTheUndo)
{
    MaskCommand command(node, 5);
    command.redo();
    command.log.clear();
    destroyNode();
    expectIdle(command);
    EXPECT_THAT(command.log, testing::IsEmpty());
    EXPECT_EQ(stored(command), 1u);
}

TEST_F(ksFunctionUndoCommandTest, IsIdleWhenTheNodeWentBeforeTheSecondRedo)
{
    MaskCommand command(node, 5);
    command.redo();
    command.undo();
    command.log.clear();
    destroyNode();
    expectIdle(command);
    EXPECT_THAT(command.log, testing::IsEmpty());
    EXPECT_EQ(stored(command), 5u);
}

TEST_F(ksFunctionUndoCommandTest, IsIdleWhileItsIdNamesAnotherKindOfContainerOrNone)
{
    MaskCommand command(node, 5);
    for (const osg::FieldContainerPtr &other :
         {osg::FieldContainerPtr(node->getCore()), osg::FieldContainerPtr()}) {
        {
            const ksSlotSwap swap(nodeId(), other);
            command.redo();
            command.undo();
        }
        EXPECT_THAT(command.log, testing::IsEmpty());
        EXPECT_EQ(stored(command), 5u);
    }
    command.redo();
    EXPECT_EQ(mask(), 5u) << "the command works again when the node is there again";
}

TEST_F(ksFunctionUndoCommandTest, IsIdleWithAnIdThatWasNeverGiven)
{
    MaskCommand command(node, 5);
    for (const osg::UInt32 beyond :
         {osg::UInt32(osg::FieldContainerFactory::the()->getFieldContainerStore()->size()),
          std::numeric_limits<osg::UInt32>::max()}) {
        ksFunctionTarget<osg::UInt32>::idOf(command) = beyond;
        expectIdle(command);
        EXPECT_THAT(command.log, testing::IsEmpty());
    }
}

TEST_F(ksFunctionUndoCommandTest, HoldsNoReferenceOnTheNode)
{
    {
        MaskCommand command(node, 5);
        command.redo();
        EXPECT_EQ(countOf(node), 2);
    }
    EXPECT_EQ(countOf(node), 2);
}

TEST_F(ksFunctionUndoCommandTest, MergesWithALaterCommandOnTheSameNode)
{
    MaskCommand older(node, 5);
    MaskCommand newer(node, 6);
    ksCommandTime::of(older) = 1000;
    ksCommandTime::of(newer) = 1000.25;
    EXPECT_TRUE(older.canMergeWith(&newer));
    EXPECT_EQ(ksCommandTime::of(older), 1000);
    EXPECT_TRUE(older.mergeWith(&newer));
    EXPECT_EQ(ksCommandTime::of(older), 1000.25);
    EXPECT_EQ(stored(older), 5u);
    EXPECT_EQ(stored(newer), 6u);
}

TEST_F(ksFunctionUndoCommandTest, MergesOnlyOnTheSameNode)
{
    MaskCommand older(node, 5);
    MaskCommand newer(child, 5);
    expectNoMerge(older, newer);
    MaskCommand nowhere(osg::NullFC, 5);
    expectNoMerge(older, nowhere);
}

TEST_F(ksFunctionUndoCommandTest, MergesOnlyWithTheSameClass)
{
    MaskCommand<0> older(node, 5);
    MaskCommand<7> newer(node, 5);
    expectNoMerge(older, newer);
}

TEST_F(ksFunctionUndoCommandTest, MergesOnlyWithinTheNewcomersWindow)
{
    MaskCommand older(node, 5);
    MaskCommand newer(node, 6);
    ksCommandTime::of(older) = 1000;
    ksCommandTime::of(newer) = 1000.5;
    older.setMergeResponseDelta(-1.0);
    EXPECT_FALSE(older.mergeWith(&newer));
    EXPECT_EQ(ksCommandTime::of(older), 1000);
    newer.setMergeResponseDelta(0.5);
    EXPECT_FALSE(older.mergeWith(&newer));
    newer.setMergeResponseDelta(0.75);
    EXPECT_TRUE(older.mergeWith(&newer));
}

TEST_F(ksFunctionUndoCommandTest, MergesUnlessTheNewcomersSwitchIsOff)
{
    MaskCommand older(node, 5);
    MaskCommand newer(node, 6);
    older.setMergeEnabled(false);
    newer.setMergeResponseDelta(-1.0);
    EXPECT_TRUE(older.canMergeWith(&newer));
    newer.setMergeEnabled(false);
    EXPECT_FALSE(older.canMergeWith(&newer));
    EXPECT_FALSE(older.mergeWith(&newer));
}

TEST_F(ksFunctionUndoCommandTest, AsksTheOverriddenTestBeforeItMerges)
{
    LonelyCommand older(node, 5);
    LonelyCommand newer(node, 6);
    expectNoMerge(older, newer);
}

TEST_F(ksFunctionUndoCommandTest, UndoesAMergedRunAtOnce)
{
    ksUndoStack stack;
    for (const osg::UInt32 mask : {2, 3, 4}) {
        auto *command = new MaskCommand(node, mask);
        ksCommandTime::of(*command) = 1000 + 0.3 * mask;
        stack.add(command);
    }
    EXPECT_EQ(stack.count(), 1);
    EXPECT_EQ(mask(), 4u);
    stack.undo();
    EXPECT_EQ(mask(), 1u);
    stack.redo();
    EXPECT_EQ(mask(), 4u);
    stack.undo();
    EXPECT_EQ(mask(), 1u);
}

TEST_F(ksFunctionUndoCommandTest, KeepsTheOrderOfVirtualFunctions)
{
    using Command = ksFunctionUndoCommand<osg::UInt32>;
    EXPECT_EQ(ksVirtualSlot(&Command::undo), 2u);
    EXPECT_EQ(ksVirtualSlot(&Command::redo), 3u);
    EXPECT_EQ(ksVirtualSlot(&Command::id), 4u);
    EXPECT_EQ(ksVirtualSlot(&Command::mergeWith), 5u);
    EXPECT_EQ(ksVirtualSlot(&Command::makeMessage), 6u);
    EXPECT_EQ(ksVirtualSlot(&Command::canMergeWith), 7u);
    EXPECT_EQ(ksVirtualSlot(&Command::get), 8u);
    EXPECT_EQ(ksVirtualSlot(&Command::set), 9u);
}
