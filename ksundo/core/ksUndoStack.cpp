// SPDX-License-Identifier: MIT
#include <ksundo/core/detail/ksCommandKind.h>
#include <ksundo/core/detail/ksHistoryWindow.h>
#include <ksundo/core/detail/ksTakeBack.h>
#include <ksundo/core/ksMultiCommand.h>
#include <ksundo/core/ksUndoStack.h>

#include <ksMessage.h>

#include <QAction>
#include <QSignalBlocker>

#include <algorithm>
#include <array>
#include <string>
#include <utility>

namespace {

/// \a text in UTF-8. Most texts are ASCII and need no array in between.
std::string utf8Of(const QString &text)
{
    const auto isAscii = [](QChar letter) { return letter.unicode() < 0x80; };
    if (!std::all_of(text.begin(), text.end(), isAscii))
        return text.toStdString();
    return std::string(text.utf16(), text.utf16() + text.size());
}

/// Makes \a command, and all that it consists of, parts of the gesture \a number.
void join(QUndoCommand *command, unsigned int number)
{
    if (ksDetail::ksKindOf(*command) == ksDetail::ksCommandKind::single)
        static_cast<ksUndoCommand *>(command)->setGesture(number);
    // QUndoCommand hands its children out as constant although they are this command's own.
    for (int i = 0; i < command->childCount(); ++i)
        join(const_cast<QUndoCommand *>(command->child(i)), number);
}

/// Whether \a command, or a part of what it consists of, is a part of the gesture \a number.
bool isOf(const QUndoCommand &command, unsigned int number)
{
    if (ksDetail::ksKindOf(command) == ksDetail::ksCommandKind::single &&
        static_cast<const ksUndoCommand &>(command).getGesture() == number)
        return true;
    for (int i = 0; i < command.childCount(); ++i)
        if (isOf(*command.child(i), number))
            return true;
    return false;
}

} // namespace

ksUndoStack *ksUndoStack::get(unsigned int which)
{
    static std::array<ksUndoStack, 2> stacks;
    return &stacks[which < stacks.size() ? which : 0];
}

ksUndoStack::ksUndoStack()
    : undoStack(new QUndoStack)
{
    connect(undoStack, SIGNAL(indexChanged(int)), this, SLOT(indexChanged(int)));
}

ksUndoStack::~ksUndoStack()
{
    phase = Phase::ending;
    delete historyView;
    delete undoStack;
}

void ksUndoStack::warn(const char *operation)
{
    qWarning("ksUndoStack: %s is not possible while a command is run or deleted", operation);
}

/// Calls \a step, which the user takes by a part of Qt that stands no exceptions.
template <class Step>
static void takeForUser(Step step)
{
    try {
        step();
    } catch (...) {
        qWarning("ksUndoStack: a step that the user has taken has ended with an exception");
    }
}

template <class Operation>
inline void ksUndoStack::run(int depth, Operation operation)
{
    busyDepth += depth;
    phase = Phase::running;
    try {
        operation();
    } catch (...) {
        busyDepth -= depth;
        phase = Phase::idle;
        receiversFailure = nullptr;
        ksDetail::ksTakeBack([this] { settle(); });
        throw;
    }
    busyDepth -= depth;
    phase = Phase::idle;
    if (isUnsettled)
        settle();
}

void ksUndoStack::settle()
{
    if (clearsLater && busyDepth == 0)
        clear();
    isUnsettled = clearsLater;
    if (receiversFailure)
        std::rethrow_exception(std::exchange(receiversFailure, nullptr));
}

void ksUndoStack::add(QUndoCommand *command)
{
    if (command == nullptr)
        return;
    if (refuses("add()")) {
        delete command;
        return;
    }
    const bool joins = openGestures > 0;
    if (joins)
        join(command, gesture);
    added = true;
    run(1, [&] {
        try {
            undoStack->push(command);
        } catch (...) {
            added = false;
            if (joins)
                join(command, 0);
            throw;
        }
    });
}

void ksUndoStack::beginMacro(const QString &text)
{
    if (!refuses("beginMacro()"))
        run(0, [&] { undoStack->beginMacro(text); });
}

