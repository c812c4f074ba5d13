// SPDX-License-Identifier: MIT
#include <ksundo/core/detail/ksHistoryWindow.h>

#include <QCoreApplication>
#include <QPointer>
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

ksHistoryWindow::ksHistoryWindow(QUndoStack *stack)
    : QUndoView(stack)
{
    // Without it, every reading asks every row for its size.
    setUniformItemSizes(true);
    stack->disconnect(model());
    connect(stack, &QUndoStack::cleanChanged, viewport(), QOverload<>::of(&QWidget::update));

    auto &windows = historyWindows();
    windows.removeAll(nullptr);
    if (windows.isEmpty())
        qAddPostRoutine(closeHistoryWindows);
    windows.append(this);
}

void ksHistoryWindow::follow(bool isAddition)
{
    if (!isVisible())
        return;
    const QModelIndex row = model()->index(stack()->index(), 0);
    const QUndoCommand *previous = std::exchange(current, stack()->command(stack()->index() - 1));
    const bool isMerge = isAddition && current == previous && count == stack()->count();
    if (isMerge)
        update(row);
    else if (isAddition || count != stack()->count())
        readHistory();
    else
        setCurrentIndex(row);
}

void ksHistoryWindow::showEvent(QShowEvent *event)
{
    readHistory();
    QUndoView::showEvent(event);
}

/// The view reads a stack when it is given one, and then listens to it.
void ksHistoryWindow::readHistory()
{
    QUndoStack *const shown = stack();
    setStack(nullptr);
    setStack(shown);
    shown->disconnect(model());
    count = shown->count();
    current = shown->command(shown->index() - 1);
}

} // namespace ksDetail
