// SPDX-License-Identifier: MIT
#pragma once

#include <QLabel>

/// The label of a number, which is changed by dragging the label sideways.
class ksScrubLabel : public QLabel
{
    Q_OBJECT

public:
    explicit ksScrubLabel(const QString &text, QWidget *parent = nullptr);

Q_SIGNALS:
    void began();

    /// The mouse has gone \a steps steps since the drag began: one a pixel, ten where Shift was pressed, a
    /// tenth with Control.
    void moved(double steps);

    /// The mouse has been let go, or the drag has lost it.
    void ended();

    /// The user has pressed Escape, which ends the drag.
    void cancelled();

protected:
    bool event(QEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void stop();
    void end();

    bool isDragging = false;
    int last = 0;
    double steps = 0;
};
