// SPDX-License-Identifier: MIT
#include <editor/window/ksDialogs.h>

#include <QCheckBox>
#include <QProgressDialog>
#include <QPushButton>
#include <QtTest>
#include <gtest/gtest.h>

namespace {

/// Work on what a window shows, with a user who clicks in it meanwhile.
class ksDialogsProgressTest : public testing::Test
{
protected:
    ksDialogsProgressTest()
    {
        box.resize(200, 100);
        box.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&box));
    }

    /// As the system tells of the mouse, which is handled when events are.
    void click()
    {
        const QPoint place(10, box.height() / 2);
        for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease})
            qt_handleMouseEvent(box.windowHandle(), place, box.mapToGlobal(place),
                                type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton,
                                Qt::LeftButton, type, {}, 0);
    }

    void work(const std::function<void(QProgressDialog &, const std::function<bool(double)> &)> &step)
    {
        ksDialogs().showProgress(&box, QStringLiteral("Working"), [&](const auto &progress) {
            auto *dialog = box.findChild<QProgressDialog *>();
            ASSERT_NE(dialog, nullptr);
            step(*dialog, progress);
        });
    }

    QCheckBox box{QStringLiteral("Edit")};
};

} // namespace

TEST_F(ksDialogsProgressTest, LetsNothingElseHappen)
{
    work([this](QProgressDialog &dialog, const auto &progress) {
        click();
        EXPECT_TRUE(progress(0.1));
        EXPECT_FALSE(dialog.isVisible()) << "it may not take long";
        EXPECT_FALSE(box.isChecked());
        dialog.setMinimumDuration(0);
        EXPECT_TRUE(progress(0.2));
        EXPECT_TRUE(dialog.isVisible());
        click();
        EXPECT_TRUE(progress(0.3));
        EXPECT_TRUE(progress(1));
        EXPECT_FALSE(box.isChecked());
    });
    QApplication::processEvents();
    EXPECT_FALSE(box.isChecked());
    click();
    QApplication::processEvents();
    EXPECT_TRUE(box.isChecked());
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
