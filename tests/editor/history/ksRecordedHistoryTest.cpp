// SPDX-License-Identifier: MIT
#include <editor/edits/ksTreeEdits.h>
#include <editor/history/ksRecord.h>
#include <editor/history/ksRecordedHistory.h>
#include <tests/editor/ksEditorFixture.h>

#include <ksundo/field/ksBoolFieldUndoCommand.h>
#include <ksundo/field/ksFieldUndoCommand.h>

#include <OpenSG/OSGChangeList.h>
#include <OpenSG/OSGThread.h>

#include <sstream>

namespace {

class ksRecordedHistoryTest : public ksEditorFixture
{
protected:
    static void lock(ksRecordedHistory &history, const osg::ksNodeSettingsPtr &settings, bool locked)
    {
        history.add(new ksBoolFieldUndoCommand(QStringLiteral("Lock"), settings, "locked", locked));
    }

    QUndoCommand *setLayer(int layer, bool merging) const
    {
        auto *command = new ksFieldUndoCommand<osg::UInt8>(QStringLiteral("Layer"), childSettings(), "layer",
                                                           static_cast<osg::UInt8>(layer));
        command->setMergeResponseDelta(merging ? -1 : 0);
        return command;
    }

    /// A step, one that merges into it, undo and redo, a macro, a mark, a reset, and an end of it all.
    std::string recordIn(const ksRecordStyle &style)
    {
        std::ostringstream out;
        ksRecord record(out, style);
        ksUndoStack stack;
        ksRecordedHistory history(root, record, &stack);
        history.add(setLayer(1, false));
        history.add(setLayer(2, true));
        history.undo();
        history.redo();
        history.beginMacro(QStringLiteral("Both"));
        lock(history, childSettings(), true);
        lock(history, rootSettings(), true);
        history.endMacro();
        history.mark();
        history.add(setLayer(3, false));
        history.drag(2, [this](int event) { return setLayer(4 + event, event > 0); });
        history.reset();
        history.clear();
        EXPECT_EQ(history.stepCount(), 4);
        const std::string text = out.str();
        history.add(setLayer(0, false));
        return text;
    }
};

} // namespace

TEST_F(ksRecordedHistoryTest, WritesALineForEachStep)
{
    EXPECT_EQ(recordIn({}), "step 1: Layer: ksNodeSettings 'Child' layer 0 -> 1\n"
                            "step 1 goes on: Layer: ksNodeSettings 'Child' layer 1 -> 2\n"
                            "step 1 undone: Layer: ksNodeSettings 'Child' layer 2 -> 0\n"
                            "step 1 redone: Layer: ksNodeSettings 'Child' layer 0 -> 2\n"
                            "step 2: Both: ksNodeSettings 'Child' locked FALSE -> TRUE; ksNodeSettings "
                            "'Root' locked FALSE -> TRUE\n"
                            "step 3: Layer: ksNodeSettings 'Child' layer 2 -> 3\n"
                            "step 4: Layer: ksNodeSettings 'Child' layer 3 -> 5\n"
                            "steps 3 to 4 undone: ksNodeSettings 'Child' layer 5 -> 2\n"
                            "all steps are forgotten\n");
}

TEST_F(ksRecordedHistoryTest, WritesNothingWhenItIsQuiet)
{
    EXPECT_EQ(recordIn({ksRecordStyle::Quiet}), "");
}

TEST_F(ksRecordedHistoryTest, WritesAllThereIsToSayWhenItIsVerbose)
{
    const std::string child = ksContainers::label(childSettings()).toStdString();
    const std::string record = recordIn({ksRecordStyle::Verbose});
    EXPECT_THAT(record, testing::StartsWith("step 1: Layer\n  done     add \"Layer\"\n  changed  " + child +
                                            " layer: 0 -> 1\n"));
    EXPECT_THAT(record,
                testing::HasSubstr("step 2: Both\n  done     macro \"Both\"\n  within   add \"Lock\"\n"
                                   "  within   add \"Lock\"\n  changed  " +
                                   child + " locked: FALSE -> TRUE\n"));
    EXPECT_THAT(record, testing::HasSubstr("mark index 2\n"));
}

