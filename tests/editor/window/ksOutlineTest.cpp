// SPDX-License-Identifier: MIT
#include "ksWindowFixture.h"
#include <editor/document/ksNodeEdits.h>
#include <editor/edits/ksTransformEdits.h>
#include <editor/window/ksOutline.h>
#include <editor/window/ksOutlineModel.h>

#include <ksundo/core/ksUndoStack.h>

#include <QLineEdit>
#include <QScrollBar>
#include <QTreeView>

namespace {

class ksOutlineTest : public ksWindowFixture
{
protected:
    ksOutlineTest() { openRoom(); }

    QTreeView &tree() const { return *window->outline().tree(); }

    QModelIndex indexOf(const char *name) const
    {
        const QModelIndexList found =
            tree().model()->match(tree().model()->index(0, 0), Qt::DisplayRole, QString::fromLatin1(name), 1,
                                  Qt::MatchExactly | Qt::MatchRecursive);
        return found.isEmpty() ? QModelIndex() : found.first();
    }

    void click(const char *name, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::mouseClick(tree().viewport(), Qt::LeftButton, modifiers,
                          tree().visualRect(indexOf(name)).center());
    }

    void filterBy(const char *text)
    {
        auto *filter = window->outline().findChild<QLineEdit *>();
        filter->clear();
        QTest::keyClicks(filter, QString::fromLatin1(text));
    }

    std::vector<std::string> selected()
    {
        std::vector<std::string> names;
        for (const osg::NodePtr &node : document.selection().nodes())
            names.push_back(osg::getName(node));
        return names;
    }

    bool isOnScreen(const char *name) const
    {
        const QModelIndex index = indexOf(name);
        return index.isValid() && tree().viewport()->rect().contains(tree().visualRect(index).center()) &&
               tree().visualRect(index).isValid();
    }
};

using testing::ElementsAre;

} // namespace

TEST_F(ksOutlineTest, SelectsWhatTheDocumentHasSelected)
{
    click("Chair");
    EXPECT_THAT(selected(), ElementsAre("Chair"));
    click("Lamp", Qt::ControlModifier);
    click("Floor", Qt::ControlModifier);
    EXPECT_THAT(selected(), ElementsAre("Chair", "Lamp", "Floor"));
    click("Lamp", Qt::ControlModifier);
    EXPECT_THAT(selected(), ElementsAre("Chair", "Floor"));

    document.selection().set({node("Legs").getFieldContainerId(), node("Rug").getFieldContainerId()});
    EXPECT_TRUE(tree().selectionModel()->isSelected(indexOf("Legs")));
    EXPECT_TRUE(tree().selectionModel()->isSelected(indexOf("Rug")));
    EXPECT_FALSE(tree().selectionModel()->isSelected(indexOf("Chair")));
    EXPECT_TRUE(isOnScreen("Rug"));
}

TEST_F(ksOutlineTest, Filters)
{
    click("Chair");
    filterBy("LEGS");
    EXPECT_TRUE(isOnScreen("Legs"));
    EXPECT_TRUE(indexOf("Table").isValid());
    EXPECT_FALSE(indexOf("Floor").isValid());
    EXPECT_THAT(selected(), ElementsAre("Chair"));
    filterBy("");
    EXPECT_TRUE(tree().selectionModel()->isSelected(indexOf("Chair")));
    EXPECT_TRUE(indexOf("Floor").isValid());
}

TEST_F(ksOutlineTest, RenamesInPlace)
{
    click("Chair");
    press(Qt::Key_F2);
    auto *editor = tree().viewport()->findChild<QLineEdit *>();
    ASSERT_NE(editor, nullptr);
    QTest::keyClicks(editor, QStringLiteral("Stool"));
    QTest::keyClick(editor, Qt::Key_Return);
    QCoreApplication::processEvents();
    EXPECT_NE(node("Stool"), osg::NullFC);
    EXPECT_EQ(document.stack().undoText(), QStringLiteral("Rename 'Chair'"));
    EXPECT_EQ(document.stack().count(), 1);
}

