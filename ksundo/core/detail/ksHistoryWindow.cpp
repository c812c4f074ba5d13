// SPDX-License-Identifier: MIT
#include <ksundo/core/detail/ksHistoryWindow.h>

#include <QCoreApplication>
#include <QItemSelectionModel>
#include <QPointer>
#include <QStyle>
#include <QUndoStack>
#include <QVector>

#include <utility>

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

ksHistoryWindow::ksHistoryWindow(QUndoStack *history, std::function<void(int)> goTo)
    : history(history)
    , goTo(std::move(goTo))
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

void ksHistoryWindow::currentChanged(const QModelIndex &current, const QModelIndex &previous)
{
    QUndoView::currentChanged(current, previous);
    if (!current.isValid() || current.row() == history->index())
        return;
    const QPointer<ksHistoryWindow> self(this);
    goTo(current.row());
    if (self == nullptr)
        return;
    // It may be another index; a click selects its row after this.
    follow();
    QMetaObject::invokeMethod(
        this, [this] { follow(); }, Qt::QueuedConnection);
}

/// A view reads a stack when it is given one, and would then listen to it.
void ksHistoryWindow::readHistory()
{
    setStack(nullptr);
    setStack(history);
    history->disconnect(model());
    disconnect(selectionModel(), nullptr, model(), nullptr); // which would move the stack on its own
    count = history->count();
}

} // namespace ksDetail
