// SPDX-License-Identifier: MIT
#include <editor/document/ksDocument.h>
#include <editor/document/ksDocumentHistory.h>
#include <editor/history/ksPrintStream.h>
#include <editor/script/ksScriptEngine.h>
#include <editor/session/ksInterrupter.h>
#include <editor/session/ksMemory.h>
#include <editor/window/ksScriptInput.h>
#include <editor/window/ksScriptPanel.h>

#include <QCoreApplication>
#include <QDoubleSpinBox>
#include <QFontDatabase>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QScopeGuard>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QTextCursor>
#include <QToolButton>
#include <QVBoxLayout>

namespace {

/// How long the window may not answer while a script runs.
constexpr int MillisecondsBetweenBreaths = 40;

constexpr int MostLines = 10000;
constexpr double DefaultSilenceLimit = 10;
constexpr double LongestSilenceLimit = 86400;

bool isInput(const QEvent &event)
{
    switch (event.type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::Wheel:
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::ShortcutOverride:
    case QEvent::Shortcut:
    case QEvent::ContextMenu:
    case QEvent::InputMethod:
    case QEvent::TabletPress:
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::DragEnter:
    case QEvent::Drop:
    case QEvent::Close:
        return true;
    default:
        return false;
    }
}

} // namespace

ksScriptPanel::ksScriptPanel(ksDocument &editedDocument, QWidget *parent)
    : QWidget(parent)
    , document(editedDocument)
    , output(new QPlainTextEdit(this))
    , line(new ksScriptInput([this] { return engine().globalNames(); }, this))
    , runButton(new QToolButton(this))
    , stopButton(new QToolButton(this))
    , silenceLimit(new QDoubleSpinBox(this))
{
    const QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    output->setReadOnly(true);
    output->setFont(font);
    output->setMaximumBlockCount(MostLines);
    output->setAccessibleName(tr("Output of scripts"));
    // So that Tab leaves it.
    output->setTabChangesFocus(true);
    line->setFont(font);
    line->setPlaceholderText(tr("scene.find('Table').translate([0, 1, 0])    Tab completes, help() helps"));
    line->setAccessibleName(tr("Line of script"));
    runButton->setText(tr("Run"));
    runButton->setAccessibleName(tr("Run the line"));
    stopButton->setText(tr("Stop"));
    stopButton->setAccessibleName(tr("Stop the script"));
    stopButton->setToolTip(tr("Stops the script (Esc)"));
    stopButton->setEnabled(false);
    silenceLimit->setRange(0, LongestSilenceLimit);
    silenceLimit->setDecimals(1);
    silenceLimit->setValue(DefaultSilenceLimit);
    silenceLimit->setSuffix(tr(" s"));
    silenceLimit->setSpecialValueText(tr("no limit"));
    silenceLimit->setAccessibleName(tr("Silence that ends scripts"));
    silenceLimit->setToolTip(
        tr("Stop is heeded when a script edits or prints. One that does neither for so long is ended."));
    auto *limitLabel = new QLabel(tr("End when silent for"), this);
    limitLabel->setBuddy(silenceLimit);

    auto *row = new QHBoxLayout;
    row->setSpacing(4);
    for (QWidget *widget : {static_cast<QWidget *>(runButton), static_cast<QWidget *>(stopButton),
                            static_cast<QWidget *>(limitLabel), static_cast<QWidget *>(silenceLimit)})
        row->addWidget(widget);
    row->addStretch();
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(4, 4, 4, 4);
    layout->setSpacing(4);
    layout->addWidget(output);
    layout->addWidget(line);
    layout->addLayout(row);

    connect(line, &QLineEdit::returnPressed, this, &ksScriptPanel::runLine);
    connect(runButton, &QToolButton::clicked, this, &ksScriptPanel::runLine);
    connect(stopButton, &QToolButton::clicked, this, &ksScriptPanel::stop);
    connect(&document, &ksDocument::stepped, this, &ksScriptPanel::breathe);
    connect(&document, &ksDocument::aboutToBeReplaced, this, [this] { scriptEngine.reset(); });
}

ksScriptPanel::~ksScriptPanel() = default;