TEST_F(ksOutlineTest, HidesAndShowsByAClick)
{
    const QRect box = tree().visualRect(indexOf("Chair").siblingAtColumn(ksOutlineModel::VisibilityColumn));
    QTest::mouseClick(tree().viewport(), Qt::LeftButton, {}, box.topLeft() + QPoint(10, box.height() / 2));
    EXPECT_EQ(node("Chair")->getTravMask(), 0u);
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_NE(node("Chair")->getTravMask(), 0u);
}

TEST_F(ksOutlineTest, FindsWhatAnUndoBringsBackSelected)
{
    click("Chair");
    press(Qt::Key_Delete);
    EXPECT_FALSE(indexOf("Chair").isValid());
    EXPECT_TRUE(tree().selectionModel()->selectedRows().isEmpty());
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_THAT(selected(), ElementsAre("Chair"));
    EXPECT_TRUE(tree().selectionModel()->isSelected(indexOf("Chair")));
}

TEST_F(ksOutlineTest, RevealsWhatAnUndoHasEdited)
{
    const ksTransformProperty &translation = *ksTransformEdits::find(QStringLiteral("translation"));
    document.add(translation.make({node("Legs")}, osg::Vec3f(1, 2, 3), {}, nullptr));
    click("Chair");
    EXPECT_FALSE(isOnScreen("Legs"));
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_TRUE(isOnScreen("Legs"));
    EXPECT_THAT(selected(), ElementsAre("Chair"));

    tree().collapseAll();
    press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_TRUE(isOnScreen("Legs"));

    document.add(translation.make({node("Chair")}, osg::Vec3f(1, 2, 3), {}, nullptr));
    press(Qt::Key_Z, Qt::ControlModifier);
    tree().collapseAll();
    document.stack().undo();
    EXPECT_TRUE(isOnScreen("Legs"));
}

TEST_F(ksOutlineTest, SelectsRowsThatFollowEachOtherAsOneRange)
{
    window->outline().selectAll();
    const std::size_t all = document.selection().ids().size();
    EXPECT_LT(tree().selectionModel()->selection().size(), static_cast<int>(all));
    EXPECT_EQ(tree().selectionModel()->selectedRows().size(), static_cast<int>(all));
    click("Floor", Qt::ControlModifier);
    EXPECT_EQ(document.selection().ids().size(), all - 1);
}

TEST_F(ksOutlineTest, StaysWhereItIsUnderAClick)
{
    tree().expandAll();
    window->outline().selectAll();
    tree().scrollToTop();
    const int last = tree().verticalScrollBar()->maximum();
    ASSERT_GT(last, 0);
    click("Floor", Qt::ControlModifier);
    EXPECT_EQ(tree().verticalScrollBar()->value(), 0);
    document.selection().set(node("Sun"));
    EXPECT_GT(tree().verticalScrollBar()->value(), 0);
}

TEST_F(ksOutlineTest, KeepsSelectedWhatTheFilterHides)
{
    filterBy("Legs");
    click("Legs");
    ksNodeEdits::rename(document, node("Legs"), QStringLiteral("Feet"));
    EXPECT_FALSE(indexOf("Feet").isValid());
    EXPECT_THAT(selected(), ElementsAre("Feet"));
}

TEST_F(ksOutlineTest, DropsNodesThroughTheFilter)
{
    filterBy("a");
    const std::unique_ptr<QMimeData> dragged(tree().model()->mimeData({indexOf("Chair")}));
    tree().model()->dropMimeData(dragged.get(), Qt::MoveAction, -1, -1, indexOf("Table"));
    EXPECT_EQ(node("Chair")->getParent(), node("Table"));
    EXPECT_EQ(document.stack().count(), 1);
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(node("Chair")->getParent(), document.root());
}
