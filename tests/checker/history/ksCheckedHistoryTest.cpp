// SPDX-License-Identifier: MIT
#include <checker/history/ksCheckedHistory.h>
#include <checker/history/ksTranscript.h>
#include <editor/edits/ksFieldEdits.h>
#include <editor/history/ksRecord.h>
#include <editor/ksEditorError.h>
#include <tests/editor/ksEditorFixture.h>

#include <ksundo/field/ksBoolFieldUndoCommand.h>
#include <ksundo/field/ksFieldUndoCommand.h>

#include <sstream>

namespace {

using testing::HasSubstr;
using testing::Not;

using LayerCommand = ksFieldUndoCommand<osg::UInt8>;

/// Sets the layer, and ends the edits only as far as it is told to.
class FaultyCommand : public ksUndoCommand
{
public:
    FaultyCommand(const osg::ksNodeSettingsPtr &target, bool endsRedo, bool undoes)
        : ksUndoCommand(QStringLiteral("Faulty"))
        , settings(target)
        , ends(endsRedo)
        , restores(undoes)
    {}

    void redo() override { write(5, ends); }

    void undo() override
    {
        if (restores)
            write(0, true);
    }

private:
    void write(osg::UInt8 layer, bool end) const
    {
        settings->setLayer(layer);
        if (end)
            osg::endEditCP(settings, osg::ksNodeSettings::LayerFieldMask);
    }

    osg::ksNodeSettingsPtr settings;
    bool ends;
    bool restores;
};

class ksCheckedHistoryTest : public ksEditorFixture
{
protected:
    LayerCommand *setLayer(osg::UInt8 layer) const
    {
        return new LayerCommand(QStringLiteral("Set layer"), childSettings(), "layer", layer);
    }

    LayerCommand *setLayerMerging(osg::UInt8 layer) const
    {
        LayerCommand *command = setLayer(layer);
        command->setMergeResponseDelta(-1);
        return command;
    }

    void dragLayer(int events)
    {
        history.drag(events,
                     [this](int event) { return setLayerMerging(static_cast<osg::UInt8>(event + 1)); });
    }

    std::string label() const { return ksContainers::label(childSettings()).toStdString(); }

    std::ostringstream out;
    ksRecord record{out, {ksRecordStyle::Verbose}};
    ksTranscript transcript{record};
    ksUndoStack stack;
    ksCheckedHistory history{root, transcript, &stack};
};

} // namespace

TEST_F(ksCheckedHistoryTest, FindsNothingInCorrectEdits)
{
    history.add(setLayer(3));
    history.add(setLayerMerging(4));
    history.undo();
    EXPECT_EQ(childSettings()->getLayer(), 0);
    history.redo();
    EXPECT_EQ(childSettings()->getLayer(), 4);
    EXPECT_TRUE(history.check());
    EXPECT_EQ(history.differenceCount(), 0);
    EXPECT_EQ(history.containerCount(), 8);
    EXPECT_EQ(stack.count(), 1);
}

TEST_F(ksCheckedHistoryTest, WritesWhatHappened)
{
    history.add(setLayer(3));
    const std::string container = std::to_string(childSettings().getFieldContainerId());
    EXPECT_EQ(out.str(), "step 1: add \"Set layer\"\n"
                         "  message  ksURManager::redo added=true container=" +
                             container + " fieldId=3 id=" + std::to_string(LayerCommand::commandId()) +
                             " index=0 text=\"Set layer\"\n"
                             "  changed  " +
                             label() +
                             " layer: 0 -> 3\n"
                             "  check    index 1 of 1, 8 containers: no difference\n");
    out.str({});
    history.undo();
    EXPECT_THAT(out.str(), HasSubstr("step 2: undo \"Set layer\"\n  message  ksURManager::undo added=false"));
}

