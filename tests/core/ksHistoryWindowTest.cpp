// SPDX-License-Identifier: MIT
#include <ksundo/core/ksUndoMacro.h>
#include <ksundo/core/ksUndoStack.h>

#include <QApplication>
#include <QSignalSpy>
#include <QStyledItemDelegate>
#include <QUndoStack>
#include <QUndoView>
#include <gmock/gmock.h>

#include <functional>
#include <support/ksEchoTranslator.h>
#include <support/ksProbeCommand.h>
#include <support/ksQtWarnings.h>
#include <support/ksStackRecorder.h>
#include <support/ksStackState.h>

using testing::ElementsAre;

namespace {

std::vector<QUndoView *> historyWindows()
{
    std::vector<QUndoView *> result;
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget *window : windows)
        if (auto *view = qobject_cast<QUndoView *>(window))
            result.push_back(view);
    return result;
}

/// The one history window there is; null when there is none or more than one.
QUndoView *historyWindow()
{
    const auto windows = historyWindows();
    return windows.size() == 1 ? windows.front() : nullptr;
}

/// Counts how often a window is raised.
class ksRaiseCounter : public QObject
{
public:
    bool eventFilter(QObject *, QEvent *event) override
    {
        raised += event->type() == QEvent::ZOrderChange;
        return false;
    }

    int raised = 0;
};

/// Counts how often a widget is painted.
class ksPaintCounter : public QObject
{
public:
    bool eventFilter(QObject *, QEvent *event) override
    {
        painted += event->type() == QEvent::Paint;
        return false;
    }

    int painted = 0;
};

/// Counts the rows that are asked for their size.
class ksCountingDelegate : public QStyledItemDelegate
{
public:
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override
    {
        ++asked;
        return QStyledItemDelegate::sizeHint(option, index);
    }

    mutable int asked = 0;
};

/// How often \a view asks for the size of a row while \a step is taken five times.
int rowsAsked(QUndoView &view, const std::function<void()> &step)
{
    ksCountingDelegate delegate;
    QAbstractItemDelegate *previous = view.itemDelegate();
    view.setItemDelegate(&delegate);
    QCoreApplication::processEvents();
    delegate.asked = 0;
    for (int i = 0; i < 5; ++i) {
        step();
        QCoreApplication::processEvents();
    }
    view.setItemDelegate(previous);
    return delegate.asked;
}

class ksHistoryWindow : public testing::Test
{
protected:
    /// The platform without a display cannot raise windows, and says so; nothing else is amiss.
    void TearDown() override
    {
        EXPECT_THAT(warnings.take(), testing::Each("This plugin does not support raise()"));
    }

    void add(const char *text) { stack.add(new QUndoCommand(QString::fromUtf8(text))); }

    ksQtWarnings warnings;
    ksUndoStack stack;
};

} // namespace

TEST_F(ksHistoryWindow, HasItsTitleSizeAndNoParent)
{
    EXPECT_THAT(historyWindows(), testing::IsEmpty()) << "before it is asked for";
    stack.showHistory();
    ASSERT_NE(historyWindow(), nullptr);
    EXPECT_EQ(historyWindow()->windowTitle(), QStringLiteral("Undo/Redo History"));
    EXPECT_EQ(historyWindow()->size(), QSize(300, 100));
    EXPECT_EQ(historyWindow()->parent(), nullptr);
    EXPECT_TRUE(historyWindow()->isVisible());
}

TEST_F(ksHistoryWindow, HasANameAndKeepsNoApplicationRunning)
{
    stack.showHistory();
    ASSERT_NE(historyWindow(), nullptr);
    EXPECT_EQ(historyWindow()->accessibleName(), QStringLiteral("Undo/Redo History"));
    EXPECT_FALSE(historyWindow()->testAttribute(Qt::WA_QuitOnClose));
}

TEST_F(ksHistoryWindow, MarksTheCleanState)
{
    add("A");
    add("B");
    stack.showHistory();
    QUndoView *window = historyWindow();
    ASSERT_NE(window, nullptr);
    const auto isMarked = [window](int row) {
        return !window->model()->index(row, 0).data(Qt::DecorationRole).isNull();
    };
    EXPECT_TRUE(isMarked(0));
    QCoreApplication::processEvents();
    ksPaintCounter counter;
    window->viewport()->installEventFilter(&counter);
    stack.setClean();
    QCoreApplication::processEvents();
    EXPECT_TRUE(isMarked(2));
    EXPECT_FALSE(isMarked(0));
    EXPECT_EQ(counter.painted, 1);
}

