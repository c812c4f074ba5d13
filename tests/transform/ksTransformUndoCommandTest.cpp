// SPDX-License-Identifier: MIT
#include "ksMergeForm.h"
#include "ksTransformFixture.h"

#include <ksundo/transform/ksTransformUndoCommand.h>

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
    FactorCommand command(bool modeFlag, int index) const
    {
        return FactorCommand(QStringLiteral("Verb"), node, 1, modeFlag, nullptr, index);
    }
};

} // namespace

TEST_F(ksTransformUndoCommandTest, HasAConstructorPerWayToMerge)
{
    QUndoCommand parent;
    const QString verb = QStringLiteral("Verb");
    FactorCommand *const commands[] = {new FactorCommand(verb, node, 1, true, &parent, 3),
                                       new FactorCommand(verb, node, 1, true, false, &parent, 3),
                                       new FactorCommand(verb, node, 1, true, true, &parent, 3),
                                       new FactorCommand(verb, node, 1, true, 2.0, &parent, 3)};
    const FactorCommand older(verb, node, 1, true, nullptr, 3);
    std::vector<double> windows;
    for (int i = 0; i < 4; ++i) {
        EXPECT_EQ(parent.child(i), commands[i]);
        EXPECT_TRUE(commands[i]->modeFlag);
        EXPECT_EQ(commands[i]->index, 3);
        EXPECT_EQ(commands[i]->text(), QStringLiteral("Verb 'Box'"));
        windows.push_back(ksMergeWindow(older, *commands[i]));
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
