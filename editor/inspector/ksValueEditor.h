// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QVariant>
#include <QWidget>

class QAbstractScrollArea;
class QLabel;

/// The widget of one value: shows it, and tells what the user makes of it. What values are like is said by
/// the derived classes, one for each kind.
///
/// What is edited between two tellings of the end is one gesture.
class ksValueEditor : public QWidget
{
    Q_OBJECT

public:
    using QWidget::QWidget;

    /// Shows \a value, and tells nobody. Focus and cursor stay.
    virtual void showValue(const QVariant &value) = 0;

    /// Shows whether others have another value than the one that is shown.
    virtual void showMixed(bool isMixed);

    /// Gives the controls their accessible names, after that of the value.
    virtual void setName(const QString &name) = 0;

    /// The label to be shown beside the editor, which belongs to it; null when any will do.
    virtual QLabel *ownLabel() { return nullptr; }

Q_SIGNALS:
    /// The user wants \a value; that of the part \a part alone when this is not negative.
    void edited(const QVariant &value, int part);

    /// The user has finished.
    void finished();

    /// The user wants the value of the beginning back.
    void cancelled();

protected:
    /// Has \a control leave undo and redo to the window, Escape to cancelled(), and the wheel to the page
    /// while it has no focus, and keep letters, which are keys of the window, too.
    void tame(QWidget *control);

    /// Gives \a area and its scroll bars accessible names.
    static void nameArea(QAbstractScrollArea *area, const QString &name);

    bool eventFilter(QObject *watched, QEvent *event) override;
};
