// SPDX-License-Identifier: MIT
#include <editor/inspector/ksScrubLabel.h>

#include <QKeyEvent>
#include <QMouseEvent>

ksScrubLabel::ksScrubLabel(const QString &text, QWidget *parent)
    : QLabel(text, parent)
{
    setCursor(Qt::SizeHorCursor);
    // Moves without a button tell that a release has been lost.
    setMouseTracking(true);
    setToolTip(tr("Drag sideways to change the number"));
}

bool ksScrubLabel::event(QEvent *event)
{
    // The release goes elsewhere.
    if (event->type() == QEvent::WindowBlocked || event->type() == QEvent::WindowDeactivate ||
        event->type() == QEvent::Hide)
        end();
    return QLabel::event(event);
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
    if (!event->buttons().testFlag(Qt::LeftButton))
        end();
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
    if (event->button() == Qt::LeftButton)
        end();
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

void ksScrubLabel::end()
{
    if (!isDragging)
        return;
    stop();
    Q_EMIT ended();
}
