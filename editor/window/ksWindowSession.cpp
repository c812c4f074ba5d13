// SPDX-License-Identifier: MIT
#include <editor/document/ksDocument.h>
#include <editor/ksEditorError.h>
#include <editor/scene/ksSceneIndex.h>
#include <editor/viewport/ksViewport.h>
#include <editor/window/ksDialogs.h>
#include <editor/window/ksMainWindow.h>
#include <editor/window/ksTranslations.h>
#include <editor/window/ksWindowSession.h>

#include <QApplication>
#include <QIcon>
#include <QImageWriter>
#include <QLocale>
#include <QPixmap>
#include <QStringList>
#include <QTimer>

#include <cstdlib>
#include <functional>
#include <memory>
#include <new>

namespace {

constexpr QSize WindowSize(1280, 800);

/// What Qt says while it starts, which is of a screen that it cannot use before it gives up. That ends the
/// process.
QStringList startMessages;

std::function<void(const QString &)> endWithoutScreen;

void takeStartMessage(QtMsgType type, const QMessageLogContext &, const QString &text)
{
    startMessages += text.trimmed();
    if (type == QtFatalMsg)
        endWithoutScreen(startMessages.constFirst());
}

void select(ksDocument &document, const QString &name)
{
    const osg::NodePtr node = ksSceneIndex(document.root()).find(name.toStdString());
    if (node == osg::NullFC)
        throw ksEditorError(document.path() + QStringLiteral(": there is no node '") + name +
                            QLatin1Char('\''));
    document.selection().set(node);
}

} // namespace

int ksWindowSession::showWindow(const ksEditorOptions &options, char **argv)
{
    endWithoutScreen = [this](const QString &reason) {
        complain(QStringLiteral("there is no screen for the window; --headless goes without: ") + reason);
        std::_Exit(WindowError);
    };
    const QtMessageHandler usual = qInstallMessageHandler(takeStartMessage);
    int applicationArguments = 1;
    const QApplication application(applicationArguments, argv);
    qInstallMessageHandler(usual);
    for (const QString &text : qAsConst(startMessages))
        qWarning("%s", qUtf8Printable(text));
    QGuiApplication::setDesktopFileName(QStringLiteral("ks-editor"));
    ksTranslations::install(QLocale(), ksTranslations::folders());
    QApplication::setWindowIcon(QIcon::fromTheme(QStringLiteral("ks-editor")));

    try {
        ksDocument document;
        ksDialogs dialogs;
        ksMainWindow window(document, dialogs);
        if (!options.screenshot.isEmpty())
            return takePicture(document, window, options);
        window.resize(WindowSize);
        window.restoreLayout();
        window.show();
        // Once events are handled, so that the window can be closed meanwhile.
        if (!options.model.isEmpty())
            QTimer::singleShot(0, &window, [&] {
                try {
                    if (window.open(options.model) && !options.selected.isEmpty())
                        select(document, options.selected);
                } catch (const ksEditorError &error) {
                    dialogs.complain(&window, QString::fromUtf8(error.what()));
                }
            });
        return QApplication::exec();
    } catch (const ksEditorError &error) {
        complain(QString::fromUtf8(error.what()));
    } catch (const std::bad_alloc &) {
        complain(options.model + QStringLiteral(": out of memory"));
    }
    return ModelError;
}

int ksWindowSession::takePicture(ksDocument &document, ksMainWindow &window,
                                 const ksEditorOptions &options) const
{
    if (!options.model.isEmpty())
        document.open(options.model);
    if (!options.selected.isEmpty()) {
        select(document, options.selected);
        window.viewport().setTool(ksViewport::Tool::Move);
    }
    window.resize(WindowSize);
    window.show();
    // What is laid out is painted once events are handled that come of being shown.
    QApplication::processEvents();
    window.viewport().frameAll();
    QApplication::processEvents();
    if (!window.viewport().canDraw()) {
        complain(options.screenshot +
                 QStringLiteral(": OpenGL 2.1, which draws the scene, is not available"));
        return WindowError;
    }
    constexpr int Smallest = 0;
    QImageWriter writer(options.screenshot);
    writer.setQuality(Smallest);
    if (writer.write(window.grab().toImage().convertToFormat(QImage::Format_RGB888)))
        return Done;
    complain(options.screenshot + QStringLiteral(": cannot be written: ") + writer.errorString());
    return OutputError;
}