TEST_F(ksCheckedHistoryTest, SeesAWriteThatDoesNotEndTheEdit)
{
    history.add(new FaultyCommand(childSettings(), false, true));
    EXPECT_EQ(history.differenceCount(), 1);
    EXPECT_THAT(out.str(), HasSubstr("  STALE    " + label() + " layer: expected 5, is 0\n"));
    EXPECT_THAT(out.str(), Not(HasSubstr("DIFFERS ")));
    EXPECT_THAT(out.str(), HasSubstr(": 1 DIFFERENCE\n"));
}

TEST_F(ksCheckedHistoryTest, SeesAWriteOutsideTheHistory)
{
    history.add(setLayer(3));
    {
        CPEdit(rootSettings(), osg::ksNodeSettings::OpacityFieldMask);
        rootSettings()->setOpacity(0.5F);
    }
    EXPECT_FALSE(history.check());
    EXPECT_EQ(history.differenceCount(), 1);
    EXPECT_THAT(out.str(), HasSubstr("  DIFFERS  " + ksContainers::label(rootSettings()).toStdString() +
                                     " opacity: expected 1, is 0.5\n"));
    EXPECT_THAT(out.str(), Not(HasSubstr("STALE ")));
}

TEST_F(ksCheckedHistoryTest, SeesAnUndoThatDoesNotRestore)
{
    history.add(new FaultyCommand(childSettings(), true, false));
    EXPECT_EQ(history.differenceCount(), 0);
    history.undo();
    EXPECT_EQ(history.differenceCount(), 1);
    EXPECT_THAT(out.str(), HasSubstr("  DIFFERS  " + label() + " layer: expected 0, is 5\n"));
}

TEST_F(ksCheckedHistoryTest, SeesAContainerThatLeavesTheScene)
{
    root->subChild(child);
    osg::endEditCP(root.get(), osg::Node::ChildrenFieldMask);
    EXPECT_FALSE(history.check());
    EXPECT_THAT(out.str(), HasSubstr("expected present, is absent"));
}

TEST_F(ksCheckedHistoryTest, ComparesWithTheStateOfEveryIndex)
{
    for (osg::UInt8 layer = 1; layer <= 4; ++layer) {
        history.add(setLayer(layer));
        stack.setClean();
    }
    while (stack.canUndo())
        history.undo();
    history.redo();
    // A new command takes the place of the undone ones.
    history.add(new ksBoolFieldUndoCommand(childSettings(), "locked", true));
    history.undo();
    history.redo();
    EXPECT_EQ(stack.count(), 2);
    EXPECT_EQ(history.differenceCount(), 0);
}

TEST_F(ksCheckedHistoryTest, ComparesAfterResetAndClear)
{
    history.add(setLayer(1));
    history.mark();
    history.add(new ksBoolFieldUndoCommand(childSettings(), "locked", true));
    history.add(new ksBoolFieldUndoCommand(childSettings(), "locked", false));
    history.reset();
    EXPECT_EQ(stack.index(), 1);
    history.clear();
    EXPECT_EQ(stack.count(), 0);
    EXPECT_EQ(childSettings()->getLayer(), 1);
    history.add(setLayer(2));
    history.undo();
    EXPECT_EQ(history.differenceCount(), 0);
}

TEST_F(ksCheckedHistoryTest, TakesAMacroAsOneStep)
{
    history.beginMacro(QStringLiteral("Outer"));
    EXPECT_TRUE(history.isInMacro());
    history.add(setLayer(1));
    history.beginMacro(QStringLiteral("Inner"));
    history.add(new ksBoolFieldUndoCommand(childSettings(), "locked", true));
    history.endMacro();
    history.endMacro();
    EXPECT_FALSE(history.isInMacro());
    EXPECT_EQ(transcript.stepCount(), 1);
    EXPECT_EQ(stack.count(), 1);
    EXPECT_THAT(out.str(), HasSubstr("step 1: macro \"Outer\"\n  within   add \"Set layer\"\n"
                                     "  within   macro \"Inner\"\n  within   add \"\"\n"
                                     "  message  ksURManager::redo added=true index=0 text=\"Outer\"\n"
                                     "  changed  "));
    history.undo();
    EXPECT_FALSE(childSettings()->getLocked());
    EXPECT_EQ(history.differenceCount(), 0);
}

