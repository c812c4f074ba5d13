// SPDX-License-Identifier: MIT
#include <checker/history/ksCheckedHistory.h>
#include <checker/history/ksTranscript.h>
#include <checker/tour/ksCommandClasses.h>
#include <editor/history/ksRecord.h>
#include <tests/editor/ksEditorFixture.h>

#include <ksundo/core/ksMultiCommand.h>
#include <ksundo/field/ksBoolFieldUndoCommand.h>

#include <set>
#include <sstream>

namespace {

using testing::HasSubstr;
using testing::Not;

} // namespace

TEST(ksCommandClasses, HaveIdsOfTheirOwn)
{
    std::set<int> ids;
    for (const ksCommandClass &commandClass : ksCommandClasses::all())
        EXPECT_TRUE(ids.insert(commandClass.id()).second) << commandClass.name;
    EXPECT_EQ(ids.count(ksMultiCommand::commandId()), 1u);
}

using ksCommandClassesTest = ksEditorFixture;

TEST_F(ksCommandClassesTest, AreMissedByName)
{
    std::ostringstream out;
    ksRecord record(out, {ksRecordStyle::Verbose});
    ksTranscript transcript(record);
    ksUndoStack stack;
    ksCheckedHistory history(root, transcript, &stack);
    EXPECT_EQ(ksCommandClasses::countIn(history), 0);

    auto *batch = new ksMultiCommand(QStringLiteral("Lock"));
    new ksBoolFieldUndoCommand(childSettings(), "locked", true, batch);
    history.add(batch);
    EXPECT_EQ(ksCommandClasses::countIn(history), 2);
    ksCommandClasses::verifyIn(history);
    EXPECT_EQ(history.differenceCount(), static_cast<int>(ksCommandClasses::all().size()) - 2);
    EXPECT_THAT(out.str(), HasSubstr("FAILS    there is a ksFieldUndoCommand<unsigned char>\n"));
    EXPECT_THAT(out.str(), Not(HasSubstr("there is a ksMultiCommand\n")));
    EXPECT_THAT(out.str(), Not(HasSubstr("there is a ksBoolFieldUndoCommand\n")));
}
