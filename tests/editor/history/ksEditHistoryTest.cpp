// SPDX-License-Identifier: MIT
#include <editor/history/ksEditHistory.h>
#include <tests/editor/ksEditorFixture.h>

#include <ksundo/field/ksFieldUndoCommand.h>

#include <stdexcept>
#include <vector>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Notes the two ends of steps.
class NotedHistory : public ksEditHistory
{
public:
    NotedHistory(const osg::NodePtr &scene, ksUndoStack *stack)
        : ksEditHistory(scene, stack)
    {}

    using ksEditHistory::step;

    std::vector<std::string> notes;

private:
    void beginStep(const QString &what) override
    {
        notes.push_back((isInMacro() ? "within " : "") + what.toStdString());
    }
    void finishStep() override { notes.emplace_back(isInMacro() ? "within finished" : "finished"); }
};

/// Throws when it runs; notes when it goes.
class ThrowingCommand : public QUndoCommand
{
public:
    explicit ThrowingCommand(bool &isGone)
        : QUndoCommand(QStringLiteral("Throw"))
        , gone(isGone)
    {}
    ~ThrowingCommand() override { gone = true; }

    void redo() override { throw std::runtime_error("no"); }

private:
    bool &gone;
};

class ksEditHistoryTest : public ksEditorFixture
{
protected:
    QUndoCommand *setLayer(int layer) const
    {
        auto *command = new ksFieldUndoCommand<osg::UInt8>(QStringLiteral("Layer"), childSettings(), "layer",
                                                           static_cast<osg::UInt8>(layer));
        command->setMergeResponseDelta(-1);
        return command;
    }

    ksUndoStack stack;
    NotedHistory history{root, &stack};
};

} // namespace

TEST_F(ksEditHistoryTest, RunsOperationsAsSteps)
{
    history.add(setLayer(1));
    EXPECT_EQ(childSettings()->getLayer(), 1);
    history.undo();
    history.redo();
    history.mark();
    history.undo();
    history.reset();
    history.clear();
    EXPECT_EQ(stack.count(), 0);
    EXPECT_EQ(childSettings()->getLayer(), 1);
    EXPECT_THAT(history.notes,
                ElementsAre("add \"Layer\"", "finished", "undo \"Layer\"", "finished", "redo \"Layer\"",
                            "finished", "mark index 1", "finished", "undo \"Layer\"", "finished",
                            "reset from index 0", "finished", "clear", "finished"));
}

TEST_F(ksEditHistoryTest, FinishesTheStepOfACommandThatThrows)
{
    bool isGone = false;
    EXPECT_THROW(history.add(new ThrowingCommand(isGone)), std::runtime_error);
    EXPECT_TRUE(isGone);
    EXPECT_EQ(stack.count(), 0);
    history.add(setLayer(1));
    EXPECT_THAT(history.notes, ElementsAre("add \"Throw\"", "finished", "add \"Layer\"", "finished"));
}

TEST_F(ksEditHistoryTest, TakesADragAsOneStep)
{
    history.drag(3, [this](int event) { return setLayer(event + 1); });
    EXPECT_EQ(stack.count(), 1);
    EXPECT_EQ(childSettings()->getLayer(), 3);
    EXPECT_THAT(history.notes, ElementsAre("drag \"Layer\", 3 events", "finished"));
    history.notes.clear();
    history.drag(0, [this](int) { return setLayer(9); });
    history.drag(2, [](int) { return nullptr; });
    EXPECT_THAT(history.notes, IsEmpty());
    history.drag(4, [this](int event) { return event % 2 > 0 ? setLayer(event) : nullptr; });
    EXPECT_EQ(stack.count(), 1);
    EXPECT_EQ(childSettings()->getLayer(), 3);
}

TEST_F(ksEditHistoryTest, FinishesADragThatFails)
{
    const auto failAt = [this](int failing) {
        return [this, failing](int event) {
            if (event == failing)
                throw ksEditorError("no such value");
            return setLayer(event + 1);
        };
    };
    EXPECT_THROW(history.drag(5, failAt(0)), ksEditorError);
    EXPECT_THAT(history.notes, IsEmpty());
    EXPECT_THROW(history.drag(5, failAt(2)), ksEditorError);
    EXPECT_EQ(childSettings()->getLayer(), 2);
    EXPECT_EQ(stack.count(), 1);
    // The drag is over.
    history.undo();
    EXPECT_EQ(childSettings()->getLayer(), 0);
    EXPECT_THAT(history.notes,
                ElementsAre("drag \"Layer\", 5 events", "finished", "undo \"Layer\"", "finished"));
}

TEST_F(ksEditHistoryTest, TakesStepsWithinAStepAsPartsOfIt)
{
    history.step(QStringLiteral("all"), [this] {
        history.add(setLayer(1));
        history.drag(2, [this](int event) { return setLayer(event + 2); });
    });
    EXPECT_EQ(childSettings()->getLayer(), 3);
    EXPECT_THAT(history.notes, ElementsAre("all", "finished"));
}