TEST_F(ksCheckedHistoryTest, MayGoWithAMacroOpen)
{
    {
        ksUndoStack other;
        ksCheckedHistory closed(root, transcript, &other);
        closed.beginMacro(QStringLiteral("Outer"));
        closed.add(setLayer(1));
    }
    EXPECT_EQ(childSettings()->getLayer(), 0);
}

TEST_F(ksCheckedHistoryTest, SeesAStaleMirrorWithinAMacro)
{
    history.beginMacro(QStringLiteral("Outer"));
    history.add(new FaultyCommand(childSettings(), false, true));
    EXPECT_EQ(history.differenceCount(), 1);
    history.endMacro();
}

TEST_F(ksCheckedHistoryTest, AcceptsWhatIsExpected)
{
    history.add(setLayer(7));
    history.add(new ksBoolFieldUndoCommand(childSettings(), "layer", false));
    history.expect({childSettings().getFieldContainerId(), osg::ksNodeSettings::LayerFieldId, "7", "1",
                    QStringLiteral("flags")});
    history.undo();
    EXPECT_THAT(out.str(), HasSubstr("  expected " + label() + " layer: 7 came back as 1 (flags)\n"));
    // What was expected once holds from then on, in both directions.
    history.undo();
    history.redo();
    history.redo();
    EXPECT_EQ(history.differenceCount(), 0);
}

TEST_F(ksCheckedHistoryTest, AcceptsNothingElse)
{
    history.add(setLayer(7));
    history.add(new ksBoolFieldUndoCommand(childSettings(), "layer", false));
    const osg::UInt32 id = childSettings().getFieldContainerId();
    const osg::UInt32 field = osg::ksNodeSettings::LayerFieldId;
    history.expect({id, field, "7", "2", QString()});
    history.expect({id, field, "8", "1", QString()});
    history.expect({id, field + 1, "7", "1", QString()});
    history.expect({id + 1, field, "7", "1", QString()});
    history.undo();
    EXPECT_EQ(history.differenceCount(), 1);
}

TEST_F(ksCheckedHistoryTest, AcceptsRoundingOfAFieldWithinItsTolerance)
{
    const auto setOpacity = [this](float opacity) {
        return new ksFieldUndoCommand<float>(QStringLiteral("Set opacity"), childSettings(), "opacity",
                                             opacity);
    };
    const auto disturb = [this](float opacity) {
        CPEdit(childSettings(), osg::ksNodeSettings::OpacityFieldMask);
        childSettings()->setOpacity(opacity);
    };
    history.add(setOpacity(0.5F));
    history.expect(ksExpectedRounding{childSettings().getFieldContainerId(),
                                      osg::ksNodeSettings::OpacityFieldId, 0.01, 0, QStringLiteral("why")});
    disturb(0.50390625F);
    EXPECT_TRUE(history.check());
    EXPECT_THAT(out.str(),
                HasSubstr("  expected " + label() + " opacity: 0.5 came back as 0.50390625 (why)\n"));
    // What came back is what is expected from then on.
    history.undo();
    EXPECT_EQ(history.differenceCount(), 0);
    history.redo();
    EXPECT_EQ(history.differenceCount(), 0);
    disturb(0.53125F);
    EXPECT_FALSE(history.check());
}

/// Roundings do not add up, and end with the commands that they are of.
TEST_F(ksCheckedHistoryTest, AcceptsRoundingOfWhatWasAtFirst)
{
    const osg::UInt32 id = childSettings().getFieldContainerId();
    const auto disturb = [this](float opacity) {
        CPEdit(childSettings(), osg::ksNodeSettings::OpacityFieldMask);
        childSettings()->setOpacity(opacity);
    };
    const ksExpectedRounding rounding{id, osg::ksNodeSettings::OpacityFieldId, 0.01, 0, QString()};
    history.add(setLayer(1));
    history.expect(rounding);
    for (const float opacity : {0.9921875F, 1.0078125F, 0.9921875F}) {
        disturb(opacity);
        EXPECT_TRUE(history.check());
    }
    disturb(0.984375F);
    EXPECT_FALSE(history.check());
    disturb(1);
    EXPECT_TRUE(history.check());
    history.clear();
    disturb(0.9921875F);
    EXPECT_FALSE(history.check());
}

