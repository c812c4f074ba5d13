// SPDX-License-Identifier: MIT
#include "ksWindowFixture.h"
#include <editor/document/ksNodeEdits.h>
#include <editor/window/ksScriptInput.h>
#include <editor/window/ksScriptPanel.h>

#include <ksundo/core/ksUndoStack.h>

#include <QAbstractItemView>
#include <QCompleter>
#include <QDoubleSpinBox>
#include <QPlainTextEdit>
#include <QTimer>
#include <QToolButton>

namespace {

using testing::EndsWith;
using testing::HasSubstr;

class ksScriptPanelTest : public ksWindowFixture
{
protected:
    ksScriptPanelTest() { openRoom(); }

    ksScriptInput &line() const { return *window->scripts().input(); }

    /// Types \a text and Enter; returns what was written.
    std::string enter(const char *text)
    {
        output().clear();
        QTest::keyClicks(&line(), QString::fromUtf8(text));
        QTest::keyClick(&line(), Qt::Key_Return);
        return output().toPlainText().toStdString();
    }

    QPlainTextEdit &output() const { return *window->scripts().findChild<QPlainTextEdit *>(); }

    QToolButton *button(const char *text) const
    {
        for (auto *button : window->scripts().findChildren<QToolButton *>())
            if (button->text() == QString::fromUtf8(text))
                return button;
        return nullptr;
    }

    /// Runs a script that never ends, and meanwhile \a work, over and over.
    template <class Work>
    std::string runEndlessly(const Work &work)
    {
        QTimer timer;
        QObject::connect(&timer, &QTimer::timeout, &timer, work);
        timer.start(0);
        return enter("while (true) print('more')");
    }
};

} // namespace

TEST_F(ksScriptPanelTest, RunsLineByLine)
{
    EXPECT_EQ(enter("var table = scene.find('Table')"), "> var table = scene.find('Table')");
    EXPECT_THAT(enter("print(table.name)"), EndsWith("\nTable"));
    EXPECT_THAT(enter("1 + 1"), EndsWith("\n2"));
    enter("table.translate([1, 2, 3])");
    EXPECT_EQ(document.stack().undoText(), QStringLiteral("Translate 'Table'"));
    EXPECT_THAT(enter("tabel"), EndsWith("\nconsole:1: ReferenceError: tabel is not defined"));
    EXPECT_THAT(enter("console.warn('mind')"), EndsWith("\nmind"));
    EXPECT_EQ(enter("  "), "");
}

/// Whoever edits: names that scripts find nodes by are up to date.
TEST_F(ksScriptPanelTest, KnowsWhatTheWindowHasEdited)
{
    EXPECT_THAT(enter("scene.find('Table').name"), EndsWith("\nTable"));
    ksNodeEdits::rename(document, node("Table"), QStringLiteral("Desk"));
    EXPECT_THAT(enter("scene.find('Desk').name"), EndsWith("\nDesk"));
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_THAT(enter("scene.find('Table').name"), EndsWith("\nTable"));
    user.answer = ksDialogs::Answer::Discard;
    openRoom();
    EXPECT_THAT(enter("scene.find('Table').name"), EndsWith("\nTable"));
}

TEST_F(ksScriptPanelTest, BringsLinesBack)
{
    enter("1");
    enter("2");
    enter("2");
    QTest::keyClicks(&line(), QStringLiteral("3"));
    const Qt::Key keys[] = {Qt::Key_Up, Qt::Key_Up, Qt::Key_Up, Qt::Key_Down, Qt::Key_Down, Qt::Key_Down};
    QStringList seen;
    for (const Qt::Key key : keys) {
        QTest::keyClick(&line(), key);
        seen += line().text();
    }
    EXPECT_EQ(seen.join(QLatin1Char(' ')), QStringLiteral("2 1 1 2 3 3"));
}

