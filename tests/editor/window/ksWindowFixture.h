// SPDX-License-Identifier: MIT
#pragma once

#include <editor/document/ksDocument.h>
#include <editor/document/ksDocumentHistory.h>
#include <editor/window/ksDialogs.h>
#include <editor/window/ksMainWindow.h>
#include <tests/editor/ksEditorFixture.h>

#include <QAction>
#include <QApplication>
#include <QMenu>
#include <QMenuBar>
#include <QSettings>
#include <QStringList>
#include <QtTest>
#include <gmock/gmock.h>

#include <functional>

/// A user who answers as the test says, and notes what was said.
class ksAnswers : public ksDialogs
{
public:
    Answer askToSave(QWidget *, const QString &title) override
    {
        asked += title;
        return answer;
    }
    QString askForModel(QWidget *, const QString &) override { return path; }
    QString askForFile(QWidget *, const QString &proposal) override
    {
        proposed = proposal;
        return path;
    }
    QString askForScript(QWidget *, const QString &) override { return path; }
    int askForLimit(QWidget *, int current) override
    {
        proposed = QString::number(current);
        return limit;
    }
    void complain(QWidget *, const QString &text) override { complaints += text; }
    void inform(QWidget *, const QString &, const QString &text) override { told += text; }
    void showProgress(QWidget *, const QString &,
                      const std::function<void(const std::function<bool(double)> &)> &work) override
    {
        work([this](double) { return !isCancelling; });
    }

    Answer answer = Answer::Cancel;
    QString path;
    int limit = -1;
    bool isCancelling = false;
    QStringList asked;
    QString proposed;
    QStringList complaints;
    QStringList told;
};

/// The window on a screen, with settings of its own.
class ksWindowFixture : public testing::Test
{
protected:
    ksWindowFixture()
    {
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, folder.path("settings"));
        window = std::make_unique<ksMainWindow>(document, user);
        window->resize(1000, 640);
        window->show();
        QApplication::setActiveWindow(window.get());
        EXPECT_TRUE(QTest::qWaitForWindowExposed(window.get()));
    }

    void openRoom() { ASSERT_TRUE(window->open(ksRoomFile())); }

    osg::NodePtr node(const char *name) const { return ksFindNode(document.root(), name); }

    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::keyClick(window.get(), key, modifiers);
    }

    /// The action whose text, without the mark of its letter, is \a text.
    QAction *action(const char *text) const
    {
        for (const QMenu *menu : window->menuBar()->findChildren<QMenu *>())
            for (QAction *action : menu->actions())
                if (action->text().remove(QLatin1Char('&')).section(QLatin1Char('\t'), 0, 0) ==
                    QString::fromUtf8(text))
                    return action;
        ADD_FAILURE() << "there is no action " << text;
        return nullptr;
    }

    ksTestFolder folder;
    ksDocument document;
    ksAnswers user;
    std::unique_ptr<ksMainWindow> window;
};