void ksUndoStack::endMacro()
{
    if (refuses("endMacro()"))
        return;
    added = true;
    run(1, [this] { undoStack->endMacro(); });
}

void ksUndoStack::takeBackMacro()
{
    if (refuses("takeBackMacro()"))
        return;
    const QUndoCommand *macro = undoStack->command(index());
    ksDetail::ksTakeBack([this] { endMacro(); });
    if (!canUndo() || currentCommand() != macro)
        return;
    ksDetail::ksTakeBack([this] { undo(); });
    ksDetail::ksTakeBack([this] { forgetUndone(); });
}

void ksUndoStack::beginGesture()
{
    if (openGestures++ == 0)
        ++gesture;
}

void ksUndoStack::endGesture()
{
    openGestures = std::max(openGestures - 1, 0);
}

void ksUndoStack::takeBackGesture()
{
    if (refuses("takeBackGesture()"))
        return;
    while (openGestures > 0 && canUndo() && isOf(*currentCommand(), gesture)) {
        const int last = index();
        try {
            undo();
        } catch (...) {
            if (index() < last)
                forgetUndone();
            throw;
        }
        forgetUndone();
    }
}

void ksUndoStack::forgetUndone()
{
    if (refuses("forgetUndone()"))
        return;
    // Qt deletes what is undone when a command comes, and does not keep one that is obsolete. Of that it
    // tells nobody.
    auto *command = new QUndoCommand;
    command->setObsolete(true);
    run(0, [&] { undoStack->push(command); });
    updateActions();
    if (historyView != nullptr)
        historyView->follow();
}

void ksUndoStack::setClean()
{
    if (refuses("setClean()"))
        return;
    undoStack->setClean();
    // What is saved stays when the gesture that did it is taken back.
    if (openGestures > 0 && isClean())
        ++gesture;
    if (historyView != nullptr)
        historyView->follow();
}

void ksUndoStack::deliverMessage(const char *name, int index, bool added) const
{
    const QUndoCommand *command = undoStack->command(index);
    if (command == nullptr)
        return;

    ksMessage message;
    message.set("index", index, true);
    message.set("added", added, true);
    message.set("text", utf8Of(command->text()), true);
    const ksDetail::ksCommandKind kind = ksDetail::ksKindOf(*command);
    if (kind == ksDetail::ksCommandKind::multi)
        static_cast<const ksMultiCommand *>(command)->makeMessage(message);
    else if (kind == ksDetail::ksCommandKind::single)
        static_cast<const ksUndoCommand *>(command)->makeMessage(message);
    messageCallback(name, message, 0);
}

QAction *ksUndoStack::createUndoAction(QObject *parent, const QString &prefix) const
{
    QAction *action = undoStack->createUndoAction(parent, prefix);
    disconnect(action, &QAction::triggered, undoStack, nullptr);
    auto *stack = const_cast<ksUndoStack *>(this);
    connect(action, &QAction::triggered, this, [stack] { takeForUser([stack] { stack->undo(); }); });
    return action;
}

QAction *ksUndoStack::createRedoAction(QObject *parent, const QString &prefix) const
{
    QAction *action = undoStack->createRedoAction(parent, prefix);
    disconnect(action, &QAction::triggered, undoStack, nullptr);
    auto *stack = const_cast<ksUndoStack *>(this);
    connect(action, &QAction::triggered, this, [stack] { takeForUser([stack] { stack->redo(); }); });
    return action;
}

void ksUndoStack::doubt(int place)
{
    // Of a macro, Qt does not tell which commands ran before the one that has thrown.
    const QUndoCommand *command = undoStack->command(place);
    if (command != nullptr && command->childCount() > 0 &&
        ksDetail::ksKindOf(*command) != ksDetail::ksCommandKind::multi)
        clearsLater = true;
}

inline void ksUndoStack::stepBack()
{
    try {
        undoStack->undo();
    } catch (...) {
        doubt(index() - 1);
        throw;
    }
}

inline void ksUndoStack::stepForth()
{
    try {
        undoStack->redo();
    } catch (...) {
        doubt(index());
        throw;
    }
}

