// SPDX-License-Identifier: MIT
#include <checker/history/ksCheckedHistory.h>
#include <checker/history/ksTranscript.h>
#include <editor/edits/ksConstraintEdits.h>
#include <editor/edits/ksTransformEdits.h>
#include <editor/history/ksRecord.h>
#include <tests/editor/ksTransformScene.h>

#include <ksundo/constraint/ksDeleteConstraintReferenceUndoCommand.h>
#include <ksundo/transform/ksRotationAsQuaternionUndoCommand.h>

#include <ksNodeUtils.h>

#include <sstream>

namespace {

using testing::HasSubstr;

class ksInexactUndoTest : public ksTransformScene
{
protected:
    ksInexactUndoTest()
    {
        CPEditAll(transformOf(root));
        transformOf(root)->setEulerRotation(osg::Vec3f(10, 20, 30));
        transformOf(root)->updateRotation();
    }

    void edit(ksCheckedHistory &history, const char *name, const ksTransformTarget &target,
              const osg::Vec3f &value) const
    {
        const ksTransformProperty *property = ksTransformEdits::find(QString::fromLatin1(name));
        history.add(ksMergingAs(ksMerging::Never, property->make(target, value, {}, nullptr)));
    }

    /// Moves the child, and what its variant 0 stores, by so little that rounding may do it.
    void disturb() const
    {
        for (const int index : {-1, 0}) {
            const osg::Transform3DPtr transform = ksNodeUtils::getTransform3D(child, index);
            if (transform == osg::NullFC)
                continue;
            CPEdit(transform, osg::Transform3D::TranslationFieldMask);
            transform->setTranslation(transform->getTranslation() + osg::Vec3f(1e-5F, 0, 0));
        }
    }

    std::ostringstream out;
    ksRecord record{out, {ksRecordStyle::Verbose}};
    ksTranscript transcript{record};
    ksUndoStack stack;
};

/// The child is a constraint that aims itself at both nodes.
class ksInexactConstraintTest : public ksEditorFixture
{
protected:
    ksInexactConstraintTest()
    {
        CPEdit(child, osg::Node::CoreFieldMask);
        child->setCore(aim);
    }
    ~ksInexactConstraintTest() override
    {
        CPEdit(aim, osg::AimConstraint::TargetFieldMask);
        aim->setTarget(osg::NullFC);
    }

    void remove(ksCheckedHistory &history, const osg::NodePtr &node) const
    {
        history.add(new ksDeleteConstraintReferenceUndoCommand(aim, {node}));
    }

    const osg::AimConstraintPtr aim = ksConstraintEdits::makeAim(child, {root, child}, {child});
    std::ostringstream out;
    ksRecord record{out, {ksRecordStyle::Verbose}};
    ksTranscript transcript{record};
    ksUndoStack stack;
};

} // namespace

TEST_F(ksInexactUndoTest, ExpectsRoundingOfValuesInWorldSpace)
{
    ksCheckedHistory history(root, transcript, &stack);
    edit(history, "translation", {child, -1, true}, {1, 2, 3});
    disturb();
    EXPECT_TRUE(history.check());
    EXPECT_THAT(out.str(), HasSubstr(" (a value in world space)\n"));
}

TEST_F(ksInexactUndoTest, ExpectsRoundingOfVariantsInWorldSpace)
{
    ksNodeUtils::createTransformVariantsAttachment(child);
    ksNodeUtils::insertTransformVariant(child, 0, ksTransformEdits::makeVariant(child, "One"));
    ksCheckedHistory history(root, transcript, &stack);
    edit(history, "translation", {child, 0, true}, {1, 2, 3});
    disturb();
    EXPECT_FALSE(history.check());
    // The child's own transform has been edited by nobody.
    EXPECT_EQ(history.differenceCount(), 2);
    EXPECT_THAT(out.str(), HasSubstr(" (a value in world space)\n"));
}

TEST_F(ksInexactUndoTest, ExpectsNoRoundingInParentSpace)
{
    ksCheckedHistory history(root, transcript, &stack);
    edit(history, "translation", {child}, {1, 2, 3});
    edit(history, "scalePivot", {child, -1, true}, {1, 2, 3});
    disturb();
    EXPECT_FALSE(history.check());
    EXPECT_THAT(out.str(), HasSubstr("DIFFERS  " + ksContainers::label(child->getCore()).toStdString() +
                                     " translation: expected 1 2 3, is "));
}

