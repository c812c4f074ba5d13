// SPDX-License-Identifier: MIT
#include <editor/window/ksDialogs.h>

#include <QCheckBox>
#include <QProgressDialog>
#include <QPushButton>
#include <QtTest>
#include <gtest/gtest.h>

#include <functional>

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

    /// As the system tells of the mouse.
    void click()
    {
        const QPoint place(10, box.height() / 2);
        const QPoint onScreen = box.mapToGlobal(place);
        qt_handleMouseEvent(box.windowHandle(), place, onScreen, Qt::LeftButton, Qt::LeftButton,
                            QEvent::MouseButtonPress, {}, 0);
        qt_handleMouseEvent(box.windowHandle(), place, onScreen, {}, Qt::LeftButton,
                            QEvent::MouseButtonRelease, {}, 0);
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

TEST_F(ksDialogsProgressTest, LetsNothingElseHappenOnceItIsShown)
{
    work([this](QProgressDialog &dialog, const auto &progress) {
        EXPECT_TRUE(progress(0.1));
        EXPECT_FALSE(dialog.isVisible()) << "it may not take long";
        dialog.setMinimumDuration(0);
        EXPECT_TRUE(progress(0.2));
        EXPECT_TRUE(dialog.isVisible());
        click();
        EXPECT_TRUE(progress(0.3));
        EXPECT_TRUE(progress(1));
        EXPECT_FALSE(box.isChecked());
    });
    click();
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
