// SPDX-License-Identifier: MIT
#include "ksTransformVariantFixture.h"

#include <ksundo/core/ksMultiCommand.h>
#include <ksundo/transform/ksAddTransformVariantUndoCommand.h>
#include <ksundo/transform/ksRemoveTransformSwitchVariantUndoCommand.h>
#include <ksundo/transform/ksTransformVariantMoveCommand.h>
#include <ksundo/transform/ksTransformVariantNameUndoCommand.h>
#include <ksundo/transform/ksTransformVariantOptionsUndoCommand.h>

#include <functional>
#include <memory>

namespace {

/// A command without a notification.
struct Kind
{
    const char *name;
    std::function<QUndoCommand *(const osg::NodePtr &owner, const osg::TransformVariantPtr &loose,
                                 QUndoCommand *parent)>
        make;

    friend std::ostream &operator<<(std::ostream &stream, const Kind &kind) { return stream << kind.name; }
};

osg::TransformVariantPtr firstOf(const osg::NodePtr &owner)
{
    return ksNodeUtils::getTransformVariant(owner, 0);
}

const std::vector<Kind> kinds = {
    {"add",
     [](const auto &owner, const auto &loose, QUndoCommand *parent) {
         return new ksAddTransformVariantUndoCommand(owner, loose, 0, parent, {});
     }},
    {"remove",
     [](const auto &owner, const auto &, QUndoCommand *parent) {
         return new ksRemoveTransformSwitchVariantUndoCommand(owner, 0, parent, {});
     }},
    {"moveOne",
     [](const auto &owner, const auto &, QUndoCommand *parent) {
         return new ksTransformVariantMoveCommand(owner, 0, 1, parent, {});
     }},
    {"moveSeveral",
     [](const auto &owner, const auto &, QUndoCommand *parent) {
         return new ksTransformVariantMoveCommand(owner, std::vector<int>{2, 1}, 0, parent, {});
     }},
    {"rename",
     [](const auto &owner, const auto &, QUndoCommand *parent) {
         return new ksTransformVariantNameUndoCommand(firstOf(owner), "new", parent, {});
     }},
    {"setOptions",
     [](const auto &owner, const auto &, QUndoCommand *parent) {
         return new ksTransformVariantOptionsUndoCommand(firstOf(owner), 3, parent, {});
     }},
};

class ksTransformVariantCommandsTest : public ksTransformVariantFixture,
                                       public testing::WithParamInterface<Kind>
{
protected:
    osg::TransformVariantRefPtr loose{variant("x")};
};

} // namespace

INSTANTIATE_TEST_SUITE_P(, ksTransformVariantCommandsTest, testing::ValuesIn(kinds),
                         [](const auto &info) { return info.param.name; });

TEST_P(ksTransformVariantCommandsTest, ThrowAfterTheyHaveChangedTheSceneWithoutANotification)
{
    addVariants(child, "abc");
    const auto before = scene();
    const std::unique_ptr<QUndoCommand> command(GetParam().make(child, loose, nullptr));
    EXPECT_THROW(command->redo(), std::bad_function_call);
    EXPECT_NE(scene(), before);
    EXPECT_THROW(command->undo(), std::bad_function_call);
    EXPECT_EQ(scene(), before);
    destroyChild();
    EXPECT_NO_THROW(command->redo()) << "nothing happens then";
}

TEST_P(ksTransformVariantCommandsTest, AreTakenBackByTheirCompositeWithoutANotification)
{
    addVariants(child, "abc");
    const auto before = scene();
    ksMultiCommand multi{QString()};
    GetParam().make(child, loose, &multi);
    EXPECT_THROW(multi.redo(), std::bad_function_call);
    EXPECT_EQ(scene(), before);
}
