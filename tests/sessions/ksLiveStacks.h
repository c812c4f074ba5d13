// SPDX-License-Identifier: MIT
#pragma once

#include "ksHearer.h"
#include "ksLiveScene.h"
#include "ksPlainStack.h"

#include <ksundo/core/ksUndoStack.h>

#include <ksMessage.h>

#include <QObject>
#include <QUndoCommand>
#include <QUndoStack>
#include <QtGlobal>

#include <array>
#include <map>
#include <memory>
#include <string>
#include <vector>

/// The library's two stacks, and its commands on a scene. One at a time.
class ksLiveStacks
{
public:
    explicit ksLiveStacks(const ksPlain::Scene &plain);
    ~ksLiveStacks();
    Q_DISABLE_COPY(ksLiveStacks)

    /// Builds a command that \a command describes, and that has not been run.
    std::unique_ptr<QUndoCommand> build(const ksPlain::Command &command, QUndoCommand *parent = nullptr);

    ksUndoStack &operator[](int which) { return *stacks[static_cast<std::size_t>(which)]; }
    ksPlain::StackState stateOf(int which) const;

    /// What differs between the history of a stack and the plain one, empty for nothing.
    std::string historyDifference(int which, const ksPlain::Stack &plainStack) const;

    /// Tells the command that undo() would take back what the plain one has been told.
    void retell(int which, const ksPlain::Stack &plainStack);

    void setReceiver(int which, int receiver);
    void setSync(const std::string &className, int function);

    /// The classes that commands can be built of.
    static std::vector<std::string> classNames();

    ksLiveScene scene;

    /// What has been announced and called back since it was emptied.
    ksPlain::Events events;

private:
    void tell(QUndoCommand &command, const ksPlain::Command &plainCommand);

    template <int which, int receiver>
    static bool receive(const char *name, ksMessage &message, int option);
    static void warn(QtMsgType type, const QMessageLogContext &context, const QString &line);

    std::string textOf(const ksMessage &message) const;

    static inline ksLiveStacks *current = nullptr;

    const ksPlain::Scene &plain;
    std::array<ksUndoStack *, 2> stacks;
    std::array<const QUndoStack *, 2> histories;
    QObject signalReceiver;
    ksHearer hearer;
    QtMessageHandler previousHandler;
};