void ksUndoStack::undo()
{
    if (!refuses("undo()"))
        run(1, [this] { stepBack(); });
}

void ksUndoStack::redo()
{
    if (!refuses("redo()"))
        run(1, [this] { stepForth(); });
}

void ksUndoStack::clear()
{
    if (phase == Phase::running)
        clearsLater = isUnsettled = true;
    if (phase != Phase::idle)
        return;
    clearsLater = false;
    markIndex = 0;
    const bool wasEmpty = isEmpty();
    phase = Phase::clearing;
    undoStack->clear();
    phase = Phase::idle;
    updateActions(); // Qt has told them that nothing is there, whatever its receivers have added
    if (wasEmpty) {  // which Qt leaves as it was, and does not announce
        lastIndex = 0;
        added = false;
        if (!isClean())
            setClean();
    }
    const std::exception_ptr failure = std::exchange(receiversFailure, nullptr);
    Q_EMIT cleared();
    if (failure)
        std::rethrow_exception(failure);
}

void ksUndoStack::mark()
{
    markIndex = undoStack->index();
}

void ksUndoStack::reset()
{
    if (!refuses("reset()"))
        goTo(markIndex);
}

void ksUndoStack::goTo(int target)
{
    run(1, [this, target]() mutable {
        const auto forth = [&] {
            const int before = count();
            stepForth();
            target -= before - count(); // obsolete ones have gone
        };
        try {
            {
                // One by one, since Qt would forget those before one that throws; the last one is to be heard
                // of.
                const QSignalBlocker blocker(undoStack);
                while (canUndo() && index() - 1 > target)
                    stepBack();
                while (canRedo() && index() + 1 < target)
                    forth();
            }
            if (canUndo() && index() > target)
                stepBack();
            else if (canRedo() && index() < target)
                forth();
            else
                undoStack->setIndex(target); // warns within a macro
        } catch (...) {
            announceIndex();
            throw;
        }
        announceIndex();
    });
}

void ksUndoStack::announceIndex()
{
    if (index() == lastIndex || clearsLater)
        return;
    Q_EMIT undoStack->indexChanged(index());
    updateActions();
}

void ksUndoStack::updateActions()
{
    Q_EMIT undoStack->canUndoChanged(canUndo());
    Q_EMIT undoStack->undoTextChanged(undoText());
    Q_EMIT undoStack->canRedoChanged(canRedo());
    Q_EMIT undoStack->redoTextChanged(redoText());
}

void ksUndoStack::showHistory()
{
    if (phase == Phase::ending)
        return;
    if (historyView == nullptr) {
        const auto choose = [this](int target) {
            if (!refuses("a step in the history window"))
                takeForUser([=] { goTo(target); });
        };
        historyView = new ksDetail::ksHistoryWindow(undoStack, choose);
        historyView->setWindowTitle(tr("Undo/Redo History"));
        historyView->setAccessibleName(historyView->windowTitle());
        historyView->resize(300, 100);
    }
    historyView->show();
    historyView->raise();
}

void ksUndoStack::indexChanged(int i)
{
    // Receivers may use the stack, which must find its state up to date then.
    const bool isUndo = i < std::exchange(lastIndex, i);
    const bool isAddition = std::exchange(added, false);
    if (phase != Phase::ending)
        phase = Phase::idle; // Qt has nothing more to do with commands
    try {
        // Of no command there is no message, whatever its receivers have added.
        if (isUndo) {
            const QUndoCommand *command = undoStack->command(i);
            Q_EMIT undoPerformed(command);
            if (command != nullptr)
                sendMessage("ksURManager::undo", i, false);
        } else {
            const QUndoCommand *command = undoStack->command(i - 1);
            Q_EMIT redoPerformed(command, isAddition);
            if (command != nullptr)
                sendMessage("ksURManager::redo", i - 1, isAddition);
        }
    } catch (...) {
        receiversFailure = std::current_exception(); // Qt has something to do yet
        isUnsettled = true;
    }
    if (historyView != nullptr)
        historyView->follow();
}
