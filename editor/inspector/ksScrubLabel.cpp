// SPDX-License-Identifier: MIT
#include <editor/inspector/ksScrubLabel.h>

#include <QKeyEvent>
#include <QMouseEvent>

ksScrubLabel::ksScrubLabel(const QString &text, QWidget *parent)
    : QLabel(text, parent)
{
    setCursor(Qt::SizeHorCursor);
    setToolTip(tr("Drag sideways to change the number"));
}

void ksScrubLabel::mousePressEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton)
        return;
    isDragging = true;
    last = event->globalX();
    steps = 0;
    grabKeyboard();
    Q_EMIT began();
}

void ksScrubLabel::mouseMoveEvent(QMouseEvent *event)
{
    if (!isDragging)
        return;
    constexpr double Coarse = 10;
    constexpr double Fine = 0.1;
    const double factor = (event->modifiers() & Qt::ShiftModifier) != 0     ? Coarse
                          : (event->modifiers() & Qt::ControlModifier) != 0 ? Fine
                                                                            : 1;
    steps += (event->globalX() - last) * factor;
    last = event->globalX();
    Q_EMIT moved(steps);
}

void ksScrubLabel::mouseReleaseEvent(QMouseEvent *event)
{
    if (!isDragging || event->button() != Qt::LeftButton)
        return;
    stop();
    Q_EMIT ended();
}

void ksScrubLabel::keyPressEvent(QKeyEvent *event)
{
    if (!isDragging || event->key() != Qt::Key_Escape) {
        QLabel::keyPressEvent(event);
        return;
    }
    stop();
    Q_EMIT cancelled();
}

void ksScrubLabel::stop()
{
    isDragging = false;
    releaseKeyboard();
}
