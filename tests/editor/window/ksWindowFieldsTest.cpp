// SPDX-License-Identifier: MIT
#include "ksWindowFixture.h"
#include <editor/inspector/ksInspector.h>
#include <editor/viewport/ksViewport.h>
#include <editor/window/ksOutline.h>

#include <ksundo/core/ksUndoStack.h>

#include <OSGTransform3D.h>
#include <ksNodeUtils.h>

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QTreeView>

namespace {

/// The window with the table selected, and keys that go where the focus is.
class ksWindowFieldsTest : public ksWindowFixture
{
protected:
    ksWindowFieldsTest()
    {
        openRoom();
        document.selection().set(node("Table"));
        QCoreApplication::processEvents();
    }

    template <class WidgetT>
    WidgetT *find(const char *name) const
    {
        for (auto *widget : window->inspector().findChildren<WidgetT *>())
            if (widget->accessibleName() == QLatin1String(name))
                return widget;
        ADD_FAILURE() << "there is no control " << name;
        return nullptr;
    }

    static void type(const QString &text) { QTest::keyClicks(QApplication::focusWidget(), text); }

    static void key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
    }

    /// Types \a text in the place of the number \a name, and goes on from there.
    void typeNumber(const char *name, const QString &text) const
    {
        auto *line = find<QLineEdit>(name);
        line->parentWidget()->setFocus();
        line->selectAll();
        type(text);
    }

    float height() const { return ksNodeUtils::getTransformNodeTranslation(node("Table"), false, -1)[1]; }
};

} // namespace

TEST_F(ksWindowFieldsTest, KeepTheirKeysFromTheWindow)
{
    find<QLineEdit>("Variants, what to add")->setFocus();
    type(QStringLiteral("Open"));
    key(Qt::Key_Return);
    auto *variants = find<QListWidget>("Variants");
    ASSERT_EQ(variants->count(), 1);
    variants->setFocus();
    key(Qt::Key_F2);
    ASSERT_NE(qobject_cast<QLineEdit *>(QApplication::focusWidget()), nullptr);
    EXPECT_EQ(QApplication::focusWidget()->accessibleName(), QStringLiteral("Variants"));
    type(QStringLiteral("Shut"));
    key(Qt::Key_Return);
    QCoreApplication::processEvents();
    EXPECT_EQ(variants->item(0)->text(), QStringLiteral("Shut"));
    EXPECT_NE(node("Table"), osg::NullFC);
    variants->setFocus();
    key(Qt::Key_Delete);
    EXPECT_EQ(variants->count(), 0);
    EXPECT_NE(node("Table"), osg::NullFC);
    EXPECT_EQ(document.stack().count(), 3);

    window->viewport().setTool(ksViewport::Tool::Select);
    for (QWidget *control :
         {static_cast<QWidget *>(variants), static_cast<QWidget *>(find<QCheckBox>("Shown")),
          static_cast<QWidget *>(find<QComboBox>("Space"))}) {
        control->setFocus();
        ASSERT_EQ(QApplication::focusWidget(), control);
        for (const Qt::Key each : {Qt::Key_H, Qt::Key_W, Qt::Key_Delete})
            key(each);
        EXPECT_EQ(window->viewport().tool(), ksViewport::Tool::Select);
    }
    EXPECT_EQ(document.stack().count(), 3);

    // These have them.
    for (QWidget *part :
         {static_cast<QWidget *>(&window->viewport()), static_cast<QWidget *>(window->outline().tree())}) {
        const int count = document.stack().count();
        part->setFocus();
        key(Qt::Key_H);
        EXPECT_EQ(document.stack().count(), count + 1);
        key(Qt::Key_W);
        EXPECT_EQ(window->viewport().tool(), ksViewport::Tool::Move);
    }
    find<QCheckBox>("Shown")->setFocus();
    key(Qt::Key_D, Qt::ControlModifier);
    EXPECT_EQ(document.stack().undoText(), QStringLiteral("Duplicate 'Table'"));
}

TEST_F(ksWindowFieldsTest, TakeWhatIsTypedBeforeItIsSaved)
{
    user.path = folder.path("saved.gltf");
    typeNumber("Translation y", QStringLiteral("3"));
    key(Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(height(), 3);
    EXPECT_FALSE(document.isModified());
    typeNumber("Translation y", QStringLiteral("4"));
    EXPECT_TRUE(window->save());
    EXPECT_EQ(height(), 4);
    EXPECT_EQ(document.stack().count(), 2);

    typeNumber("Translation y", QStringLiteral("5"));
    user.answer = ksDialogs::Answer::Save;
    EXPECT_TRUE(window->close());
    EXPECT_EQ(user.asked.size(), 1);
    document.open(user.path);
    EXPECT_EQ(height(), 5);
}

TEST_F(ksWindowFieldsTest, TakeNamesBeforeTheyAreSaved)
{
    user.path = folder.path("saved.gltf");
    window->outline().tree()->setFocus();
    const osg::NodePtr table = node("Table");
    key(Qt::Key_F2);
    type(QStringLiteral("Desk"));
    key(Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(ksContainers::nameOf(table), QStringLiteral("Desk"));
    EXPECT_FALSE(document.isModified());
    EXPECT_TRUE(window->outline().tree()->hasFocus());
}

TEST_F(ksWindowFieldsTest, TakeWhatIsTypedBeforeAndAfterSavingAsTwoSteps)
{
    user.path = folder.path("saved.gltf");
    auto *comment = find<QLineEdit>("Comment");
    const QString before = comment->text();
    comment->setFocus();
    comment->selectAll();
    type(QStringLiteral("one"));
    key(Qt::Key_S, Qt::ControlModifier);
    EXPECT_FALSE(document.isModified());
    EXPECT_TRUE(comment->hasFocus());
    type(QStringLiteral(" two"));
    EXPECT_EQ(comment->text(), QStringLiteral("one two"));
    EXPECT_EQ(document.stack().count(), 2);
    document.stack().undo();
    EXPECT_EQ(comment->text(), QStringLiteral("one"));
    EXPECT_FALSE(document.isModified());
    document.stack().undo();
    EXPECT_EQ(comment->text(), before);
}
