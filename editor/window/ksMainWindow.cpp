// SPDX-License-Identifier: MIT
#include <editor/document/ksDocument.h>
#include <editor/document/ksDocumentHistory.h>
#include <editor/document/ksNodeEdits.h>
#include <editor/export/ksSceneExporter.h>
#include <editor/inspector/ksInspector.h>
#include <editor/ksEditorError.h>
#include <editor/viewport/ksViewport.h>
#include <editor/window/ksDialogs.h>
#include <editor/window/ksMainWindow.h>
#include <editor/window/ksOutline.h>
#include <editor/window/ksOutlineModel.h>
#include <editor/window/ksScriptInput.h>
#include <editor/window/ksScriptPanel.h>

#include <ksundo/core/ksUndoStack.h>

#include <QAction>
#include <QActionGroup>
#include <QApplication>
#include <QCloseEvent>
#include <QDockWidget>
#include <QDropEvent>
#include <QFileInfo>
#include <QListWidget>
#include <QMenuBar>
#include <QMimeData>
#include <QSettings>
#include <QStatusBar>
#include <QTimer>
#include <QToolBar>
#include <QTreeView>

#include <new>
#include <utility>

namespace {

constexpr int MostRecentFiles = 10;

/// How long the status line shows a message.
constexpr int MessageMilliseconds = 10000;

/// Changes when the window gets other parts.
constexpr int LayoutVersion = 1;

/// Those of the user.
class Settings : public QSettings
{
public:
    Settings()
        : QSettings(QStringLiteral("ksundo"), QStringLiteral("ks-editor"))
    {}
};

QString recentKey()
{
    return QStringLiteral("recentFiles");
}

QString limitKey()
{
    return QStringLiteral("historyLimit");
}

/// The keys that \a text, as in "Ctrl+Q", is of.
QKeySequence keys(const char *text)
{
    return QKeySequence(QString::fromLatin1(text), QKeySequence::PortableText);
}

/// \a text as a menu shows it.
QString escaped(QString text)
{
    return text.replace(QLatin1Char('&'), QStringLiteral("&&"));
}

/// The local file that \a data is of; empty when it is none, or several.
QString fileOf(const QMimeData &data)
{
    const QList<QUrl> urls = data.urls();
    return urls.size() == 1 ? urls.first().toLocalFile() : QString();
}

} // namespace

ksMainWindow::ksMainWindow(ksDocument &shownDocument, ksDialogs &userDialogs, QWidget *parent)
    : QMainWindow(parent)
    , document(shownDocument)
    , dialogs(userDialogs)
    , view(new ksViewport(document, this))
    , fields(new ksInspector(document, this))
    , nodes(new ksOutline(document, this))
    , console(new ksScriptPanel(document, this))
    , warnings(new QListWidget(this))
{
    setCentralWidget(view);
    setAcceptDrops(true);
    setDockOptions(dockOptions() | AllowNestedDocks);
    makeDocks();
    makeFileMenu();
    makeEditMenu();
    makeViewMenu();
    makeScriptMenu();
    makeHelpMenu();
    statusBar()->setAccessibleName(tr("Messages"));

    connect(view, &ksViewport::refused, this, &ksMainWindow::refuse);
    connect(fields, &ksInspector::refused, this, &ksMainWindow::refuse);
    connect(nodes, &ksOutline::refused, this, &ksMainWindow::refuse);
    connect(console, &ksScriptPanel::runningChanged, this, &ksMainWindow::showRunning);
    connect(&document, &ksDocument::stateChanged, this, &ksMainWindow::showState);
    connect(&document, &ksDocument::replaced, this, &ksMainWindow::showDocument);
    connect(&document.selection(), &ksSelection::changed, this, &ksMainWindow::showSelection);
    showDocument();
    showState();
    showSelection();
    nodes->tree()->setFocus();
}

ksMainWindow::~ksMainWindow() = default;

void ksMainWindow::restoreLayout()
{
    const Settings stored;
    restoreGeometry(stored.value(QStringLiteral("geometry")).toByteArray());
    restoreState(stored.value(QStringLiteral("layout")).toByteArray(), LayoutVersion);
    showDocument();
}

