// SPDX-License-Identifier: MIT
#include <editor/window/ksDialogs.h>

#include <QLineEdit>
#include <QProgressDialog>
#include <QPushButton>
#include <QtTest>
#include <gtest/gtest.h>

namespace {

/// Work on what is in a field, with a user who types meanwhile.
class ksDialogsProgressTest : public testing::Test
{
protected:
    ksDialogsProgressTest()
    {
        field.show();
        QApplication::setActiveWindow(&field);
        EXPECT_TRUE(QTest::qWaitForWindowActive(&field));
    }

    /// As the system tells of keys, which are handled when events are.
    void type(Qt::Key key)
    {
        qt_handleKeyEvent(field.windowHandle(), QEvent::KeyPress, key, {}, QString(QChar(int(key))));
    }

    void work(const std::function<void(QProgressDialog &, const std::function<bool(double)> &)> &step)
    {
        ksDialogs().showProgress(&field, QStringLiteral("Working"), [&](const auto &progress) {
            auto *dialog = field.findChild<QProgressDialog *>();
            ASSERT_NE(dialog, nullptr);
            step(*dialog, progress);
        });
    }

    QLineEdit field;
};

} // namespace

TEST_F(ksDialogsProgressTest, LetsNothingElseHappen)
{
    work([this](QProgressDialog &dialog, const auto &progress) {
        type(Qt::Key_A);
        EXPECT_TRUE(progress(0.1));
        EXPECT_FALSE(dialog.isVisible()) << "it may not take long";
        EXPECT_EQ(field.text(), QString());
        dialog.setMinimumDuration(0);
        EXPECT_TRUE(progress(0.2));
        EXPECT_TRUE(dialog.isVisible());
        type(Qt::Key_B);
        EXPECT_TRUE(progress(0.3));
        EXPECT_TRUE(progress(1));
    });
    EXPECT_EQ(field.text(), QString());
    QApplication::processEvents();
    type(Qt::Key_C);
    QApplication::processEvents();
    EXPECT_EQ(field.text(), QStringLiteral("C"));
}

TEST_F(ksDialogsProgressTest, SaysThatTheUserHasCancelled)
{
    work([](QProgressDialog &dialog, const auto &progress) {
        dialog.setMinimumDuration(0);
        EXPECT_TRUE(progress(0.2));
        EXPECT_TRUE(progress(0.3));
        dialog.findChild<QPushButton *>()->click();
        EXPECT_FALSE(progress(0.4));
    });
}
