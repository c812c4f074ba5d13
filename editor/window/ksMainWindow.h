// SPDX-License-Identifier: MIT
#pragma once

#include <QMainWindow>
#include <QString>
#include <QStringList>

#include <functional>

class QAction;
class QDockWidget;
class QListWidget;
class QMenu;
class ksDialogs;
class ksDocument;
class ksInspector;
class ksOutline;
class ksScriptPanel;
class ksViewport;

/// The editor's window: the viewport, around it the outline, the inspector, the script console and what was
/// wrong with the file, and the menus. Edits that are not saved are asked about before they go.
///
/// Which files were opened, where the parts of the window are, and the limit of the history are in the
/// settings of the user.
class ksMainWindow : public QMainWindow
{
    Q_OBJECT

public:
    /// \a shownDocument and \a userDialogs must outlive the window.
    ksMainWindow(ksDocument &shownDocument, ksDialogs &userDialogs, QWidget *parent = nullptr);
    ~ksMainWindow() override;

    ksViewport &viewport() const { return *view; }
    ksInspector &inspector() const { return *fields; }
    ksOutline &outline() const { return *nodes; }
    ksScriptPanel &scripts() const { return *console; }

    /// Puts the parts of the window where they were when it was last closed.
    void restoreLayout();

    /// Opens the file \a path, once the user has said what is to become of unsaved edits. Says whether it is
    /// open now; the user has been told why not.
    bool open(const QString &path);

    /// Save the document, under its own name if that can be. Say whether it is saved now.
    bool save();
    bool saveAs();

    /// The files that were opened last, the latest first.
    static QStringList recentFiles();

protected:
    void closeEvent(QCloseEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    using Work = std::function<void()>;

    void makeFileMenu();
    void makeEditMenu();
    void makeViewMenu();
    void makeScriptMenu();
    void makeHelpMenu();
    void makeDocks();

    QAction *addAction(QMenu *menu, const QString &text, const QKeySequence &key, const Work &work);

    /// The same, for what needs selected nodes.
    QAction *addNodeAction(QMenu *menu, const QString &text, const QKeySequence &key, const Work &work);

    /// Makes a dock for \a content.
    QDockWidget *addDock(Qt::DockWidgetArea area, const QString &name, const QString &title,
                         QWidget *content);

    /// Runs \a work, and tells the user when it is refused.
    void attempt(const Work &work);
    void refuse(const QString &reason);

    /// Has the field that has the focus take what is being typed.
    void finishTyping();

    /// Whether unsaved edits, if there are any, may go.
    bool mayReplace();
    bool saveIn(const QString &path);
    void newDocument();
    void noteRecent(const QString &path);
    void showRecent();
    void showState();
    void showDocument();
    void showSelection();
    void showRunning(bool isRunning);
    void applyLimit();

    ksDocument &document;
    ksDialogs &dialogs;
    ksViewport *view;
    ksInspector *fields;
    ksOutline *nodes;
    ksScriptPanel *console;
    QListWidget *warnings;
    QDockWidget *warningsDock = nullptr;
    QDockWidget *scriptsDock = nullptr;
    QMenu *recentMenu = nullptr;
    QMenu *scriptMenu = nullptr;
    QAction *undoAction = nullptr;
    QAction *redoAction = nullptr;
    QAction *returnAction = nullptr;
    QAction *stopAction = nullptr;
    QAction *runAction = nullptr;
    QList<QAction *> nodeActions;

    /// The file that this window has saved last, which holds all that the document has.
    QString savedFile;
};