void ksMainWindow::makeDocks()
{
    warnings->setAccessibleName(tr("Warnings"));
    warnings->setWordWrap(true);
    // As much as their texts and fields take.
    constexpr int OutlineWidth = 240;
    constexpr int InspectorWidth = 416;
    nodes->setMinimumWidth(OutlineWidth);
    fields->setMinimumWidth(InspectorWidth);
    addDock(Qt::LeftDockWidgetArea, QStringLiteral("outline"), tr("Outline"), nodes);
    addDock(Qt::RightDockWidgetArea, QStringLiteral("inspector"), tr("Inspector"), fields);
    scriptsDock = addDock(Qt::BottomDockWidgetArea, QStringLiteral("scripts"), tr("Script Console"), console);
    warningsDock =
        addDock(Qt::BottomDockWidgetArea, QStringLiteral("warnings"), tr("Import Warnings"), warnings);
    setCorner(Qt::BottomLeftCorner, Qt::LeftDockWidgetArea);
    setCorner(Qt::BottomRightCorner, Qt::RightDockWidgetArea);
    resizeDocks({scriptsDock}, {160}, Qt::Vertical);
    resizeDocks({scriptsDock, warningsDock}, {500, 250}, Qt::Horizontal);
}

QDockWidget *ksMainWindow::addDock(Qt::DockWidgetArea area, const QString &name, const QString &title,
                                   QWidget *content)
{
    auto *dock = new QDockWidget(title, this);
    dock->setObjectName(name);
    dock->setAccessibleName(title);
    dock->setWidget(content);
    addDockWidget(area, dock);
    return dock;
}

QAction *ksMainWindow::addAction(QMenu *menu, const QString &text, const QKeySequence &key, const Work &work)
{
    QAction *action = menu->addAction(text);
    action->setShortcut(key);
    connect(action, &QAction::triggered, this, [this, work] { attempt(work); });
    return action;
}

QAction *ksMainWindow::addNodeAction(QMenu *menu, const QString &text, const QKeySequence &key,
                                     const Work &work)
{
    QAction *action = addAction(menu, text, key, work);
    // Keys that fields know are theirs.
    if ((key[0] & static_cast<int>(Qt::KeyboardModifierMask)) == 0)
        action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    nodeActions += action;
    nodes->tree()->addAction(action);
    view->addAction(action);
    return action;
}

void ksMainWindow::makeFileMenu()
{
    QMenu *menu = menuBar()->addMenu(tr("&File"));
    addAction(menu, tr("&New"), QKeySequence::New, [this] { newDocument(); });
    addAction(menu, tr("&Open..."), QKeySequence::Open, [this] {
        if (const QString path = dialogs.askForModel(this, QFileInfo(document.path()).path());
            !path.isEmpty())
            open(path);
    });
    recentMenu = menu->addMenu(tr("Open &Recent"));
    connect(menu, &QMenu::aboutToShow, this, &ksMainWindow::showRecent);
    menu->addSeparator();
    addAction(menu, tr("&Save"), QKeySequence::Save, [this] { save(); });
    addAction(menu, tr("Save &As..."), keys("Ctrl+Shift+S"), [this] { saveAs(); });
    menu->addSeparator();
    addAction(menu, tr("&Quit"), keys("Ctrl+Q"), [this] { close(); });
}

