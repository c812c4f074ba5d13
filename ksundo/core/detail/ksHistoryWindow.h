// SPDX-License-Identifier: MIT
#pragma once

#include <QUndoView>

namespace ksDetail {

/// The history window of one stack. It is closed when the application object goes, which stacks outlive and
/// widgets must not.
///
/// A stock view reads the whole history anew at every step, also when it is closed. This one does so only
/// when rows come or go while it is shown.
class ksHistoryWindow : public QUndoView
{
public:
    /// A window that is not shown yet. \a stack must not be null and must outlive it.
    explicit ksHistoryWindow(QUndoStack *stack);

    /// To be called after every step: \a isAddition tells whether a command was added, or merged.
    void follow(bool isAddition);

protected:
    /// Catches up with what has happened while the window was closed.
    void showEvent(QShowEvent *event) override;

private:
    void readHistory();

    int count = 0;
    const QUndoCommand *current = nullptr; ///< for comparison only
};

} // namespace ksDetail