TEST_F(ksHistoryWindow, HasATranslatedTitle)
{
    const ksEchoTranslator translator;
    stack.showHistory();
    ASSERT_NE(historyWindow(), nullptr);
    EXPECT_EQ(historyWindow()->windowTitle(), QStringLiteral("ksUndoStack|Undo/Redo History"));
}

TEST_F(ksHistoryWindow, KeepsWhatTheUserMadeOfIt)
{
    stack.showHistory();
    QUndoView *window = historyWindow();
    ASSERT_NE(window, nullptr);
    window->resize(500, 400);
    window->setWindowTitle(QStringLiteral("mine"));
    stack.showHistory();
    EXPECT_EQ(window->size(), QSize(500, 400));
    EXPECT_EQ(window->windowTitle(), QStringLiteral("mine"));
}

TEST_F(ksHistoryWindow, IsShownAgainAfterItWasClosed)
{
    stack.showHistory();
    QUndoView *window = historyWindow();
    ASSERT_NE(window, nullptr);
    window->close();
    EXPECT_FALSE(window->isVisible());
    stack.showHistory();
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(historyWindow(), window);
}

TEST_F(ksHistoryWindow, IsRaisedOnEveryCall)
{
    stack.showHistory();
    ASSERT_NE(historyWindow(), nullptr);
    ksRaiseCounter counter;
    historyWindow()->installEventFilter(&counter);
    stack.showHistory();
    EXPECT_EQ(counter.raised, 1);
    stack.showHistory();
    EXPECT_EQ(counter.raised, 2);
}

TEST_F(ksHistoryWindow, IsMadeAnewWhenSomebodyDeletedIt)
{
    stack.showHistory();
    delete historyWindow();
    stack.showHistory();
    ASSERT_NE(historyWindow(), nullptr);
    EXPECT_TRUE(historyWindow()->isVisible());
}

TEST_F(ksHistoryWindow, ListsTheCommandsOfItsStack)
{
    add("A");
    stack.showHistory();
    ASSERT_NE(historyWindow(), nullptr);
    add("B");
    const QAbstractItemModel *model = historyWindow()->model();
    ASSERT_EQ(model->rowCount(), 3);
    EXPECT_EQ(model->index(1, 0).data(), QStringLiteral("A"));
    EXPECT_EQ(model->index(2, 0).data(), QStringLiteral("B"));
}

TEST_F(ksHistoryWindow, GoesWithItsStack)
{
    {
        ksUndoStack other;
        other.showHistory();
        EXPECT_EQ(historyWindows().size(), 1u);
    }
    EXPECT_THAT(historyWindows(), testing::IsEmpty());
}

TEST_F(ksHistoryWindow, GoesBeforeTheCommandsOfItsStack)
{
    ksProbeLog log;
    {
        ksUndoStack other;
        other.add(new ksProbeCommand<>(QStringLiteral("A"), log));
        other.showHistory();
        ASSERT_NE(historyWindow(), nullptr);
        QObject::connect(historyWindow(), &QObject::destroyed, [&log] { log.push_back("delete window"); });
    }
    EXPECT_THAT(log, ElementsAre("redo A", "delete window", "delete A"));
}

TEST_F(ksHistoryWindow, IsOnePerStack)
{
    ksUndoStack other;
    stack.showHistory();
    other.showHistory();
    EXPECT_EQ(historyWindows().size(), 2u);
}

TEST_F(ksHistoryWindow, ReportsAStepByClick)
{
    for (const char *text : {"A", "B", "C"})
        add(text);
    stack.showHistory();
    ASSERT_NE(historyWindow(), nullptr);
    ksStackRecorder recorder(stack);
    int depth = -1;
    QObject receiver;
    QObject::connect(&stack, &ksUndoStack::undoPerformed, &receiver, [&] { depth = stack.getBusyDepth(); });

    historyWindow()->setCurrentIndex(historyWindow()->model()->index(1, 0));
    EXPECT_EQ(recorder.take(), ksStep::undone("B", 1));
    EXPECT_EQ(ksStateOf(stack), ksHolding({"A", "B", "C"}, 1));
    EXPECT_EQ(depth, 1);

    historyWindow()->setCurrentIndex(historyWindow()->model()->index(3, 0));
    EXPECT_EQ(recorder.take(), ksStep::redone("C", 2));
}

