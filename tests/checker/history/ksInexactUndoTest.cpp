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
