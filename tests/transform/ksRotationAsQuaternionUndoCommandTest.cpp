// SPDX-License-Identifier: MIT
#include "ksFunctionTarget.h"
#include "ksTransformFixture.h"

#include <ksundo/transform/ksRotationAsQuaternionUndoCommand.h>
#include <ksundo/transform/ksTransformUndoBaseCommand.h>

#include <OpenSG/OSGTransform.h>

#include <type_traits>

static_assert(!std::is_base_of_v<ksTransformUndoBaseCommand, ksRotationAsQuaternionUndoCommand>);

namespace {

using Command = ksRotationAsQuaternionUndoCommand;
using osg::Quaternion;

const Quaternion target(0.5f, 0.5f, -0.5f, 0.5f);
const Quaternion identity(0, 0, 0, 1);

class ksRotationAsQuaternionUndoCommandTest : public ksTransformFixture
{
protected:
    Quaternion rotation() const { return ownTransformOf(node)->getRotation(); }
    osg::Vec3f angles() const { return ownTransformOf(node)->getEulerRotation(); }

    static Quaternion stored(Command &command) { return ksFunctionTarget<Quaternion>::valueOf(command); }
};

} // namespace

TEST_F(ksRotationAsQuaternionUndoCommandTest, KeepsTheEulerAnglesInStep)
{
    const osg::Vec3f before = angles();
    Command command(QString(), node, target, nullptr);
    command.redo();
    EXPECT_EQ(angles(), ownTransformOf(node)->convertQuatToEuler(target, true));
    EXPECT_NE(angles(), before);
    command.undo();
    EXPECT_EQ(angles(), ownTransformOf(node)->convertQuatToEuler(rotation(), true));
    EXPECT_TRUE(angles().equals(before, 1e-4f));
}

TEST_F(ksRotationAsQuaternionUndoCommandTest, StoresTheIdentityForANodeWithoutItsTransform)
{
    const osg::NodeRefPtr coreless(osg::Node::create());
    const osg::NodeRefPtr upstream(nodeWith(osg::Transform::create()));
    for (const osg::NodePtr &other : {group.get(), coreless.get(), upstream.get()}) {
        Command command(QString(), other, target, nullptr);
        const auto before = scene();
        forget();
        command.redo();
        EXPECT_EQ(stored(command), identity);
        command.undo();
        EXPECT_EQ(stored(command), identity);
        EXPECT_EQ(scene(), before);
        EXPECT_EQ(recorder.take(), ksRecords());
    }
}

TEST_F(ksRotationAsQuaternionUndoCommandTest, ReadsAndLeavesNullAndOtherNodesAlone)
{
    Command command(QString(), node, target, nullptr);
    EXPECT_EQ(command.get(node), rotation());
    EXPECT_EQ(command.get(group), identity);
    EXPECT_EQ(command.get(osg::NullFC), identity);
    const auto before = scene();
    command.set(osg::NullFC, target);
    command.set(group, target);
    EXPECT_EQ(scene(), before);
    command.set(node, target);
    EXPECT_EQ(rotation(), target);
}