TEST_F(ksHistoryWindow, ReadsTheHistoryAnewOnlyWhenRowsComeOrGo)
{
    stack.setUndoLimit(3);
    stack.showHistory();
    QUndoView *window = historyWindow();
    ASSERT_NE(window, nullptr);
    QSignalSpy readings(window->model(), &QAbstractItemModel::modelReset);
    const auto isReadBy = [&](const std::function<void()> &event) {
        readings.clear();
        event();
        EXPECT_EQ(window->currentIndex().row(), stack.index());
        EXPECT_EQ(window->model()->rowCount(), stack.count() + 1);
        return !readings.isEmpty();
    };
    int number = 0;
    const auto set = [&](int value) { stack.add(new ksSetNumberCommand(QString(), number, value)); };

    EXPECT_TRUE(isReadBy([&] { add("A"); }));
    EXPECT_TRUE(isReadBy([&] { set(1); }));
    EXPECT_FALSE(isReadBy([&] { set(2); })) << "merged";
    EXPECT_FALSE(isReadBy([&] { stack.undo(); }));
    EXPECT_FALSE(isReadBy([&] { stack.redo(); }));
    EXPECT_TRUE(isReadBy([&] { add("B"); }));
    EXPECT_FALSE(isReadBy([&] { stack.undo(); }));
    EXPECT_TRUE(isReadBy([&] { set(3); })) << "merged in place of what was undone";
    EXPECT_FALSE(isReadBy([&] { stack.undo(); }));
    EXPECT_FALSE(isReadBy([&] { add("C"); })) << "in place of another";
    EXPECT_EQ(window->model()->index(2, 0).data(), QStringLiteral("C"));
    EXPECT_TRUE(isReadBy([&] { const ksUndoMacro macro(QStringLiteral("D"), &stack); }));
    EXPECT_FALSE(isReadBy([&] { add("E"); })) << "at the limit";
    EXPECT_EQ(window->model()->index(3, 0).data(), QStringLiteral("E"));
    EXPECT_TRUE(isReadBy([&] {
        const_cast<QUndoCommand *>(stack.currentCommand())->setObsolete(true);
        stack.undo();
    }));
    EXPECT_TRUE(isReadBy([&] { stack.clear(); }));
}

TEST_F(ksHistoryWindow, CatchesUpWhenItIsShownAgain)
{
    stack.showHistory();
    QUndoView *window = historyWindow();
    ASSERT_NE(window, nullptr);
    window->close();
    QSignalSpy readings(window->model(), &QAbstractItemModel::modelReset);
    add("A");
    add("B");
    stack.undo();
    EXPECT_TRUE(readings.isEmpty());
    stack.showHistory();
    EXPECT_FALSE(readings.isEmpty());
    EXPECT_EQ(window->currentIndex().row(), 1);
    EXPECT_EQ(window->model()->index(2, 0).data(), QStringLiteral("B"));
}

TEST_F(ksHistoryWindow, AsksFewRowsForTheirSizeHoweverLongTheHistory)
{
    QUndoStack stock;
    for (int i = 0; i < 50000; ++i) {
        stack.add(new QUndoCommand(QStringLiteral("step")));
        stock.push(new QUndoCommand(QStringLiteral("step")));
    }
    QUndoView stockView(&stock);
    stockView.resize(300, 100);
    stockView.show();
    stack.showHistory();
    QUndoView *window = nullptr;
    for (QUndoView *view : historyWindows())
        if (view != &stockView)
            window = view;
    ASSERT_NE(window, nullptr);

    const int ours = rowsAsked(*window, [this] { stack.add(new QUndoCommand(QStringLiteral("more"))); });
    const int theirs = rowsAsked(stockView, [&] { stock.push(new QUndoCommand(QStringLiteral("more"))); });
    EXPECT_GT(ours, 0);
    EXPECT_LT(ours, theirs / 50);
}
