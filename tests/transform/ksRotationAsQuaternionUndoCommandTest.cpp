// SPDX-License-Identifier: MIT
#include "ksFunctionTarget.h"
#include "ksTransformFixture.h"

#include <ksundo/core/ksUndoStack.h>
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

TEST_F(ksRotationAsQuaternionUndoCommandTest, ExchangesTheQuaternionAtEveryStep)
{
    const Quaternion before = rotation();
    Command command(QString(), node, target, nullptr);
    EXPECT_EQ(rotation(), before);
    command.redo();
    EXPECT_EQ(rotation(), target);
    EXPECT_EQ(stored(command), before);
    command.undo();
    EXPECT_EQ(rotation(), before);
    EXPECT_EQ(stored(command), target);
    command.redo();
    EXPECT_EQ(rotation(), target);
}

TEST_F(ksRotationAsQuaternionUndoCommandTest, ExchangesAsWellWhenUndoComesFirst)
{
    const Quaternion before = rotation();
    Command command(QString(), node, target, nullptr);
    command.undo();
    EXPECT_EQ(rotation(), target);
    command.redo();
    EXPECT_EQ(rotation(), before);
}

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

TEST_F(ksRotationAsQuaternionUndoCommandTest, MarksBothFieldsInOneEditPerStep)
{
    const ksRecords edit =
        ksRecords().change(recorder.idOf(node->getCore()),
                           osg::Transform3D::RotationFieldMask | osg::Transform3D::EulerRotationFieldMask);
    Command command(QString(), node, target, nullptr);
    forget();
    command.redo();
    EXPECT_EQ(recorder.take(), edit);
    command.undo();
    EXPECT_EQ(recorder.take(), edit);
}

TEST_F(ksRotationAsQuaternionUndoCommandTest, TakesItsTextAsItStands)
{
    for (const char *text : {"", "Rotate", "Turn '%1'"})
        EXPECT_EQ(Command(QLatin1String(text), node, target, nullptr).text(), QLatin1String(text));
}

TEST_F(ksRotationAsQuaternionUndoCommandTest, BelongsToItsParent)
{
    QUndoCommand parent;
    const auto *command = new Command(QString(), node, target, &parent);
    ASSERT_EQ(parent.childCount(), 1);
    EXPECT_EQ(parent.child(0), command);
}

TEST_F(ksRotationAsQuaternionUndoCommandTest, DoesNotNameTheNodeInItsMessage)
{
    const Command command(QString(), node, target, nullptr);
    EXPECT_EQ(command.id(), Command::commandId());
    EXPECT_EQ(ksMessageOf(command),
              "id=int:" + std::to_string(Command::commandId()) + " transformCommand=bool:true");
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

TEST_F(ksRotationAsQuaternionUndoCommandTest, IsIdleWithoutANode)
{
    const Quaternion before = rotation();
    Command nowhere(QString(), osg::NullFC, target, nullptr);
    Command fresh(QString(), node, target, nullptr);
    Command applied(QString(), node, target, nullptr);
    applied.redo();
    {
        const ksSlotSwap swap(nodeId(), node->getCore());
        expectIdle(fresh);
    }
    destroyNode();
    for (Command *command : {&nowhere, &fresh, &applied})
        expectIdle(*command);
    EXPECT_EQ(stored(nowhere), target);
    EXPECT_EQ(stored(fresh), target);
    EXPECT_EQ(stored(applied), before);
}

TEST_F(ksRotationAsQuaternionUndoCommandTest, MergesOnTheSameNodeInTime)
{
    Command older(QStringLiteral("a"), node, target, nullptr);
    Command newer(QStringLiteral("b"), node, identity, nullptr);
    ksCommandTime::of(older) = 1000;
    ksCommandTime::of(newer) = 1000.375;
    EXPECT_TRUE(older.mergeWith(&newer));
    EXPECT_EQ(ksCommandTime::of(older), 1000.375);
    EXPECT_EQ(stored(older), target);
    ksCommandTime::of(newer) = 1001;
    EXPECT_FALSE(older.mergeWith(&newer));
    Command elsewhere(QString(), child, identity, nullptr);
    expectNoMerge(older, elsewhere);
}

TEST_F(ksRotationAsQuaternionUndoCommandTest, UndoesAMergedRunAtOnce)
{
    const Quaternion before = rotation();
    ksUndoStack stack;
    for (const Quaternion &value : {identity, Quaternion(1, 0, 0, 0), target}) {
        auto *command = new Command(QString(), node, value, nullptr);
        command->setMergeResponseDelta(-1.0);
        stack.add(command);
    }
    EXPECT_EQ(stack.count(), 1);
    EXPECT_EQ(rotation(), target);
    stack.undo();
    EXPECT_EQ(rotation(), before);
    stack.redo();
    EXPECT_EQ(rotation(), target);
}
