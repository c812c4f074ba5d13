// SPDX-License-Identifier: MIT
#include <editor/history/ksRecordedHistory.h>
#include <tests/editor/ksEditorFixture.h>

#include <ksundo/field/ksBoolFieldUndoCommand.h>

#include <sstream>

namespace {

class ksRecordedHistoryTest : public ksEditorFixture
{
protected:
    void lock(bool locked)
    {
        history.add(new ksBoolFieldUndoCommand(QStringLiteral("Lock"), childSettings(), "locked", locked));
    }

    std::ostringstream out;
    ksUndoStack stack;
    ksRecordedHistory history{root, out, &stack};
};

} // namespace

TEST_F(ksRecordedHistoryTest, WritesALineForEachStep)
{
    lock(true);
    history.undo();
    history.redo();
    EXPECT_TRUE(childSettings()->getLocked());
    EXPECT_EQ(out.str(), "step 1: add \"Lock\"\nstep 2: undo \"Lock\"\nstep 3: redo \"Lock\"\n");
    EXPECT_EQ(history.stepCount(), 3);
}

TEST_F(ksRecordedHistoryTest, CountsAMacroAsOneStep)
{
    history.beginMacro(QStringLiteral("Both"));
    lock(true);
    lock(false);
    history.endMacro();
    EXPECT_EQ(out.str(), "step 1: macro \"Both\"\n  add \"Lock\"\n  add \"Lock\"\n");
    EXPECT_EQ(history.stepCount(), 1);
    EXPECT_EQ(stack.count(), 1);
}

/// The list of what has changed would grow with every edit.
TEST_F(ksRecordedHistoryTest, KeepsNothingForOtherAspects)
{
    lock(true);
    EXPECT_TRUE(osg::Thread::getCurrentChangeList()->empty());
}