void ksScriptPanel::runFile(const QString &path)
{
    write(QStringLiteral("> ") + path, Tone::Quiet);
    run([&path](ksScriptEngine &engine) { engine.run(path); });
}

void ksScriptPanel::runLine()
{
    if (running || line->text().trimmed().isEmpty())
        return;
    const QString text = line->take();
    write(QStringLiteral("> ") + text, Tone::Quiet);
    run([this, &text](ksScriptEngine &engine) {
        if (const QString result = engine.evaluate(text, tr("console")); !result.isEmpty())
            write(result, Tone::Plain);
    });
}

void ksScriptPanel::stop()
{
    if (running)
        scriptEngine->interruptAtOnce();
}

ksScriptEngine &ksScriptPanel::engine()
{
    if (scriptEngine == nullptr) {
        prints =
            std::make_unique<ksPrintStream>([this](const QString &text) { write(text, Tone::Plain); }, [] {});
        scriptEngine = std::make_unique<ksScriptEngine>(document.history(), *prints);
        scriptEngine->setWarningHandler([this](const QString &text) { write(text, Tone::Bad); });
        scriptEngine->setArguments({});
    }
    return *scriptEngine;
}

void ksScriptPanel::run(const std::function<void(ksScriptEngine &)> &work)
{
    if (running)
        return;
    ksScriptEngine &used = engine();
    // It may have come when the one before had ended.
    used.takeInterruption();
    setRunning(true);
    try {
        ksInterrupter interrupter;
        const QScopedValueRollback<ksInterrupter *> guard(watching, &interrupter);
        const auto end = qScopeGuard([&interrupter] { interrupter.stop(); });
        watch();
        try {
            work(used);
        } catch (const ksScriptError &error) {
            const QString reason = interrupter.reason();
            if (reason.isEmpty())
                write(QString::fromUtf8(error.what()), Tone::Bad);
            else
                write(reason == ksInterrupter::reasonAfter(silenceLimit->value())
                          ? tr("ended after %1 s of silence").arg(silenceLimit->value())
                          : reason,
                      Tone::Bad);
        }
    } catch (const ksEditorError &error) {
        write(QString::fromUtf8(error.what()), Tone::Bad);
    }
    setRunning(false);
}

void ksScriptPanel::write(const QString &text, Tone tone)
{
    QTextCharFormat format;
    if (tone == Tone::Bad)
        format.setForeground(QColor(0xb0, 0x20, 0x20));
    else if (tone == Tone::Quiet)
        format.setForeground(palette().brush(QPalette::Disabled, QPalette::Text));
    QTextCursor cursor(output->document());
    cursor.movePosition(QTextCursor::End);
    if (!output->document()->isEmpty())
        cursor.insertBlock();
    cursor.insertText(text, format);
    output->verticalScrollBar()->setValue(output->verticalScrollBar()->maximum());
    breathe();
}

void ksScriptPanel::setRunning(bool isRunning)
{
    running = isRunning;
    runButton->setEnabled(!isRunning);
    stopButton->setEnabled(isRunning);
    if (isRunning) {
        sinceBreath.start();
        QCoreApplication::instance()->installEventFilter(this);
    } else
        QCoreApplication::instance()->removeEventFilter(this);
    Q_EMIT runningChanged(isRunning);
}

void ksScriptPanel::breathe()
{
    if (!running || sinceBreath.elapsed() < MillisecondsBetweenBreaths)
        return;
    QCoreApplication::processEvents();
    sinceBreath.start();
    watch();
}

void ksScriptPanel::watch()
{
    if (watching != nullptr)
        watching->start(silenceLimit->value(), ksMemory::limit(0), [this] { scriptEngine->interrupt(); });
}

bool ksScriptPanel::eventFilter(QObject *object, QEvent *event)
{
    // Events of windows become those of their widgets.
    if (!isInput(*event) || object->inherits("QWindow") || object == stopButton ||
        qobject_cast<QMenuBar *>(object) != nullptr || qobject_cast<QMenu *>(object) != nullptr)
        return false;
    if (event->type() == QEvent::KeyPress && static_cast<QKeyEvent *>(event)->key() == Qt::Key_Escape)
        stop();
    event->ignore();
    return true;
}