void ksMainWindow::makeEditMenu()
{
    QMenu *menu = menuBar()->addMenu(tr("&Edit"));
    undoAction = addAction(menu, {}, QKeySequence::Undo, [this] { document.history().undo(); });
    redoAction = addAction(menu, {}, {}, [this] { document.history().redo(); });
    redoAction->setShortcuts({keys("Ctrl+Shift+Z"), keys("Ctrl+Y")});
    menu->addSeparator();
    addAction(menu, tr("&Add Node"), keys("Ctrl+Shift+N"), [this] {
        const osg::NodePtr current = document.selection().current();
        document.selection().set(
            ksNodeEdits::add(document, current != osg::NullFC ? current : document.root()));
    });
    addNodeAction(menu, tr("Du&plicate"), keys("Ctrl+D"), [this] {
        ksSelection::Ids copies;
        for (const osg::NodePtr &copy : ksNodeEdits::duplicate(document, document.selection().nodes()))
            copies.push_back(copy.getFieldContainerId());
        document.selection().set(copies);
    });
    addNodeAction(menu, tr("&Delete"), QKeySequence::Delete,
                  [this] { ksNodeEdits::remove(document, document.selection().nodes()); });
    addNodeAction(menu, tr("Re&name"), QKeySequence(Qt::Key_F2), [this] { nodes->editName(); });
    addNodeAction(menu, tr("S&how or Hide"), QKeySequence(Qt::Key_H), [this] {
        const osg::NodePtr current = document.selection().current();
        const bool isShown = current != osg::NullFC && current->getTravMask() != 0;
        ksNodeEdits::show(document, document.selection().nodes(), !isShown);
    });
    QMenu *shiftMenu = menu->addMenu(tr("&Move"));
    const auto addShift = [this, shiftMenu](const QString &text, const char *key, ksNodeEdits::Shift where) {
        addNodeAction(shiftMenu, text, keys(key),
                      [this, where] { ksNodeEdits::shift(document, document.selection().current(), where); });
    };
    addShift(tr("&Up"), "Alt+Up", ksNodeEdits::Shift::Up);
    addShift(tr("&Down"), "Alt+Down", ksNodeEdits::Shift::Down);
    addShift(tr("&Out of Its Parent"), "Alt+Left", ksNodeEdits::Shift::Out);
    addShift(tr("&Into the One Before"), "Alt+Right", ksNodeEdits::Shift::In);
    menu->addSeparator();
    addAction(menu, tr("S&elect All"), QKeySequence::SelectAll, [this] { nodes->selectAll(); });
    addAction(menu, tr("Select N&one"), keys("Ctrl+Shift+A"), [this] { document.selection().clear(); });
    menu->addSeparator();
    addAction(menu, tr("&Checkpoint"), keys("Ctrl+M"), [this] {
        document.history().mark();
        returnAction->setEnabled(true);
        statusBar()->showMessage(tr("Return to Checkpoint comes back to here."), MessageMilliseconds);
    });
    returnAction = addAction(menu, tr("Re&turn to Checkpoint"), keys("Ctrl+Shift+M"),
                             [this] { document.history().reset(); });
    addAction(menu, tr("H&istory"), keys("Ctrl+H"), [this] { document.stack().showHistory(); });
    addAction(menu, tr("History &Limit..."), {}, [this] {
        Settings stored;
        if (const int limit = dialogs.askForLimit(this, stored.value(limitKey(), 0).toInt()); limit >= 0) {
            stored.setValue(limitKey(), limit);
            applyLimit();
        }
    });
}

void ksMainWindow::makeViewMenu()
{
    QMenu *menu = menuBar()->addMenu(tr("&View"));
    QToolBar *bar = addToolBar(tr("Tools"));
    bar->setObjectName(QStringLiteral("tools"));
    bar->setAccessibleName(tr("Tools"));

    auto *tools = new QActionGroup(this);
    const std::pair<QString, ksViewport::Tool> each[] = {{tr("&Select"), ksViewport::Tool::Select},
                                                         {tr("&Move"), ksViewport::Tool::Move},
                                                         {tr("&Turn"), ksViewport::Tool::Turn},
                                                         {tr("S&cale"), ksViewport::Tool::Scale}};
    const Qt::Key toolKeys[] = {Qt::Key_Q, Qt::Key_W, Qt::Key_E, Qt::Key_R};
    int next = 0;
    for (const auto &[text, tool] : each) {
        QAction *action =
            addAction(menu, text, toolKeys[next++], [this, tool = tool] { view->setTool(tool); });
        action->setCheckable(true);
        action->setActionGroup(tools);
        action->setData(static_cast<int>(tool));
        bar->addAction(action);
    }
    tools->actions().first()->setChecked(true);
    connect(view, &ksViewport::toolChanged, this, [tools](ksViewport::Tool tool) {
        for (QAction *action : tools->actions())
            if (action->data().toInt() == static_cast<int>(tool))
                action->setChecked(true);
    });
    menu->addSeparator();
    bar->addSeparator();
    QAction *local = menu->addAction(tr("&Local Axes"));
    local->setShortcut(Qt::Key_X);
    local->setCheckable(true);
    connect(local, &QAction::toggled, this, [this](bool isLocal) {
        view->setSpace(isLocal ? ksViewport::Space::Local : ksViewport::Space::World);
    });
    connect(view, &ksViewport::spaceChanged, local,
            [local](ksViewport::Space space) { local->setChecked(space == ksViewport::Space::Local); });
    bar->addAction(local);
    menu->addSeparator();
    bar->addSeparator();
    bar->addAction(addAction(menu, tr("&Frame Selection"), Qt::Key_F, [this] { view->frameSelection(); }));
    bar->addAction(addAction(menu, tr("Frame &All"), Qt::Key_A, [this] { view->frameAll(); }));
    menu->addSeparator();
    for (const QDockWidget *dock : findChildren<QDockWidget *>())
        menu->addAction(dock->toggleViewAction());
    menu->addAction(bar->toggleViewAction());
}

