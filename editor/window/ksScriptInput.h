// SPDX-License-Identifier: MIT
#pragma once

#include <QLineEdit>
#include <QString>
#include <QStringList>

#include <functional>

class QCompleter;

/// A line of the script console: Up and Down bring the lines before back, Tab completes names.
class ksScriptInput : public QLineEdit
{
    Q_OBJECT

public:
    /// \a globals gives the names that may stand where no object is named.
    explicit ksScriptInput(std::function<QStringList()> globals, QWidget *parent = nullptr);

    /// Puts the line into the history, and clears it. Returns it.
    QString take();

    /// The names that may complete \a text at its end.
    QStringList completionsOf(const QString &text) const;

    /// Completes what is in front of the cursor, or offers what it may be. Says whether there is such a
    /// thing.
    bool complete();

protected:
    bool event(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void recall(int offset);
    void insertName(const QString &name);

    const std::function<QStringList()> globalNames;
    QCompleter *completer;
    QStringList lines;

    /// The line of the history that is shown; their number for the one that is being written.
    int shown = 0;
    QString written;
};