/// However far away the child is, its matrix is exact but for where it places it.
TEST_F(ksInexactUndoTest, ExpectsRoundingOfTheTranslationOfAMatrixOnly)
{
    ksCheckedHistory history(root, transcript, &stack);
    const osg::UInt32 id = transformOf(child).getFieldContainerId();
    history.expect(ksExpectedRounding{id, osg::Transform3D::MatrixFieldId, 1e-6, 1e6, QString()});
    history.expect(ksExpectedRounding{id, osg::Transform3D::TranslationFieldId, 1e-6, 1e6, QString()});
    const auto change = [this](float x, float scale) {
        CPEdit(transformOf(child), osg::Transform3D::TranslationFieldMask | osg::Transform3D::ScaleFieldMask);
        transformOf(child)->setTranslation(osg::Vec3f(x, 0, 0));
        transformOf(child)->setScale(osg::Vec3f(scale, 1, 1));
    };
    change(0.5F, 1);
    EXPECT_TRUE(history.check());
    change(0.5F, 1.25F);
    EXPECT_FALSE(history.check());
    // The scale and the matrix.
    EXPECT_EQ(history.differenceCount(), 2) << out.str();
}

/// Near gimbal lock, many angles are the same rotation.
TEST_F(ksInexactUndoTest, ExpectsAnglesOfTheSameRotation)
{
    const auto turn = [this](const osg::Vec3f &angles) {
        CPEdit(transformOf(child), osg::Transform3D::EulerRotationFieldMask);
        transformOf(child)->setEulerRotation(angles);
    };
    {
        CPEdit(transformOf(child), osg::Transform3D::EulerRotationOrderFieldMask);
        transformOf(child)->setEulerRotationOrder("YXZ");
    }
    turn({90, 10, 20});
    ksCheckedHistory history(root, transcript, &stack);
    for (const osg::UInt32 field : std::initializer_list<osg::UInt32>{osg::Transform3D::EulerRotationFieldId,
                                                                      osg::Transform3D::RotationFieldId,
                                                                      osg::Transform3D::MatrixFieldId})
        history.expect(
            ksExpectedRounding{transformOf(child).getFieldContainerId(), field, 1e-5, 0, QString()});
    const osg::Quaternion before = transformOf(child)->getRotation();
    turn({90, 30, 0});
    ASSERT_TRUE(before.equals(transformOf(child)->getRotation(), 1e-5F));
    EXPECT_TRUE(history.check()) << out.str();
    turn({90, 30.5F, 0});
    EXPECT_FALSE(history.check());
}

TEST_F(ksInexactUndoTest, ExpectsTheAnglesOfATurnAnew)
{
    ksCheckedHistory history(root, transcript, &stack);
    // Undone by quaternion, these come back as others.
    edit(history, "eulerRotation", {child}, {170, 100, 190});
    history.add(new ksRotationAsQuaternionUndoCommand(QStringLiteral("Turn"), child,
                                                      osg::Quaternion(0, 0.6F, 0, 0.8F)));
    history.undo();
    EXPECT_NE(transformOf(child)->getEulerRotation(), osg::Vec3f(170, 100, 190));
    EXPECT_EQ(history.differenceCount(), 0) << out.str();
    EXPECT_THAT(out.str(), HasSubstr("expected " + ksContainers::label(child->getCore()).toStdString() +
                                     " eulerRotation: 170 100 190 came back as "));
    {
        CPEdit(transformOf(child), osg::Transform3D::EulerRotationFieldMask);
        transformOf(child)->setEulerRotation(osg::Vec3f(1, 2, 3));
    }
    EXPECT_FALSE(history.check());
}

TEST_F(ksInexactConstraintTest, ExpectsTheSourcesInAnotherOrder)
{
    ksCheckedHistory history(root, transcript, &stack);
    const osg::ConstraintObjectPtr first = aim->getSources(0);
    remove(history, root);
    EXPECT_EQ(aim->getSources().size(), 1u);
    history.undo();
    EXPECT_EQ(aim->getSources(1), first);
    EXPECT_EQ(history.differenceCount(), 0) << out.str();
    EXPECT_THAT(out.str(), HasSubstr("expected AimConstraint"));
    // Target and up vector come back as they were, or the step fails.
    remove(history, child);
    EXPECT_EQ(aim->getTarget(), osg::NullFC);
    history.undo();
    EXPECT_EQ(aim->getTarget(), child);
    EXPECT_EQ(history.differenceCount(), 0) << out.str();
}

TEST_F(ksInexactConstraintTest, ExpectsNoOtherOrder)
{
    ksCheckedHistory history(root, transcript, &stack);
    remove(history, root);
    history.undo();
    EXPECT_TRUE(history.check());
    {
        CPEdit(aim, osg::AimConstraint::SourcesFieldMask);
        const osg::ConstraintObjectRefPtr moved(aim->getSources(0));
        aim->removeSourceObject(moved.get());
        aim->addSourceObject(moved.get());
    }
    EXPECT_FALSE(history.check());
}
