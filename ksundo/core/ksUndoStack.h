// SPDX-License-Identifier: MIT
#pragma once

#include <ksundo/ksExport.h>

#include <QObject>
#include <QPointer>
#include <QString>
#include <QUndoStack>

#include <exception>

class QAction;
class ksMessage;

namespace ksDetail {
class ksHistoryWindow;
}

/// The application's entry point to undo and redo.
///
/// The stack owns the commands added to it, runs them, and reports every step twice: as a Qt signal, and as a
/// message to the callback that the application installed. The application uses one of two instances that
/// live from the first call of get() to the end of the process, after the application object. GUI thread
/// only.
///
/// The message of a step is a ksMessage named "ksURManager::redo" or "ksURManager::undo" that holds
///  - "index" (int): the position of the command that was added, redone or undone, counted from 0;
///  - "added" (bool): true when the command was added, false when it was redone or undone;
///  - "text" (std::string, UTF-8): the command's text;
///  - the keys that the command adds itself, see ksUndoCommand::makeMessage().
/// A command that merges into the one before it is reported as an addition of that one. What is added between
/// beginMacro() and endMacro() is reported once, when the outermost macro ends. A reset() over several
/// commands is reported once, for the last one. No message is built while no callback is installed.
///
/// While a macro is open, undo(), redo(), reset() and setClean() do nothing but make Qt warn, the stack is
/// not clean, and the macro is one of its commands, but not one that is done.
///
/// A library that brings command classes must stay loaded once one of its commands was added, even if it is
/// deleted: the library remembers the classes that it has seen.
///
/// \par What the application's code throws
/// The library throws nothing of its own, but std::bad_function_call for a missing notification that a
/// command requires, which leaves the command's step done. What the application throws while a command runs
/// (a getter or setter, a change handler, a callback, sync or notify function, a post action, a method that
/// is invoked) passes on to the caller of add(), undo(), redo() or reset(). By then the command has taken
/// back what it had done, as its undo(), or its redo(), would; that calls the application once more, and of
/// what it throws then, Qt warns. The stack is as it was before the step, and tells nobody of it; a command
/// that was to be added stays with the caller. A ksMultiCommand takes back its children. A macro cannot, nor
/// can any other command with children, as Qt does not tell how far it got: what has been done stays, and
/// when it was being undone or redone, the stack clears itself. Commands that are not of the library take
/// back for themselves.
///
/// What a receiver of a signal, or the message callback, throws passes on as well, but after the step, which
/// is done and stays. Receivers that come after it do not hear of the step. Destructors and mergeWith() of
/// commands must not throw, nor must slots of the actions that the stack makes.
///
/// \par What the application's code may call
/// Receivers of signals and the message callback may use the stack as anybody. While a command runs, it shows
/// the state before the step; mark(), the beginning and end of gestures, sendMessage(), showHistory() and
/// what sets or makes something of the application's work, and clear() is done at the end of the step, after
/// it has been reported. All others (add(), undo(), redo(), reset(), beginMacro(), endMacro(),
/// takeBackMacro(), takeBackGesture(), forgetUndone(), setClean(), a step in the history window) are refused:
/// they do nothing but make Qt warn, and add() deletes its command. The same goes for destructors of
/// commands, which must not ask for commands or texts either, nor show the history. The other stack takes
/// everything.
///
/// When a command's target is destroyed within its step, by a callback, the rest of the step passes it over.
/// Change handlers must not destroy the target, nor must a stack be destroyed within its step.
class KSUNDO_EXPORT ksUndoStack : public QObject
{
    Q_OBJECT

public:
    /// Receives the messages. \a name and \a message are valid during the call; the third argument is always
    /// 0 and the result is ignored.
    using MessageCallback = bool (*)(const char *name, ksMessage &message, int);

    /// Instance 0 or 1; any other number gives instance 0.
    static ksUndoStack *get(unsigned int which);

