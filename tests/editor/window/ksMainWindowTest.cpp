// SPDX-License-Identifier: MIT
#include "ksWindowFixture.h"
#include <editor/document/ksNodeEdits.h>
#include <editor/edits/ksTransformEdits.h>
#include <editor/window/ksTranslations.h>

#include <ksundo/core/ksUndoGesture.h>
#include <ksundo/core/ksUndoStack.h>

#include <OSGTransform3D.h>

#include <QAccessible>
#include <QDockWidget>
#include <QFile>
#include <QLineEdit>
#include <QListWidget>
#include <QLocale>
#include <QMimeData>
#include <QTranslator>
#include <QUndoView>

namespace {

using testing::HasSubstr;

class ksMainWindowTest : public ksWindowFixture
{
protected:
    void moveChair(float x)
    {
        const ksTransformProperty &translation = *ksTransformEdits::find(QStringLiteral("translation"));
        document.add(translation.make({node("Chair")}, osg::Vec3f(x, 0, 0), {}, nullptr));
    }

    float placeOfChair() const
    {
        return osg::Transform3DPtr::dcast(node("Chair")->getCore())->getTranslation()[0];
    }

    /// Drags \a data over the window and drops it.
    bool drop(const QMimeData &data)
    {
        QDragEnterEvent enter(QPoint(600, 300), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        enter.ignore();
        QCoreApplication::sendEvent(window.get(), &enter);
        if (!enter.isAccepted())
            return false;
        QDropEvent event(QPoint(600, 300), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(window.get(), &event);
        return true;
    }

    QDockWidget *dock(const char *name) const
    {
        return window->findChild<QDockWidget *>(QString::fromLatin1(name));
    }
};

} // namespace

TEST_F(ksMainWindowTest, OpensEditsUndoesSavesAndOpensAgain)
{
    EXPECT_EQ(window->windowTitle(), QStringLiteral("Untitled[*] - ks-editor"));
    user.path = ksRoomFile();
    press(Qt::Key_O, Qt::ControlModifier);
    EXPECT_EQ(window->windowTitle(), QStringLiteral("room.gltf[*] - ks-editor"));
    EXPECT_FALSE(window->isWindowModified());
    const float before = placeOfChair();

    moveChair(7);
    EXPECT_TRUE(window->isWindowModified());
    QAction *undo = action("Undo \"Translate 'Chair'\"");
    ASSERT_NE(undo, nullptr);
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(placeOfChair(), before);
    EXPECT_FALSE(window->isWindowModified());
    EXPECT_EQ(undo->text(), QStringLiteral("&Undo"));
    EXPECT_FALSE(undo->isEnabled());
    press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(placeOfChair(), 7);
    undo->trigger();
    EXPECT_EQ(placeOfChair(), before);
    action("Redo \"Translate 'Chair'\"")->trigger();

    // The room's camera has no place in the scene, so that its file is not overwritten.
    user.path = folder.path("saved.gltf");
    press(Qt::Key_S, Qt::ControlModifier);
    EXPECT_THAT(user.proposed.toStdString(), testing::EndsWith("/room.gltf"));
    EXPECT_FALSE(window->isWindowModified());
    EXPECT_EQ(window->windowTitle(), QStringLiteral("saved.gltf[*] - ks-editor"));
    user.proposed.clear();
    moveChair(8);
    press(Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(user.proposed, QString());
    press(Qt::Key_N, Qt::ControlModifier);
    EXPECT_EQ(document.root()->getNChildren(), 0u);
    EXPECT_TRUE(window->open(folder.path("saved.gltf")));
    EXPECT_EQ(placeOfChair(), 8);
    EXPECT_EQ(user.asked, QStringList());
    EXPECT_EQ(user.complaints, QStringList());
}

TEST_F(ksMainWindowTest, AsksBeforeUnsavedEditsGo)
{
    openRoom();
    moveChair(7);
    user.answer = ksDialogs::Answer::Cancel;
    EXPECT_FALSE(window->close());
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(user.asked, QStringList(QStringLiteral("room.gltf")));
    press(Qt::Key_N, Qt::ControlModifier);
    EXPECT_FALSE(window->open(ksRoomFile()));
    EXPECT_EQ(placeOfChair(), 7);
    EXPECT_EQ(user.asked.size(), 3);

    // Saving that is cancelled, or fails, keeps them as well.
    user.answer = ksDialogs::Answer::Save;
    EXPECT_FALSE(window->close());
    user.path = folder.path("missing/saved.gltf");
    EXPECT_FALSE(window->close());
    ASSERT_EQ(user.complaints.size(), 1);
    EXPECT_THAT(user.complaints[0].toStdString(), HasSubstr("missing/saved.gltf"));
    EXPECT_TRUE(window->isWindowModified());
    user.path = folder.path("saved.gltf");
    EXPECT_TRUE(window->close());
    EXPECT_TRUE(QFile::exists(user.path));

    window->show();
    moveChair(9);
    user.answer = ksDialogs::Answer::Discard;
    EXPECT_TRUE(window->close());
    ksDocument saved;
    saved.open(folder.path("saved.gltf"));
    EXPECT_EQ(osg::Transform3DPtr::dcast(ksFindNode(saved.root(), "Chair")->getCore())->getTranslation()[0],
              7);
}

TEST_F(ksMainWindowTest, KeepsTheDocumentWhenAFileCannotBeRead)
{
    openRoom();
    const osg::NodePtr root = document.root();
    EXPECT_FALSE(window->open(folder.path("missing.gltf")));
    EXPECT_EQ(user.complaints, QStringList(folder.path("missing.gltf") + QStringLiteral(": no such file")));
    user.isCancelling = true;
    EXPECT_FALSE(window->open(ksRoomFile()));
    EXPECT_EQ(user.complaints.size(), 1);
    EXPECT_EQ(document.root(), root);
    EXPECT_EQ(ksMainWindow::recentFiles(), QStringList(ksRoomFile()));
}

TEST_F(ksMainWindowTest, OffersTheFilesThatWereOpenedLast)
{
    const QString triangle = folder.write("a & b.obj", "v 0 0 0\nv 1 0 0\nv 0 1 0\nf 1 2 3\n");
    openRoom();
    EXPECT_TRUE(window->open(triangle));
    openRoom();
    EXPECT_EQ(ksMainWindow::recentFiles(), (QStringList{ksRoomFile(), triangle}));
    // As a click on the menu bar does.
    auto *file = qobject_cast<QMenu *>(window->menuBar()->actions().first()->menu());
    file->popup(QPoint());
    file->close();
    const QMenu *recent = action("Open Recent")->menu();
    ASSERT_EQ(recent->actions().size(), 2);
    EXPECT_EQ(recent->actions()[1]->text(), QStringLiteral("&2 a && b.obj"));
    recent->actions()[1]->trigger();
    EXPECT_EQ(document.path(), triangle);
}

TEST_F(ksMainWindowTest, OpensWhatIsDropped)
{
    QMimeData data;
    EXPECT_FALSE(drop(data));
    data.setUrls({QUrl(QStringLiteral("https://example.com/room.gltf"))});
    EXPECT_FALSE(drop(data));
    data.setUrls({QUrl::fromLocalFile(ksRoomFile())});
    EXPECT_TRUE(drop(data));
    EXPECT_EQ(document.path(), QString()) << "who has dragged it waits";
    QCoreApplication::processEvents();
    EXPECT_EQ(document.path(), ksRoomFile());
}

TEST_F(ksMainWindowTest, ShowsWarningsWhenThereAreAny)
{
    EXPECT_FALSE(dock("warnings")->isVisible());
    openRoom();
    EXPECT_TRUE(dock("warnings")->isVisible());
    const auto *list = dock("warnings")->findChild<QListWidget *>();
    ASSERT_EQ(list->count(), 1);
    EXPECT_EQ(list->item(0)->text(), QStringLiteral("Left out: 1 camera"));
    press(Qt::Key_N, Qt::ControlModifier);
    EXPECT_FALSE(dock("warnings")->isVisible());
}

TEST_F(ksMainWindowTest, ReturnsToTheCheckpoint)
{
    openRoom();
    moveChair(1);
    EXPECT_FALSE(action("Return to Checkpoint")->isEnabled());
    press(Qt::Key_M, Qt::ControlModifier);
    ksNodeEdits::rename(document, node("Chair"), QStringLiteral("Stool"));
    ksNodeEdits::remove(document, {node("Table")});
    press(Qt::Key_M, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(document.stack().index(), 1);
    EXPECT_EQ(placeOfChair(), 1);
    EXPECT_NE(node("Table"), osg::NullFC);
    user.answer = ksDialogs::Answer::Discard;
    press(Qt::Key_N, Qt::ControlModifier);
    EXPECT_FALSE(action("Return to Checkpoint")->isEnabled());
}

TEST_F(ksMainWindowTest, OffersNoRedoOfWhatWasTakenBack)
{
    openRoom();
    ksUndoGesture gesture(&document.stack());
    moveChair(1);
    EXPECT_TRUE(action("Undo \"Translate 'Chair'\"")->isEnabled());
    gesture.takeBack();
    EXPECT_FALSE(action("Undo")->isEnabled());
    EXPECT_FALSE(action("Redo")->isEnabled());
}

TEST_F(ksMainWindowTest, EditsNothingThatHasLeftTheScene)
{
    openRoom();
    const osg::UInt32 count = document.root()->getNChildren();
    document.selection().set({node("Table").getFieldContainerId(), node("Legs").getFieldContainerId()});
    press(Qt::Key_Delete);
    EXPECT_EQ(document.root()->getNChildren(), count - 1);
    EXPECT_FALSE(action("Delete")->isEnabled());
    press(Qt::Key_Delete);
    press(Qt::Key_H);
    EXPECT_EQ(document.stack().count(), 1);
    press(Qt::Key_N, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(document.selection().current()->getParent(), document.root());
    press(Qt::Key_Z, Qt::ControlModifier);
    press(Qt::Key_N, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(document.root()->getNChildren(), count);
    press(Qt::Key_Z, Qt::ControlModifier);
    press(Qt::Key_Z, Qt::ControlModifier);
    moveChair(1);
    // What was added is gone for good.
    press(Qt::Key_H);
    EXPECT_EQ(document.stack().count(), 1);
}

TEST_F(ksMainWindowTest, ShowsTheHistory)
{
    openRoom();
    moveChair(1);
    ksNodeEdits::rename(document, node("Table"), QStringLiteral("Desk"));
    press(Qt::Key_H, Qt::ControlModifier);
    QUndoView *history = nullptr;
    for (QWidget *widget : QApplication::topLevelWidgets())
        if (auto *view = qobject_cast<QUndoView *>(widget))
            history = view;
    ASSERT_NE(history, nullptr);
    EXPECT_EQ(history->model()->rowCount(), 3);
    EXPECT_FALSE(history->model()->index(0, 0).data(Qt::DecorationRole).isNull());
    QTest::mouseClick(history->viewport(), Qt::LeftButton, Qt::NoModifier,
                      history->visualRect(history->model()->index(0, 0)).center());
    EXPECT_EQ(document.stack().index(), 0);
    EXPECT_FALSE(window->isWindowModified());
    EXPECT_EQ(action("Redo \"Translate 'Chair'\"")->isEnabled(), true);
    history->close();
}

TEST_F(ksMainWindowTest, EditsSelectedNodesByKeys)
{
    openRoom();
    press(Qt::Key_Delete);
    EXPECT_EQ(document.stack().count(), 0);
    document.selection().set({node("Chair").getFieldContainerId(), node("Table").getFieldContainerId()});
    const osg::UInt32 count = document.root()->getNChildren();
    press(Qt::Key_D, Qt::ControlModifier);
    EXPECT_EQ(document.root()->getNChildren(), count + 2);
    EXPECT_EQ(document.selection().nodes().size(), 2u);
    EXPECT_EQ(document.selection().current(), document.root()->getChild(count + 1));
    EXPECT_EQ(document.stack().undoText(), QStringLiteral("Duplicate 'Chair', 'Table'"));
    press(Qt::Key_H);
    EXPECT_EQ(document.root()->getChild(count)->getTravMask(), 0u);
    press(Qt::Key_H);
    press(Qt::Key_Delete);
    EXPECT_EQ(document.root()->getNChildren(), count);
    EXPECT_EQ(document.stack().count(), 4);
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(document.root()->getNChildren(), count + 2);
    press(Qt::Key_N, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(document.root()->getChild(count + 1)->getNChildren(), node("Table")->getNChildren() + 1);
    press(Qt::Key_A, Qt::ControlModifier);
    EXPECT_GT(document.selection().ids().size(), 50u);
    press(Qt::Key_A, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_TRUE(document.selection().ids().empty());
    // The root is there to stay.
    document.selection().set(document.root());
    press(Qt::Key_Delete);
    EXPECT_EQ(document.root()->getNChildren(), count + 2);
}

TEST_F(ksMainWindowTest, HoldsTheLimitOfTheHistoryFromTheNextDocumentOn)
{
    user.limit = 2;
    openRoom();
    moveChair(1);
    action("History Limit...")->trigger();
    EXPECT_EQ(document.stack().undoLimit(), 0);
    user.answer = ksDialogs::Answer::Discard;
    openRoom();
    EXPECT_EQ(document.stack().undoLimit(), 2);
    const osg::NodePtr table = node("Table");
    for (const char *name : {"A", "B", "C"})
        ksNodeEdits::rename(document, table, QString::fromLatin1(name));
    EXPECT_EQ(document.stack().count(), 2);
    user.limit = 0;
    openRoom();
    action("History Limit...")->trigger();
    EXPECT_EQ(user.proposed, QStringLiteral("2"));
    EXPECT_EQ(document.stack().undoLimit(), 0);
}

TEST_F(ksMainWindowTest, RemembersItsLayout)
{
    dock("inspector")->hide();
    window->close();
    ksMainWindow other(document, user);
    other.restoreLayout();
    other.show();
    EXPECT_FALSE(other.findChild<QDockWidget *>(QStringLiteral("inspector"))->isVisible());
    EXPECT_TRUE(other.findChild<QDockWidget *>(QStringLiteral("outline"))->isVisible());
}

TEST_F(ksMainWindowTest, TellsItsKeys)
{
    action("Keys")->trigger();
    ASSERT_EQ(user.told.size(), 1);
    EXPECT_THAT(user.told[0].toStdString(), HasSubstr("<td>Duplicate</td><td><b>Ctrl+D</b></td>"));
}

TEST_F(ksMainWindowTest, SpeaksTheUsersLanguage)
{
#ifndef KS_TRANSLATIONS
    GTEST_SKIP() << "built without Qt's linguist tools";
#else
    const auto before = QCoreApplication::instance()->findChildren<QTranslator *>();
    ksTranslations::install(QLocale(QLocale::German),
                            {QStringLiteral("/nowhere"), QStringLiteral(KS_TRANSLATIONS)});
    window = std::make_unique<ksMainWindow>(document, user);
    EXPECT_EQ(window->menuBar()->actions()[0]->text(), QStringLiteral("&Datei"));
    openRoom();
    moveChair(1);
    EXPECT_EQ(document.stack().undoText(), QStringLiteral("Verschieben 'Chair'"));
    // English is what the texts are in.
    const int installed = QCoreApplication::instance()->findChildren<QTranslator *>().size();
    ksTranslations::install(QLocale(QLocale::English), {QStringLiteral(KS_TRANSLATIONS)});
    EXPECT_EQ(QCoreApplication::instance()->findChildren<QTranslator *>().size(), installed);
    for (QTranslator *translator : QCoreApplication::instance()->findChildren<QTranslator *>())
        if (!before.contains(translator))
            delete translator;
#endif
}

TEST_F(ksMainWindowTest, HasNoKeyTwice)
{
    QStringList keys;
    for (const QMenu *menu : window->menuBar()->findChildren<QMenu *>())
        for (const QAction *action : menu->actions())
            for (const QKeySequence &key : action->shortcuts())
                keys += key.toString();
    EXPECT_GT(keys.size(), 20);
    EXPECT_EQ(keys.removeDuplicates(), 0);
}

/// What a screen reader tells the user of.
TEST_F(ksMainWindowTest, HasNamesForAllItsControls)
{
    int count = 0;
    const std::function<void(QAccessibleInterface &)> visit = [&](QAccessibleInterface &control) {
        const QObject *object = control.object();
        if (object != nullptr && control.state().focusable && !control.state().invisible) {
            ++count;
            EXPECT_NE(control.text(QAccessible::Name), QString())
                << object->metaObject()->className() << " in " << object->parent()->metaObject()->className();
        }
        for (int i = 0; i < control.childCount(); ++i)
            if (QAccessibleInterface *child = control.child(i))
                visit(*child);
    };
    openRoom();
    for (const char *name : {"Chair", "LampBulb light", "Seat"}) {
        document.selection().set(node(name));
        visit(*QAccessible::queryAccessibleInterface(window.get()));
    }
    EXPECT_GT(count, 15);
}
