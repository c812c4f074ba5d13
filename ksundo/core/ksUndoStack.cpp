// SPDX-License-Identifier: MIT
#include <ksundo/core/detail/ksCommandKind.h>
#include <ksundo/core/detail/ksHistoryWindow.h>
#include <ksundo/core/ksMultiCommand.h>
#include <ksundo/core/ksUndoStack.h>

#include <ksMessage.h>

#include <QAction>
#include <QScopedValueRollback>

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
    delete historyView;
    delete undoStack;
}

void ksUndoStack::add(QUndoCommand *command)
{
    if (command == nullptr)
        return;
    if (openGestures > 0)
        join(command, gesture);
    added = true;
    const QScopedValueRollback<int> busy(busyDepth, busyDepth + 1);
    try {
        undoStack->push(command);
    } catch (...) {
        added = false;
        throw;
    }
}

void ksUndoStack::endMacro()
{
    added = true;
    const QScopedValueRollback<int> busy(busyDepth, busyDepth + 1);
    undoStack->endMacro();
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
    while (openGestures > 0 && canUndo() && isOf(*currentCommand(), gesture)) {
        undo();
        forgetUndone();
    }
}

void ksUndoStack::forgetUndone()
{
    // Qt deletes what is undone when a command comes, and does not keep one that is obsolete. Of that it
    // tells nobody.
    auto *command = new QUndoCommand;
    command->setObsolete(true);
    undoStack->push(command);
    Q_EMIT undoStack->canRedoChanged(false);
    Q_EMIT undoStack->redoTextChanged(QString());
    if (historyView != nullptr)
        historyView->follow();
    Q_EMIT undoneForgotten();
}

void ksUndoStack::setClean()
{
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
    connect(action, &QAction::triggered, this, &ksUndoStack::undo);
    return action;
}

QAction *ksUndoStack::createRedoAction(QObject *parent, const QString &prefix) const
{
    QAction *action = undoStack->createRedoAction(parent, prefix);
    disconnect(action, &QAction::triggered, undoStack, nullptr);
    connect(action, &QAction::triggered, this, &ksUndoStack::redo);
    return action;
}

void ksUndoStack::undo()
{
    const QScopedValueRollback<int> busy(busyDepth, busyDepth + 1);
    undoStack->undo();
}

void ksUndoStack::redo()
{
    const QScopedValueRollback<int> busy(busyDepth, busyDepth + 1);
    undoStack->redo();
}

void ksUndoStack::clear()
{
    undoStack->clear();
    lastIndex = 0;
    added = false;
    markIndex = 0;
    Q_EMIT cleared();
}

void ksUndoStack::mark()
{
    markIndex = undoStack->index();
}

void ksUndoStack::reset()
{
    const QScopedValueRollback<int> busy(busyDepth, busyDepth + 1);
    undoStack->setIndex(markIndex);
}

void ksUndoStack::showHistory()
{
    if (historyView == nullptr) {
        historyView = new ksDetail::ksHistoryWindow(undoStack);
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
    if (isUndo) {
        Q_EMIT undoPerformed(undoStack->command(i));
        sendMessage("ksURManager::undo", i, false);
    } else {
        Q_EMIT redoPerformed(undoStack->command(i - 1), isAddition);
        sendMessage("ksURManager::redo", i - 1, isAddition);
    }
    if (historyView != nullptr)
        historyView->follow();
}