    /// Builds a stack of its own, besides the two instances.
    ksUndoStack();

    /// Deletes the history window and all commands, without undoing them.
    ~ksUndoStack() override;

    /// Clears both instances.
    static void clearAll()
    {
        get(0)->clear();
        get(1)->clear();
    }

    /// True when the stack holds no command, done or undone.
    bool isEmpty() const { return count() == 0; }

    /// Runs the redo() of \a command and adds it to the stack, which owns it from then on. Undone commands
    /// are deleted. The command may be absorbed by the one before it, and deleted. When its redo() throws,
    /// the stack is as before and the command stays with the caller. Null is ignored. A command that has been
    /// added before, or has a parent, must not be added.
    ///
    /// Commands are offered to each other for merging by their id(): those that do not take theirs from
    /// ksUndoCommand::makeId() must have none, that is -1.
    void add(QUndoCommand *command);

    /// Opens a macro: what is added until the matching endMacro() becomes one command named \a text, also
    /// when that is nothing. Undone commands are deleted. Macros nest. ksUndoMacro does both in a scope.
    void beginMacro(const QString &text);

    /// Closes the innermost open macro. Without one nothing happens, of which Qt warns, but that a redo which
    /// comes next is reported as an addition.
    void endMacro();

    /// Closes the innermost open macro and, when it was the outermost, undoes and forgets it, so that there
    /// is nothing to redo. That is reported as the addition that it was, and then as an undo. What receivers
    /// throw is dropped.
    void takeBackMacro();

    /// Begins a gesture: what is added until the matching endGesture() merges with itself only, and without
    /// limit of time. An inner gesture is part of the outer one. ksUndoGesture does both in a scope, and says
    /// more.
    void beginGesture();

    /// Ends the gesture that began last. Without one nothing happens.
    void endGesture();

    /// Undoes the steps of the gesture that is open, the last first, and forgets them, so that there is
    /// nothing to redo. Each is reported as an undo. It ends at the state that setClean() was called in, if
    /// that was within the gesture, and at a step none of whose commands is a ksUndoCommand of the gesture.
    /// Nothing happens without a gesture, while a macro is open, and when the gesture has done nothing.
    void takeBackGesture();

    /// Deletes the commands that are undone, so that there is nothing to redo, which is not reported as a
    /// step. Nothing happens while a macro is open.
    void forgetUndone();

    /// Whether there is a command to undo; never while a macro is open.
    bool canUndo() const { return undoStack->canUndo(); }

    /// Whether there is a command to redo; never while a macro is open.
    bool canRedo() const { return undoStack->canRedo(); }

    /// The command that the next undo() would undo; null when there is none. It belongs to the stack and is
    /// valid until the next change of the history.
    const QUndoCommand *currentCommand() const { return undoStack->command(index() - 1); }

    /// Installs the receiver of the messages; null switches them off.
    void setMessageCallback(MessageCallback callback) { messageCallback = callback; }

    /// Sends the message \a name, which must not be null, about the command at \a index, counted from 0. Does
    /// nothing when no callback is installed or there is no such command.
    void sendMessage(const char *name, int index, bool added) const
    {
        if (messageCallback != nullptr)
            deliverMessage(name, index, added);
    }

    /// How many operations of this stack are in progress: greater than 0 when the caller has been called,
    /// directly or not, by a command of this stack, a receiver of its signals, or the message callback.
    /// beginMacro(), forgetUndone() and clear() do not count.
    int getBusyDepth() const { return busyDepth; }

    /// The text of the command that undo() would undo; empty when there is none.
    QString undoText() const { return undoStack->undoText(); }

    /// The text of the command that redo() would redo; empty when there is none.
    QString redoText() const { return undoStack->redoText(); }

    /// An action that calls undo(), whose text is \a prefix ("Undo" when
    /// empty) and undoText(), and which is enabled while there is something to undo. It belongs to \a parent,
    /// or to the caller when that is null.
    QAction *createUndoAction(QObject *parent, const QString &prefix = QString()) const;