TEST_F(ksCheckedHistoryTest, AcceptsRoundingOfNoOtherField)
{
    const osg::UInt32 id = childSettings().getFieldContainerId();
    history.expect(ksExpectedRounding{id, osg::ksNodeSettings::LayerFieldId, 100, 0, QString()});
    history.expect(ksExpectedRounding{id, osg::ksNodeSettings::CommentFieldId, 100, 0, QString()});
    history.expect(ksExpectedRounding{id + 1, osg::ksNodeSettings::OpacityFieldId, 100, 0, QString()});
    {
        CPEditAll(childSettings());
        childSettings()->setOpacity(0.5F);
        childSettings()->setComment("text");
    }
    EXPECT_FALSE(history.check());
    EXPECT_EQ(history.differenceCount(), 2);
}

TEST_F(ksCheckedHistoryTest, WritesEqualMessagesInARowOnce)
{
    history.step(QStringLiteral("edits"), [this] {
        for (osg::UInt8 layer = 1; layer <= 5; ++layer)
            stack.add(setLayerMerging(layer));
        stack.undo();
    });
    EXPECT_THAT(out.str(), HasSubstr(" index=0 text=\"Set layer\" (5 times)\n  message  ksURManager::undo "));
    EXPECT_THAT(out.str(), Not(HasSubstr("(1 times)")));
    EXPECT_EQ(history.differenceCount(), 0);
}

TEST_F(ksCheckedHistoryTest, TakesADragAsOneStep)
{
    history.add(new ksBoolFieldUndoCommand(childSettings(), "locked", true));
    dragLayer(5);
    EXPECT_EQ(transcript.stepCount(), 2);
    EXPECT_EQ(stack.count(), 2);
    history.undo();
    EXPECT_EQ(childSettings()->getLayer(), 0);
    history.redo();
    EXPECT_EQ(childSettings()->getLayer(), 5);
    history.add(setLayer(6));
    history.undo();
    EXPECT_EQ(history.differenceCount(), 0) << out.str();
}

TEST_F(ksCheckedHistoryTest, KnowsEveryIndexOfADragThatDoesNotMerge)
{
    history.add(setLayer(1));
    history.undo();
    history.drag(3, [this](int event) {
        return new ksBoolFieldUndoCommand(childSettings(), "locked", event % 2 == 0);
    });
    EXPECT_EQ(stack.count(), 3);
    for (int i = 0; i < 3; ++i)
        history.undo();
    for (int i = 0; i < 3; ++i)
        history.redo();
    EXPECT_EQ(history.differenceCount(), 0) << out.str();
}

TEST_F(ksCheckedHistoryTest, KnowsEveryIndexOfADragThatMergesInPart)
{
    history.drag(5, [this](int event) {
        LayerCommand *command = setLayerMerging(static_cast<osg::UInt8>(event + 1));
        command->setMergeEnabled(event != 2);
        return command;
    });
    EXPECT_EQ(stack.count(), 2);
    history.undo();
    EXPECT_EQ(childSettings()->getLayer(), 2);
    history.undo();
    history.redo();
    history.redo();
    EXPECT_EQ(history.differenceCount(), 0) << out.str();
}

TEST_F(ksCheckedHistoryTest, KnowsWhatADragWithinAnotherStepHasDone)
{
    history.step(QStringLiteral("all"), [this] {
        dragLayer(3);
        history.add(new ksBoolFieldUndoCommand(childSettings(), "locked", true));
    });
    history.undo();
    history.undo();
    history.redo();
    EXPECT_EQ(history.differenceCount(), 0) << out.str();
}

