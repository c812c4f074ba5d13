// SPDX-License-Identifier: MIT
#include "ksTransformFixture.h"

#include <ksundo/transform/ksTransformUndoCommand.h>

#include <support/ksVirtualSlot.h>
#include <type_traits>

static_assert(std::is_empty_v<ksTransformUndoBaseCommand> &&
              !std::is_polymorphic_v<ksTransformUndoBaseCommand>);
static_assert(std::is_convertible_v<ksTransformUndoCommand<float> *, ksTransformUndoBaseCommand *>);
static_assert(std::is_convertible_v<ksTransformUndoCommand<float> *, ksFunctionUndoCommand<float> *>);

namespace {

class FactorCommand : public ksTransformUndoCommand<float>
{
    KS_UNDO_COMMAND(FactorCommand)

public:
    using ksTransformUndoCommand::index;
    using ksTransformUndoCommand::ksTransformUndoCommand;
    using ksTransformUndoCommand::modeFlag;

    float get(osg::NodePtr) override { return 0; }
    void set(osg::NodePtr, float) override {}
};

class ksTransformUndoCommandTest : public ksTransformFixture
{
protected:
    static std::string textFor(const osg::NodePtr &target)
    {
        return FactorCommand(QStringLiteral("Verb"), target, 1, false).text().toStdString();
    }

    FactorCommand command(bool modeFlag, int index) const
    {
        return FactorCommand(QStringLiteral("Verb"), node, 1, modeFlag, nullptr, index);
    }
};

} // namespace

TEST_F(ksTransformUndoCommandTest, IsCalledByVerbAndNode)
{
    EXPECT_EQ(textFor(node), "Verb 'Box'");
}

TEST_F(ksTransformUndoCommandTest, IsCalledByTheCoreOfANodeWithoutAName)
{
    EXPECT_EQ(textFor(child), "Verb 'Transform3D'");
    EXPECT_EQ(textFor(group), "Verb 'Group'");
    osg::setName(child->getCore(), "Core");
    EXPECT_EQ(textFor(child), "Verb 'Core'");
}

TEST_F(ksTransformUndoCommandTest, IsCalledByTheVerbWhenThereIsNoName)
{
    EXPECT_EQ(textFor(osg::NullFC), "Verb ''");
    const osg::NodeRefPtr coreless(osg::Node::create());
    EXPECT_EQ(textFor(coreless), "Verb ''");
    osg::setName(node.get(), "");
    EXPECT_EQ(textFor(node), "Verb ''");
}

TEST_F(ksTransformUndoCommandTest, TakesNamesAsTheyAre)
{
    for (const std::string name : {"%1", "%2 '%1'", "a'b", "K\xc3\xb6rper \xe7\xae\xb1", " "}) {
        osg::setName(node.get(), name);
        EXPECT_EQ(textFor(node), "Verb '" + name + "'");
    }
    EXPECT_EQ(FactorCommand(QStringLiteral("Ändern"), node, 1, false).text(), QStringLiteral("Ändern ' '"));
}

TEST_F(ksTransformUndoCommandTest, HasAConstructorPerWayToMerge)
{
    QUndoCommand parent;
    const QString verb = QStringLiteral("Verb");
    FactorCommand *const commands[] = {new FactorCommand(verb, node, 1, true, &parent, 3),
                                       new FactorCommand(verb, node, 1, true, false, &parent, 3),
                                       new FactorCommand(verb, node, 1, true, true, &parent, 3),
                                       new FactorCommand(verb, node, 1, true, 2.0, &parent, 3)};
    FactorCommand older(verb, node, 1, true, nullptr, 3);
    ksCommandTime::of(older) = 1000;
    std::vector<double> windows;
    for (int i = 0; i < 4; ++i) {
        EXPECT_EQ(parent.child(i), commands[i]);
        EXPECT_TRUE(commands[i]->modeFlag);
        EXPECT_EQ(commands[i]->index, 3);
        EXPECT_EQ(commands[i]->text(), QStringLiteral("Verb 'Box'"));
        double window = 0;
        for (const double distance : {0.375, 1.875, 2.125}) {
            ksCommandTime::of(*commands[i]) = 1000 + distance;
            if (older.canMergeWith(commands[i]))
                window = distance;
        }
        windows.push_back(window);
    }
    EXPECT_THAT(windows, testing::ElementsAre(0.375, 0, 0.375, 1.875));
}

TEST_F(ksTransformUndoCommandTest, MergesOnlyInTheSameModeWithTheSameIndex)
{
    for (const bool mode : {false, true}) {
        for (const int index : {-1, 0, 2}) {
            FactorCommand older = command(mode, index);
            FactorCommand newer = command(mode, index);
            EXPECT_TRUE(older.canMergeWith(&newer));
            FactorCommand otherMode = command(!mode, index);
            expectNoMerge(older, otherMode);
            FactorCommand otherIndex = command(mode, index + 1);
            expectNoMerge(older, otherIndex);
        }
    }
}

TEST_F(ksTransformUndoCommandTest, MergesOnlyAsAFunctionCommandWould)
{
    FactorCommand older = command(true, 1);
    FactorCommand otherNode(QStringLiteral("Verb"), child, 1, true, nullptr, 1);
    expectNoMerge(older, otherNode);
    FactorCommand newer = command(true, 1);
    ksCommandTime::of(newer) = ksCommandTime::of(older) + 0.5;
    EXPECT_FALSE(older.mergeWith(&newer));
    newer.setMergeResponseDelta(1.0);
    EXPECT_TRUE(older.mergeWith(&newer));
    newer.setMergeEnabled(false);
    EXPECT_FALSE(older.mergeWith(&newer));
}

TEST_F(ksTransformUndoCommandTest, TellsTheNodeAndThatItIsATransformCommand)
{
    const FactorCommand command(QStringLiteral("Verb"), node, 1, false);
    EXPECT_EQ(ksMessageOf(command), "id=int:" + std::to_string(FactorCommand::commandId()) + " node=uint:" +
                                        std::to_string(nodeId()) + " transformCommand=bool:true");
}

TEST_F(ksTransformUndoCommandTest, KeepsTheOrderOfVirtualFunctions)
{
    using Command = ksTransformUndoCommand<float>;
    EXPECT_EQ(ksVirtualSlot(&Command::undo), 2u);
    EXPECT_EQ(ksVirtualSlot(&Command::redo), 3u);
    EXPECT_EQ(ksVirtualSlot(&Command::mergeWith), 5u);
    EXPECT_EQ(ksVirtualSlot(&Command::makeMessage), 6u);
    EXPECT_EQ(ksVirtualSlot(&Command::canMergeWith), 7u);
    EXPECT_EQ(ksVirtualSlot(&Command::get), 8u);
    EXPECT_EQ(ksVirtualSlot(&Command::set), 9u);
}
