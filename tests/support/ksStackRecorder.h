// SPDX-License-Identifier: MIT
#pragma once

#include <ksundo/core/ksUndoStack.h>

#include <QUndoCommand>

#include <algorithm>
#include <string>
#include <support/ksDescribe.h>
#include <utility>
#include <vector>

/// What a stack announced, in order, each signal and each message as one line.
using ksEvents = std::vector<std::string>;

/// Events in a row.
inline ksEvents operator+(ksEvents first, const ksEvents &second)
{
    first.insert(first.end(), second.begin(), second.end());
    return first;
}

/// What a command adds to a message, each entry as key=type:value.
using ksKeys = std::vector<std::string>;

/// The two lines by which a stack announces one step of the command \a text at \a index. \a keys is what the
/// command itself says.
namespace ksStep {

inline std::string message(const char *name, bool added, ksKeys keys, int index, const std::string &text)
{
    keys.push_back(added ? "added=bool:true" : "added=bool:false");
    keys.push_back("index=int:" + std::to_string(index));
    keys.push_back("text=string:" + text);
    std::sort(keys.begin(), keys.end());
    std::string line = name;
    for (const std::string &key : keys)
        line += (&key == &keys.front() ? '(' : ' ') + key;
    return line + ", 0)";
}

inline ksEvents added(const std::string &text, int index, const ksKeys &keys = {})
{
    return {"redoPerformed(" + text + ", true)", message("ksURManager::redo", true, keys, index, text)};
}

inline ksEvents redone(const std::string &text, int index, const ksKeys &keys = {})
{
    return {"redoPerformed(" + text + ", false)", message("ksURManager::redo", false, keys, index, text)};
}

inline ksEvents undone(const std::string &text, int index, const ksKeys &keys = {})
{
    return {"undoPerformed(" + text + ")", message("ksURManager::undo", false, keys, index, text)};
}

} // namespace ksStep

/// Records everything that one stack announces, signals and messages in one list. One recorder at a time: the
/// stack's callback is a plain function.
class ksStackRecorder
{
public:
    explicit ksStackRecorder(ksUndoStack &stack)
        : stack(stack)
    {
        current = this;
        QObject::connect(
            &stack, &ksUndoStack::redoPerformed, &receiver, [this](const QUndoCommand *command, bool added) {
                events.push_back("redoPerformed(" + nameOf(command) + (added ? ", true)" : ", false)"));
            });
        QObject::connect(&stack, &ksUndoStack::undoPerformed, &receiver, [this](const QUndoCommand *command) {
            events.push_back("undoPerformed(" + nameOf(command) + ')');
        });
        QObject::connect(&stack, &ksUndoStack::cleared, &receiver, [this] { events.push_back("cleared()"); });
        stack.setMessageCallback(&receive);
    }
    ~ksStackRecorder() { stack.setMessageCallback(nullptr); }
    Q_DISABLE_COPY(ksStackRecorder)

    /// The events since the last call.
    ksEvents take() { return std::exchange(events, {}); }

private:
    static std::string nameOf(const QUndoCommand *command)
    {
        return command == nullptr ? "null" : command->text().toStdString();
    }

    static bool receive(const char *name, ksMessage &message, int option)
    {
        current->events.push_back(std::string(name) + '(' + ksDescribe(message) + ", " +
                                  std::to_string(option) + ')');
        return false;
    }

    static inline ksStackRecorder *current = nullptr;
    ksUndoStack &stack;
    QObject receiver;
    ksEvents events;
};