TEST_F(ksScriptPanelTest, CompletesNames)
{
    enter("var tableTop = scene.find('TableTop')");
    EXPECT_EQ(line().completionsOf(QStringLiteral("hist")), QStringList(QStringLiteral("history")));
    EXPECT_EQ(line().completionsOf(QStringLiteral("x = tab")), QStringList(QStringLiteral("tableTop")));
    EXPECT_EQ(line().completionsOf(QStringLiteral("history.beg")), QStringList(QStringLiteral("beginMacro")));
    EXPECT_FALSE(line().completionsOf(QStringLiteral("history.")).contains(QStringLiteral("translate")));
    EXPECT_EQ(line().completionsOf(QStringLiteral("tableTop.translat")),
              QStringList(QStringLiteral("translate")));
    EXPECT_EQ(line().completionsOf(QStringLiteral("scene.find('Table').translat")),
              QStringList(QStringLiteral("translate")));

    QTest::keyClicks(&line(), QStringLiteral("history.un"));
    QTest::keyClick(&line(), Qt::Key_Tab);
    EXPECT_EQ(line().text(), QStringLiteral("history.undo"));
    line().setText(QStringLiteral("history."));
    QTest::keyClick(&line(), Qt::Key_Tab);
    QAbstractItemView *list = line().findChild<QCompleter *>()->popup();
    EXPECT_TRUE(list->isVisible());
    // Return chooses, and runs nothing.
    const int written = output().blockCount();
    QTest::keyClick(list, Qt::Key_Down);
    QTest::keyClick(list, Qt::Key_Return);
    EXPECT_FALSE(list->isVisible());
    EXPECT_THAT(line().text().toStdString(), testing::MatchesRegex("history\\.[a-zA-Z]+"));
    EXPECT_EQ(output().blockCount(), written);
    // What is typed on is run as it is.
    line().setFocus();
    ASSERT_TRUE(line().hasFocus());
    line().setText(QStringLiteral("history."));
    QTest::keyClick(&line(), Qt::Key_Tab);
    QTest::keyClick(list, 'u');
    EXPECT_FALSE(list->isVisible());
    QTest::keyClicks(&line(), QStringLiteral("ndo()"));
    EXPECT_EQ(line().text(), QStringLiteral("history.undo()"));
    // Without a name, Tab moves on.
    line().clear();
    line().setFocus();
    QTest::keyClick(&line(), Qt::Key_Tab);
    EXPECT_FALSE(line().hasFocus());
}

TEST_F(ksScriptPanelTest, StopsByTheButton)
{
    bool wasRunning = false;
    const std::string written = runEndlessly([&] {
        wasRunning = window->scripts().isRunning();
        QTest::mouseClick(button("Stop"), Qt::LeftButton);
    });
    EXPECT_TRUE(wasRunning);
    EXPECT_THAT(written, EndsWith("\nconsole: interrupted"));
    EXPECT_FALSE(window->scripts().isRunning());
    EXPECT_FALSE(button("Stop")->isEnabled());
    EXPECT_THAT(enter("1 + 1"), EndsWith("\n2"));
}

TEST_F(ksScriptPanelTest, HeedsNothingElseWhileAScriptRuns)
{
    int calls = 0;
    const std::string written = runEndlessly([&] {
        if (++calls > 1)
            return;
        document.selection().set(node("Chair"));
        press(Qt::Key_Delete);
        press(Qt::Key_N, Qt::ControlModifier);
        EXPECT_FALSE(window->close());
        EXPECT_FALSE(action("New")->isVisible() && window->menuBar()->actions().first()->isEnabled());
        press(Qt::Key_Escape);
    });
    EXPECT_THAT(written, EndsWith("\nconsole: interrupted"));
    EXPECT_NE(node("Chair"), osg::NullFC);
    EXPECT_TRUE(window->menuBar()->actions().first()->isEnabled());
}

TEST_F(ksScriptPanelTest, EndsWhatTakesTooLong)
{
    window->scripts().findChild<QDoubleSpinBox *>()->setValue(0.1);
    EXPECT_THAT(enter("while (true) {}"), EndsWith("\nended after 0.1 s of silence"));
    EXPECT_THAT(
        enter("history.macro('m', function () { scene.find('Chair').set('travMask', 0); while (true) {} })"),
        EndsWith("\nended after 0.1 s of silence"));
    EXPECT_NE(node("Chair")->getTravMask(), 0u);
    EXPECT_EQ(document.stack().count(), 0);
}

TEST_F(ksScriptPanelTest, RunsFiles)
{
    user.path = folder.write("script.js", "scene.find('Chair').name = 'Stool';\nprint('done');\nwat();\n");
    press(Qt::Key_R, Qt::ControlModifier);
    EXPECT_THAT(output().toPlainText().toStdString(),
                HasSubstr("\ndone\n" + user.path.toStdString() + ":3: ReferenceError: wat is not defined"));
}
