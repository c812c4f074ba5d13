// SPDX-License-Identifier: MIT
#pragma once

#include <QUndoView>

#include <functional>

namespace ksDetail {

/// The history window of one stack. It is closed when the application object goes, which stacks outlive and
/// widgets must not.
///
/// A stock view reads the whole history anew at every step, also when it is closed. This one does so only
/// when rows come or go while it is shown.
class ksHistoryWindow : public QUndoView
{
public:
    /// A window that is not shown yet. \a history must not be null and must outlive it. \a goTo is called
    /// when the user chooses another index.
    ksHistoryWindow(QUndoStack *history, std::function<void(int)> goTo);

    /// To be called after every step.
    void follow();

protected:
    /// Catches up with what has happened while the window was closed.
    void showEvent(QShowEvent *event) override;

    void currentChanged(const QModelIndex &current, const QModelIndex &previous) override;

private:
    void readHistory();

    QUndoStack *history;
    std::function<void(int)> goTo;
    int count = 0; ///< of the commands when the history was read
};

} // namespace ksDetail