TEST_F(ksCheckedHistoryTest, ChecksADragThatFails)
{
    EXPECT_THROW(history.drag(5,
                              [this](int event) {
                                  if (event == 3)
                                      throw ksEditorError("no such value");
                                  return setLayerMerging(static_cast<osg::UInt8>(event + 1));
                              }),
                 ksEditorError);
    EXPECT_THAT(out.str(), HasSubstr("check    index 1 of 1, "));
    history.undo();
    history.redo();
    EXPECT_EQ(childSettings()->getLayer(), 3);
    // No drag is under way any more: every index counts.
    history.add(new ksBoolFieldUndoCommand(childSettings(), "locked", true));
    history.step(QStringLiteral("edits"), [this] {
        stack.add(setLayerMerging(4));
        stack.add(setLayerMerging(5));
        stack.add(new ksBoolFieldUndoCommand(childSettings(), "locked", false));
    });
    for (int i = 0; i < 3; ++i)
        history.undo();
    EXPECT_EQ(history.differenceCount(), 0) << out.str();
}

TEST_F(ksCheckedHistoryTest, TakesADragWithinAMacro)
{
    history.add(setLayer(1));
    history.beginMacro(QStringLiteral("Macro"));
    dragLayer(5);
    history.endMacro();
    history.undo();
    history.redo();
    EXPECT_EQ(stack.count(), 2);
    EXPECT_EQ(history.differenceCount(), 0) << out.str();
}

TEST_F(ksCheckedHistoryTest, SeesADragThatIsStaleOrDoesNotComeBack)
{
    history.drag(1, [this](int) { return new FaultyCommand(childSettings(), false, false); });
    const int before = history.differenceCount();
    EXPECT_GT(before, 0);
    history.undo();
    EXPECT_GT(history.differenceCount(), before);
}

TEST_F(ksCheckedHistoryTest, SeesAWriteToWhatIsOutOfTheScene)
{
    const osg::ksNodeSettingsRefPtr kept(childSettings());
    history.add(setLayer(3));
    history.step(QStringLiteral("detach"), [this, &kept] {
        CPEdit(child, osg::Node::AttachmentsFieldMask);
        child->subAttachment(kept.get());
    });
    const int before = history.differenceCount();
    history.clear();
    {
        CPEdit(kept.get(), osg::ksNodeSettings::OpacityFieldMask);
        kept->setOpacity(0.5F);
    }
    EXPECT_FALSE(history.check());
    EXPECT_EQ(history.differenceCount(), before + 1);
}

TEST_F(ksCheckedHistoryTest, CountsFailedVerifications)
{
    EXPECT_TRUE(history.verify(true, QStringLiteral("one is one")));
    EXPECT_FALSE(history.verify(false, QStringLiteral("one is two")));
    EXPECT_EQ(history.differenceCount(), 1);
    EXPECT_EQ(out.str(), "  FAILS    one is two\n");
}

TEST_F(ksCheckedHistoryTest, CutsLongListsShort)
{
    history.step(QStringLiteral("write"), [this] {
        for (const osg::ksNodeSettingsPtr &settings : {rootSettings(), childSettings()}) {
            CPEditAll(settings);
            settings->setLayer(1);
            settings->setLodBias(1);
            settings->setRenderOrder(1);
            settings->setPickId(1);
            settings->setSortKey(1);
        }
    });
    EXPECT_EQ(history.differenceCount(), 10);
    EXPECT_THAT(out.str(), HasSubstr("  changed  ... 10 fields\n"));
    EXPECT_THAT(out.str(), HasSubstr("  DIFFERS  ... 10 fields\n"));
}

TEST(ksCheckedHistory, LetsGoOfTheScene)
{
    const std::ptrdiff_t before = ksLivingContainers();
    {
        std::ostringstream out;
        ksRecord record(out, {ksRecordStyle::Verbose});
        ksTranscript transcript(record);
        ksUndoStack stack;
        const osg::NodePtr root = osg::Node::create();
        const ksCheckedHistory history(root, transcript, &stack);
        EXPECT_GT(ksLivingContainers(), before);
    }
    EXPECT_EQ(ksLivingContainers(), before);
}
