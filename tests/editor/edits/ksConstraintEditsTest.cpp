// SPDX-License-Identifier: MIT
#include <editor/edits/ksConstraintEdits.h>
#include <editor/history/ksCheckedHistory.h>
#include <editor/history/ksTranscript.h>
#include <tests/editor/ksEditorFixture.h>

#include <sstream>

namespace {

class ksConstraintEditsTest : public ksEditorFixture
{
protected:
    osg::AimConstraintPtr addAim()
    {
        const osg::AimConstraintPtr aim = ksConstraintEdits::makeAim(child, {root, child}, {child});
        CPEdit(child, osg::Node::CoreFieldMask);
        child->setCore(aim);
        return aim;
    }
};

} // namespace

TEST_F(ksConstraintEditsTest, MakeAnAimOfNodes)
{
    const osg::AimConstraintRefPtr aim(ksConstraintEdits::makeAim(child, {root, child}, {child}));
    EXPECT_EQ(aim->getTarget(), child);
    ASSERT_EQ(aim->getSources().size(), 2u);
    EXPECT_EQ(aim->getSources(0)->getNode(), root.get());
    EXPECT_EQ(aim->getSources(1)->getNode(), child);
    ASSERT_EQ(aim->getUpVectorSources().size(), 1u);
    EXPECT_EQ(aim->getUpVectorSources(0)->getNode(), child);
    // Several come back in this order.
    EXPECT_LT(aim->getSources(0), aim->getSources(1));
}

TEST_F(ksConstraintEditsTest, ExpectOnlyTheOrderToChange)
{
    const osg::AimConstraintPtr aim = addAim();
    std::ostringstream out;
    ksTranscript transcript(out);
    ksUndoStack stack;
    ksCheckedHistory history(root, transcript, &stack);
    const osg::ConstraintObjectPtr first = aim->getSources(0);
    ksConstraintEdits::remove(history, aim, {root});
    EXPECT_EQ(aim->getSources().size(), 1u);
    history.undo();
    EXPECT_EQ(aim->getSources(1), first);
    EXPECT_EQ(history.differenceCount(), 0) << out.str();
    EXPECT_THAT(out.str(), testing::HasSubstr("expected AimConstraint"));
    // Target and up vector come back as they were, or the step fails.
    ksConstraintEdits::remove(history, aim, {child});
    EXPECT_EQ(aim->getTarget(), osg::NullFC);
    history.undo();
    EXPECT_EQ(aim->getTarget(), child);
    EXPECT_EQ(history.differenceCount(), 0) << out.str();
    CPEdit(aim, osg::AimConstraint::TargetFieldMask);
    aim->setTarget(osg::NullFC);
}
