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
#include <QImage>
#include <QLocale>
#include <QPixmap>

#include <cstdlib>
#include <functional>
#include <memory>
#include <new>

namespace {

constexpr QSize PictureSize(1280, 800);

/// What Qt says of a screen that it cannot use, before it gives up, which ends the process.
QString screenTrouble;

std::function<void(const QString &)> endWithoutScreen;

void takeScreenMessage(QtMsgType type, const QMessageLogContext &, const QString &text)
{
    if (type == QtFatalMsg)
        endWithoutScreen(screenTrouble.isEmpty() ? text : screenTrouble);
    else if (screenTrouble.isEmpty())
        screenTrouble = text.trimmed();
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
    const QtMessageHandler usual = qInstallMessageHandler(takeScreenMessage);
    int applicationArguments = 1;
    const QApplication application(applicationArguments, argv);
    qInstallMessageHandler(usual);
    ksTranslations::install(QLocale(), ksTranslations::folders());
    QApplication::setWindowIcon(QIcon::fromTheme(QStringLiteral("ks-editor")));

    try {
        ksDocument document;
        ksDialogs dialogs;
        ksMainWindow window(document, dialogs);
        if (!options.screenshot.isEmpty())
            return takePicture(document, window, options);
        window.restoreLayout();
        window.show();
        if (!options.model.isEmpty() && window.open(options.model) && !options.selected.isEmpty())
            select(document, options.selected);
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
    window.resize(PictureSize);
    window.show();
    // What is laid out is painted once events are handled that come of being shown.
    QApplication::processEvents();
    window.viewport().frameAll();
    QApplication::processEvents();
    constexpr int Smallest = 0;
    if (window.grab()
            .toImage()
            .convertToFormat(QImage::Format_RGB888)
            .save(options.screenshot, nullptr, Smallest))
        return Done;
    complain(options.screenshot + QStringLiteral(": cannot be written"));
    return OutputError;
}