void ksMainWindow::makeScriptMenu()
{
    scriptMenu = menuBar()->addMenu(tr("&Script"));
    runAction = addAction(scriptMenu, tr("&Run..."), keys("Ctrl+R"), [this] {
        const QString path = dialogs.askForScript(this, QFileInfo(document.path()).path());
        if (path.isEmpty())
            return;
        scriptsDock->show();
        console->runFile(path);
    });
    stopAction =
        addAction(scriptMenu, tr("&Stop") + QLatin1Char('\t') + tr("Esc"), {}, [this] { console->stop(); });
    stopAction->setEnabled(false);
    addAction(scriptMenu, tr("&Console"), keys("Ctrl+E"), [this] {
        scriptsDock->show();
        scriptsDock->raise();
        console->input()->setFocus();
    });
}

void ksMainWindow::makeHelpMenu()
{
    QMenu *menu = menuBar()->addMenu(tr("&Help"));
    addAction(menu, tr("&Keys"), QKeySequence::HelpContents, [this] {
        QString text = QStringLiteral("<table cellspacing=\"4\">");
        for (const QMenu *listed : menuBar()->findChildren<QMenu *>())
            for (const QAction *action : listed->actions())
                if (!action->shortcut().isEmpty())
                    text += QStringLiteral("<tr><td>") +
                            action->text().remove(QLatin1Char('&')).toHtmlEscaped() +
                            QStringLiteral("</td><td><b>") +
                            action->shortcut().toString(QKeySequence::NativeText).toHtmlEscaped() +
                            QStringLiteral("</b></td></tr>");
        dialogs.inform(this, tr("Keys"), text + QStringLiteral("</table>"));
    });
    addAction(menu, tr("&About"), {}, [this] {
        dialogs.inform(this, tr("About"),
                       tr("ks-editor %1: edits 3D models, and takes every edit back.")
                           .arg(QCoreApplication::applicationVersion()));
    });
}

bool ksMainWindow::open(const QString &path)
{
    // What was dropped before a script began comes while it runs.
    if (console->isRunning() || !mayReplace())
        return false;
    bool isOpen = false;
    attempt([&] {
        try {
            dialogs.showProgress(this, tr("Opening %1").arg(QFileInfo(path).fileName()),
                                 [&](const auto &progress) { isOpen = document.open(path, progress); });
        } catch (const std::bad_alloc &) {
            throw ksEditorError(path + tr(": takes more memory than it is given"));
        }
    });
    if (isOpen)
        noteRecent(path);
    return isOpen;
}

void ksMainWindow::newDocument()
{
    if (mayReplace())
        document.clear();
}

void ksMainWindow::finishTyping()
{
    if (QWidget *focus = focusWidget()) {
        QWidget *around = focus->parentWidget();
        focus->clearFocus();
        // The field of a name in the outline goes with that.
        if (QWidget *next = focus->isVisible() ? focus : around)
            next->setFocus();
    }
}

bool ksMainWindow::mayReplace()
{
    finishTyping();
    if (!document.isModified())
        return true;
    switch (dialogs.askToSave(this, document.title())) {
    case ksDialogs::Answer::Save:
        return save();
    case ksDialogs::Answer::Discard:
        return true;
    default:
        return false;
    }
}

bool ksMainWindow::save()
{
    // What another program has written may hold more than the document does, which is not to be lost.
    if (document.path().isEmpty() || (document.path() != savedFile && !document.warnings().isEmpty()))
        return saveAs();
    try {
        ksSceneExporter::checkPath(document.path());
    } catch (const ksOutputError &) {
        return saveAs();
    }
    return saveIn(document.path());
}

