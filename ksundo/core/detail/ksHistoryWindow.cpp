// SPDX-License-Identifier: MIT
#include <ksundo/core/detail/ksHistoryWindow.h>

#include <QCoreApplication>
#include <QPointer>
#include <QStyle>
#include <QUndoStack>
#include <QVector>

namespace ksDetail {

namespace {

/// All history windows. Never destroyed, since the application object may outlive static objects.
QVector<QPointer<ksHistoryWindow>> &historyWindows()
{
    static auto &windows = *new QVector<QPointer<ksHistoryWindow>>;
    return windows;
}

void closeHistoryWindows()
{
    for (const QPointer<ksHistoryWindow> &window : qAsConst(historyWindows()))
        delete window;
    historyWindows().clear();
}

} // namespace

ksHistoryWindow::ksHistoryWindow(QUndoStack *history)
    : history(history)
{
    // Without it, every reading asks every row for its size.
    setUniformItemSizes(true);
    setCleanIcon(style()->standardIcon(QStyle::SP_DialogSaveButton));
    // It goes with the last of the application's windows.
    setAttribute(Qt::WA_QuitOnClose, false);

    auto &windows = historyWindows();
    windows.removeAll(nullptr);
    if (windows.isEmpty())
        qAddPostRoutine(closeHistoryWindows);
    windows.append(this);
}

void ksHistoryWindow::follow()
{
    if (!isVisible())
        return;
    if (count != history->count())
        readHistory();
    else
        setCurrentIndex(model()->index(history->index(), 0));
    viewport()->update(); // the text of a row may be another one
}

void ksHistoryWindow::showEvent(QShowEvent *event)
{
    readHistory();
    QUndoView::showEvent(event);
}

/// A view reads a stack when it is given one, and would then listen to it.
void ksHistoryWindow::readHistory()
{
    setStack(nullptr);
    setStack(history);
    history->disconnect(model());
    count = history->count();
}

} // namespace ksDetail
