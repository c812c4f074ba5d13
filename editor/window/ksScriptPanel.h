// SPDX-License-Identifier: MIT
#pragma once

#include <QElapsedTimer>
#include <QString>
#include <QWidget>

#include <functional>
#include <memory>

class QDoubleSpinBox;
class QPlainTextEdit;
class QToolButton;
class ksDocument;
class ksInterrupter;
class ksPrintStream;
class ksScriptEngine;
class ksScriptInput;

/// The script console: lines of JavaScript are run on the document, one after the other, and what they
/// declare stays until there is another document.
///
/// While a script runs, the window shows each of its steps and lines, and heeds nothing but the button that
/// stops it, Escape, and menus. A script that neither takes a step nor prints is deaf to them, and ended when
/// it has been so for as long as the user allows.
class ksScriptPanel : public QWidget
{
    Q_OBJECT

public:
    /// \a editedDocument must outlive it.
    explicit ksScriptPanel(ksDocument &editedDocument, QWidget *parent = nullptr);
    ~ksScriptPanel() override;

    ksScriptInput *input() const { return line; }

    /// Runs the script in the file \a path, or what is in the line. Errors are shown in the output.
    void runFile(const QString &path);
    void runLine();

    /// Ends the script that runs.
    void stop();

    bool isRunning() const { return running; }

    bool eventFilter(QObject *object, QEvent *event) override;

Q_SIGNALS:
    void runningChanged(bool isRunning);

private:
    enum class Tone
    {
        Plain,
        Quiet,
        Bad
    };

    ksScriptEngine &engine();
    void run(const std::function<void(ksScriptEngine &)> &work);
    void write(const QString &text, Tone tone);
    void setRunning(bool isRunning);

    /// Lets the window show what has been done, and the user stop it.
    void breathe();

    /// Gives the script that runs its time from now on.
    void watch();

    ksDocument &document;
    QPlainTextEdit *output;
    ksScriptInput *line;
    QToolButton *runButton;
    QToolButton *stopButton;
    QDoubleSpinBox *silenceLimit;
    std::unique_ptr<ksPrintStream> prints;
    std::unique_ptr<ksScriptEngine> scriptEngine;
    ksInterrupter *watching = nullptr;
    QElapsedTimer sinceBreath;
    bool running = false;
};