TEST_F(ksEditHistoryTest, MacrosNest)
{
    history.beginMacro(QStringLiteral("Outer"));
    history.add(setLayer(1));
    history.beginMacro(QStringLiteral("Inner"));
    history.drag(2, [this](int event) { return setLayer(event + 2); });
    history.endMacro();
    EXPECT_TRUE(history.isInMacro());
    history.endMacro();
    EXPECT_FALSE(history.isInMacro());
    EXPECT_EQ(stack.count(), 1);
    EXPECT_THAT(history.notes, ElementsAre("macro \"Outer\"", "within add \"Layer\"", "within finished",
                                           "within macro \"Inner\"", "within drag \"Layer\", 2 events",
                                           "within finished", "within finished", "finished"));
    history.undo();
    EXPECT_EQ(childSettings()->getLayer(), 0);
}

TEST_F(ksEditHistoryTest, LeavesWhatCanBeRedoneToAnEmptyMacro)
{
    history.add(setLayer(1));
    history.undo();
    for (const bool keep : {true, false}) {
        history.beginMacro(QStringLiteral("Outer"));
        history.beginMacro(QStringLiteral("Inner"));
        history.endMacro();
        history.endMacro(keep);
    }
    history.redo();
    EXPECT_EQ(childSettings()->getLayer(), 1);
    // What is done after an empty one belongs to the one around it.
    history.beginMacro(QStringLiteral("Outer"));
    history.beginMacro(QStringLiteral("Inner"));
    history.endMacro();
    history.add(setLayer(2));
    history.endMacro();
    EXPECT_EQ(stack.count(), 2);
    EXPECT_EQ(stack.undoText(), QStringLiteral("Outer"));
    history.undo();
    EXPECT_EQ(childSettings()->getLayer(), 1);
}

TEST_F(ksEditHistoryTest, FinishesAMacroWhoseEndThrows)
{
    history.beginMacro(QStringLiteral("Macro"));
    history.add(setLayer(1));
    stack.setMessageCallback([](const char *, ksMessage &, int) -> bool { throw std::runtime_error("no"); });
    EXPECT_THROW(history.endMacro(), std::runtime_error);
    stack.setMessageCallback(nullptr);
    EXPECT_FALSE(history.isInMacro());
    EXPECT_THAT(history.notes,
                ElementsAre("macro \"Macro\"", "within add \"Layer\"", "within finished", "finished"));
    history.undo();
    EXPECT_EQ(childSettings()->getLayer(), 0);
}

TEST_F(ksEditHistoryTest, RefusesToEndAMacroThatIsNotOpen)
{
    EXPECT_EQ(ksErrorOf([this] { history.endMacro(); }), "there is no open macro");
    // Correct ones work afterwards.
    history.beginMacro(QStringLiteral("Macro"));
    history.add(setLayer(1));
    EXPECT_EQ(stack.count(), 1);
    EXPECT_TRUE(history.isInMacro());
    history.endMacro();
    EXPECT_FALSE(history.isInMacro());
    EXPECT_EQ(ksErrorOf([this] { history.endMacro(); }), "there is no open macro");
    history.undo();
    EXPECT_EQ(childSettings()->getLayer(), 0);
}

TEST_F(ksEditHistoryTest, RefusesWhatIsNotPossible)
{
    EXPECT_EQ(ksErrorOf([this] { history.undo(); }), "there is nothing to undo");
    EXPECT_EQ(ksErrorOf([this] { history.redo(); }), "there is nothing to redo");
    const std::function<void()> steps[] = {[this] { history.undo(); }, [this] { history.redo(); },
                                           [this] { history.reset(); }, [this] { history.clear(); }};
    history.add(setLayer(1));
    history.beginMacro(QStringLiteral("Macro"));
    for (const auto &step : steps)
        EXPECT_EQ(ksErrorOf(step), "not possible within a macro");
    history.endMacro();
    const std::function<void()> macros[] = {[this] { history.beginMacro(QString()); },
                                            [this] { history.endMacro(); }};
    history.step(QStringLiteral("step"), [&] {
        for (const auto &step : steps)
            EXPECT_EQ(ksErrorOf(step), "not possible within another step");
        for (const auto &macro : macros)
            EXPECT_EQ(ksErrorOf(macro), "not possible within another step");
    });
    EXPECT_EQ(childSettings()->getLayer(), 1);
}

TEST_F(ksEditHistoryTest, ClosesWhatIsOpen)
{
    const std::ptrdiff_t before = ksLivingContainers();
    {
        ksUndoStack other;
        NotedHistory closed(osg::Node::create(), &other);
        EXPECT_GT(ksLivingContainers(), before);
        closed.beginMacro(QStringLiteral("Outer"));
        closed.beginMacro(QStringLiteral("Inner"));
        closed.add(setLayer(1));
    }
    EXPECT_EQ(ksLivingContainers(), before);
    EXPECT_EQ(childSettings()->getLayer(), 0);
}

TEST_F(ksEditHistoryTest, EmptiesTheStackItEnds)
{
    ksUndoStack other;
    other.beginMacro(QStringLiteral("Macro"));
    other.endMacro();
    {
        NotedHistory closed(root, &other);
        EXPECT_TRUE(other.isEmpty());
        closed.beginMacro(QStringLiteral("Open"));
    }
    EXPECT_TRUE(other.isEmpty());
    other.add(setLayer(1));
    EXPECT_TRUE(other.canUndo());
}