bool ksMainWindow::saveAs()
{
    const QFileInfo file(document.path().isEmpty() ? tr("Untitled") : document.path());
    const QString path = dialogs.askForFile(
        this, file.path() + QLatin1Char('/') + file.completeBaseName() +
                  (file.suffix() == QLatin1String("glb") ? QStringLiteral(".glb") : QStringLiteral(".gltf")));
    return !path.isEmpty() && saveIn(path);
}

bool ksMainWindow::saveIn(const QString &path)
{
    finishTyping();
    bool isSaved = false;
    attempt([&] {
        document.save(path);
        isSaved = true;
    });
    if (!isSaved)
        return false;
    savedFile = path;
    noteRecent(path);
    statusBar()->showMessage(tr("Saved %1.").arg(path), MessageMilliseconds);
    return true;
}

void ksMainWindow::attempt(const Work &work)
{
    try {
        work();
    } catch (const ksEditorError &error) {
        dialogs.complain(this, QString::fromUtf8(error.what()));
    }
}

void ksMainWindow::refuse(const QString &reason)
{
    statusBar()->showMessage(reason, MessageMilliseconds);
    QApplication::beep();
}

QStringList ksMainWindow::recentFiles()
{
    return Settings().value(recentKey()).toStringList();
}

void ksMainWindow::noteRecent(const QString &path)
{
    const QString absolute = QFileInfo(path).absoluteFilePath();
    QStringList files = recentFiles();
    files.removeAll(absolute);
    files.prepend(absolute);
    Settings().setValue(recentKey(), QStringList(files.mid(0, MostRecentFiles)));
}

void ksMainWindow::showRecent()
{
    recentMenu->clear();
    const QStringList files = recentFiles();
    recentMenu->setEnabled(!files.isEmpty());
    int number = 0;
    for (const QString &file : files) {
        const QString name = escaped(QFileInfo(file).fileName());
        QAction *action = addAction(recentMenu, QStringLiteral("&%1 %2").arg(++number % 10).arg(name), {},
                                    [this, file] { open(file); });
        action->setStatusTip(file);
    }
}

void ksMainWindow::showState()
{
    setWindowTitle(document.title() + QStringLiteral("[*] - ks-editor"));
    setWindowModified(document.isModified());
    const ksUndoStack &stack = document.stack();
    undoAction->setText(stack.canUndo() ? tr("&Undo \"%1\"").arg(escaped(stack.undoText())) : tr("&Undo"));
    undoAction->setEnabled(stack.canUndo());
    redoAction->setText(stack.canRedo() ? tr("&Redo \"%1\"").arg(escaped(stack.redoText())) : tr("&Redo"));
    redoAction->setEnabled(stack.canRedo());
    showSelection();
}

void ksMainWindow::showDocument()
{
    savedFile.clear();
    returnAction->setEnabled(false);
    applyLimit();
    warnings->clear();
    warnings->addItems(document.warnings());
    warningsDock->setVisible(!document.warnings().isEmpty());
}

void ksMainWindow::showSelection()
{
    const bool hasNodes = document.selection().current() != osg::NullFC;
    for (QAction *action : qAsConst(nodeActions))
        action->setEnabled(hasNodes);
}

void ksMainWindow::showRunning(bool isRunning)
{
    for (QAction *action : menuBar()->actions())
        action->setEnabled(!isRunning || action == scriptMenu->menuAction());
    runAction->setEnabled(!isRunning);
    stopAction->setEnabled(isRunning);
}

void ksMainWindow::applyLimit()
{
    if (document.stack().isEmpty())
        document.stack().setUndoLimit(Settings().value(limitKey(), 0).toInt());
}

void ksMainWindow::closeEvent(QCloseEvent *event)
{
    if (!mayReplace()) {
        event->ignore();
        return;
    }
    Settings stored;
    stored.setValue(QStringLiteral("geometry"), saveGeometry());
    stored.setValue(QStringLiteral("layout"), saveState(LayoutVersion));
    event->accept();
}

void ksMainWindow::dragEnterEvent(QDragEnterEvent *event)
{
    if (!fileOf(*event->mimeData()).isEmpty())
        event->acceptProposedAction();
}

void ksMainWindow::dropEvent(QDropEvent *event)
{
    const QString path = fileOf(*event->mimeData());
    if (path.isEmpty())
        return;
    event->acceptProposedAction();
    // Who has dragged it waits until it has been taken.
    QTimer::singleShot(0, this, [this, path] { open(path); });
}
