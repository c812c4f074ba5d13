// SPDX-License-Identifier: MIT
#include "ksFunctionTarget.h"
#include "ksTransformFixture.h"

#include <ksundo/core/ksUndoStack.h>

#include <stdexcept>
#include <support/ksSlotSwap.h>
#include <support/ksVirtualSlot.h>
#include <utility>

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

TEST_F(ksFunctionUndoCommandTest, ReadsOnceThenWritesOnceAtEveryStep)
{
    MaskCommand command(node, 5);
    command.redo();
    EXPECT_THAT(std::exchange(command.log, {}), testing::ElementsAre("get", "set 5"));
    command.undo();
    EXPECT_THAT(std::exchange(command.log, {}), testing::ElementsAre("get", "set 1"));
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

TEST_F(ksFunctionUndoCommandTest, KeepsItsValueWhileItFindsNoNode)
{
    MaskCommand command(node, 5);
    {
        const ksSlotSwap swap(nodeId(), node->getCore());
        command.redo();
        command.undo();
    }
    EXPECT_THAT(command.log, testing::IsEmpty());
    EXPECT_EQ(stored(command), 5u);
    command.redo();
    EXPECT_EQ(mask(), 5u) << "the command works again when the node is there again";
}

TEST_F(ksFunctionUndoCommandTest, MergesOnlyOnTheSameNode)
{
    MaskCommand older(node, 5);
    MaskCommand newer(child, 5);
    expectNoMerge(older, newer);
    MaskCommand nowhere(osg::NullFC, 5);
    expectNoMerge(older, nowhere);
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

TEST_F(ksFunctionUndoCommandTest, HasItsTwoHooksAfterTheOtherVirtualFunctions)
{
    using Command = ksFunctionUndoCommand<osg::UInt32>;
    EXPECT_EQ(ksVirtualSlot(&Command::get), 8u);
    EXPECT_EQ(ksVirtualSlot(&Command::set), 9u);
}