TEST_F(ksRecordedHistoryTest, WritesAnObjectForEachStep)
{
    std::istringstream record(recordIn({ksRecordStyle::Short, true}));
    const std::string id = std::to_string(childSettings().getFieldContainerId());
    std::string line;
    std::getline(record, line);
    EXPECT_EQ(
        line,
        R"({"changes":[{"after":"1","before":"0","field":"layer","id":)" + id +
            R"(,"name":"Child","type":"ksNodeSettings"}],"count":1,"event":"add","step":1,"text":"Layer"})");
    std::vector<std::string> rest;
    while (std::getline(record, line))
        rest.push_back(line.substr(line.find("\"count\"")));
    EXPECT_THAT(rest, testing::ElementsAre(R"("count":1,"event":"merge","step":1,"text":"Layer"})",
                                           R"("count":1,"event":"undo","step":1,"text":"Layer"})",
                                           R"("count":1,"event":"redo","step":1,"text":"Layer"})",
                                           R"("count":1,"event":"add","step":2,"text":"Both"})",
                                           R"("count":1,"event":"add","step":3,"text":"Layer"})",
                                           R"("count":1,"event":"add","step":4,"text":"Layer"})",
                                           R"("count":2,"event":"undo","step":3,"text":"Layer"})",
                                           R"("count":4,"event":"clear","step":1,"text":"clear"})"));
}

TEST_F(ksRecordedHistoryTest, SumsUpWhatAMacroChanges)
{
    std::ostringstream out;
    ksRecord record(out);
    ksUndoStack stack;
    ksRecordedHistory history(root, record, &stack);
    history.beginMacro(QStringLiteral("All"));
    lock(history, childSettings(), true);
    history.add(setLayer(1, false));
    EXPECT_TRUE(osg::Thread::getCurrentChangeList()->empty());
    lock(history, childSettings(), false);
    history.add(setLayer(2, false));
    history.endMacro();
    EXPECT_EQ(out.str(), "step 1: All: ksNodeSettings 'Child' layer 0 -> 2\n");
}

/// A long list is not shown, but it is compared.
TEST_F(ksRecordedHistoryTest, KnowsThatALongListHasAnotherOrder)
{
    {
        CPEdit(root, osg::Node::ChildrenFieldMask);
        for (int i = 0; i < 1001; ++i)
            root->addChild(osg::Node::create());
    }
    std::ostringstream out;
    ksRecord record(out);
    ksUndoStack stack;
    ksRecordedHistory history(root, record, &stack);
    history.beginMacro(QStringLiteral("Turn round"));
    history.add(ksTreeEdits::makeMove(child, root, 5));
    history.endMacro();
    EXPECT_EQ(out.str(), "step 1: Turn round: Node 'Root' children 1002 -> 1002 entries\n");
    out.str({});
    history.beginMacro(QStringLiteral("To and fro"));
    history.add(ksTreeEdits::makeMove(child, root, 3));
    history.add(ksTreeEdits::makeMove(child, root, 5));
    history.endMacro();
    EXPECT_EQ(out.str(), "step 2: To and fro\n");
}

namespace {

/// Does not come back where it was.
class InexactCommand : public QUndoCommand
{
public:
    explicit InexactCommand(const osg::ksNodeSettingsPtr &target)
        : settings(target)
    {}

    void redo() override { write(5); }
    void undo() override { write(1); }

private:
    void write(osg::UInt8 layer) const
    {
        CPEdit(settings, osg::ksNodeSettings::LayerFieldMask);
        settings->setLayer(layer);
    }

    osg::ksNodeSettingsPtr settings;
};

} // namespace

TEST_F(ksRecordedHistoryTest, TellsThatAMacroIsTakenBack)
{
    std::ostringstream out;
    ksRecord record(out);
    ksUndoStack stack;
    ksRecordedHistory history(root, record, &stack);
    lock(history, childSettings(), true);
    out.str({});
    history.beginMacro(QStringLiteral("Nothing left"));
    history.add(setLayer(4, false));
    history.endMacro(false);
    EXPECT_EQ(out.str(), "");
    history.beginMacro(QStringLiteral("Something left"));
    history.add(new InexactCommand(childSettings()));
    history.endMacro(false);
    EXPECT_EQ(out.str(), "macro \"Something left\" taken back: ksNodeSettings 'Child' layer 0 -> 1\n");
    EXPECT_EQ(history.stepCount(), 1);
}

/// The list of what has changed would grow with every edit.
TEST_F(ksRecordedHistoryTest, KeepsNothingForOtherAspects)
{
    std::ostringstream out;
    ksRecord record(out);
    ksUndoStack stack;
    ksRecordedHistory history(root, record, &stack);
    lock(history, childSettings(), true);
    EXPECT_TRUE(osg::Thread::getCurrentChangeList()->empty());
}
