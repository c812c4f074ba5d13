// SPDX-License-Identifier: MIT
#include <editor/edits/ksConstraintEdits.h>
#include <tests/editor/ksEditorFixture.h>

namespace {

using ksConstraintEditsTest = ksEditorFixture;

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
