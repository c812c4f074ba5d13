// SPDX-License-Identifier: MIT
#include <editor/inspector/ksValueEditor.h>

#include <QAbstractScrollArea>
#include <QKeyEvent>
#include <QScrollBar>

void ksValueEditor::showMixed(bool isMixed)
{
    if (font().italic() == isMixed)
        return;
    QFont shown = font();
    shown.setItalic(isMixed);
    setFont(shown);
    setToolTip(isMixed ? tr("Not all selected nodes have this value") : QString());
}

void ksValueEditor::tame(QWidget *control)
{
    control->setFocusPolicy(Qt::StrongFocus);
    control->installEventFilter(this);
}

void ksValueEditor::nameArea(QAbstractScrollArea *area, const QString &name)
{
    area->setAccessibleName(name);
    area->horizontalScrollBar()->setAccessibleName(tr("%1, scroll sideways").arg(name));
    area->verticalScrollBar()->setAccessibleName(tr("%1, scroll").arg(name));
}

bool ksValueEditor::eventFilter(QObject *watched, QEvent *event)
{
    const auto *control = qobject_cast<QWidget *>(watched);
    if (event->type() == QEvent::Wheel && control != nullptr && !control->hasFocus()) {
        event->ignore();
        return true;
    }
    if (event->type() != QEvent::ShortcutOverride && event->type() != QEvent::KeyPress)
        return QWidget::eventFilter(watched, event);
    const auto *key = static_cast<QKeyEvent *>(event);
    if (key->key() == Qt::Key_Escape) {
        if (event->type() == QEvent::KeyPress)
            Q_EMIT cancelled();
        event->accept();
        return true;
    }
    if (key->matches(QKeySequence::Undo) || key->matches(QKeySequence::Redo)) {
        event->ignore();
        return true;
    }
    // Letters are the control's, not the window's.
    const bool isLetter = !key->text().isEmpty() && key->text().front().isPrint() &&
                          (key->modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier)) == 0;
    if (event->type() == QEvent::ShortcutOverride && isLetter) {
        event->accept();
        return true;
    }
    return QWidget::eventFilter(watched, event);
}