    /// The same for redo().
    QAction *createRedoAction(QObject *parent, const QString &prefix = QString()) const;

    /// Sets how many commands the stack keeps at most; the oldest go first. 0, the default, and less are
    /// without limit. On a stack that is not empty it does nothing but make Qt warn.
    void setUndoLimit(int limit) { undoStack->setUndoLimit(limit); }

    /// How many commands the stack keeps at most; 0 is without limit.
    int undoLimit() const { return undoStack->undoLimit(); }

    /// Declares the current state to be the one that is saved. The next command does not merge into the
    /// command that led here. The history window marks it.
    void setClean();

    /// Whether the stack is at the state last declared clean; the empty state of a new stack is clean.
    bool isClean() const { return undoStack->isClean(); }

    /// The number of commands, done and undone; a macro counts as one.
    int count() const { return undoStack->count(); }

    /// The number of commands that are done, which is the position of the next command.
    int index() const { return undoStack->index(); }

Q_SIGNALS:
    /// \a command was added (\a added is true) or redone. It is null when the stack was cleared or destroyed.
    void redoPerformed(const QUndoCommand *command, bool added);

    /// \a command was undone. It is null when the stack was cleared or destroyed.
    void undoPerformed(const QUndoCommand *command);

    /// All commands were deleted by clear().
    void cleared();

public Q_SLOTS:
    /// Undoes the current command, if any.
    void undo();

    /// Redoes the command after the current one, if any.
    void redo();

    /// Deletes all commands without undoing them, those of an open macro as well, which is closed by that,
    /// and forgets the mark. The stack is clean then. Called while a command runs or is deleted, it does so
    /// when the step is over.
    void clear();

    /// Remembers the current index. It is a position, not a command: commands that fall off at the undo limit
    /// shift those that follow. An open macro does not count.
    void mark();

    /// Undoes or redoes commands until the stack is at the marked index again, or as close as it gets; at 0
    /// when mark() was never called. When the application throws, the steps before stay, and are reported.
    void reset();

    /// Shows and raises the history window, which is made on the first call and belongs to the stack. It is
    /// closed when the application object goes. There must be such an object, a QApplication; nothing else
    /// here needs one. Of what a step throws that the user has chosen there, Qt warns. It may be deleted, but
    /// by deleteLater() within such a step; the next call makes another one.
    void showHistory();

private Q_SLOTS:
    void indexChanged(int i);

private:
    enum class Phase
    {
        idle,    ///< or reporting
        running, ///< Qt's stack runs or deletes commands, and stands no other operation
        clearing,
        ending
    };

    void deliverMessage(const char *name, int index, bool added) const;

    /// True, and makes Qt warn, when \a operation is not possible now.
    bool refuses(const char *operation) const
    {
        if (phase == Phase::idle)
            return false;
        warn(operation);
        return true;
    }

    static void warn(const char *operation);

    /// Calls \a operation, which uses Qt's stack, and then does what had to wait for its end.
    template <class Operation>
    void run(int depth, Operation operation);

    void settle();

    void stepBack();
    void stepForth();

    /// To be called when the command at \a place has thrown.
    void doubt(int place);

    void goTo(int target);
    void announceIndex(); ///< that Qt has not announced
    void updateActions();

    QUndoStack *undoStack;
    int lastIndex = 0;
    bool added = false;
    int markIndex = 0;
    int busyDepth = 0;
    QPointer<ksDetail::ksHistoryWindow> historyView;
    MessageCallback messageCallback = nullptr;
    int openGestures = 0;
    unsigned int gesture = 0; ///< the number of the open or the last one
    Phase phase = Phase::idle;
    bool isUnsettled = false; ///< something waits for the end of the step
    bool clearsLater = false;
    std::exception_ptr receiversFailure;
};
