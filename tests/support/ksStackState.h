// SPDX-License-Identifier: MIT
#pragma once

#include <ksundo/core/ksUndoStack.h>

#include <QString>
#include <QUndoCommand>

#include <ostream>
#include <string>
#include <tuple>
#include <vector>

/// All that a stack tells about itself, to be compared as a whole.
struct ksStackState
{
    int count = 0;
    int index = 0;
    bool empty = true;
    bool undoable = false;
    bool redoable = false;
    bool clean = true;
    std::string current;
    std::string undoText;
    std::string redoText;
    int busyDepth = 0;

    auto tied() const
    {
        return std::tie(count, index, empty, undoable, redoable, clean, current, undoText, redoText,
                        busyDepth);
    }
    bool operator==(const ksStackState &other) const { return tied() == other.tied(); }

    friend std::ostream &operator<<(std::ostream &out, const ksStackState &state)
    {
        return out << "count " << state.count << ", index " << state.index << ", empty " << state.empty
                   << ", undoable " << state.undoable << ", redoable " << state.redoable << ", clean "
                   << state.clean << ", current '" << state.current << "', undo '" << state.undoText
                   << "', redo '" << state.redoText << "', busy " << state.busyDepth;
    }
};

/// What \a stack tells now.
inline ksStackState ksStateOf(const ksUndoStack &stack)
{
    const QUndoCommand *command = stack.currentCommand();
    return {stack.count(),
            stack.index(),
            stack.isEmpty(),
            stack.canUndo(),
            stack.canRedo(),
            stack.isClean(),
            command == nullptr ? std::string() : command->text().toStdString(),
            stack.undoText().toStdString(),
            stack.redoText().toStdString(),
            stack.getBusyDepth()};
}

/// The state of an idle stack that holds the commands \a texts, of which the first \a index are done.
inline ksStackState ksHolding(const std::vector<std::string> &texts, int index, bool clean = false)
{
    ksStackState state;
    state.count = static_cast<int>(texts.size());
    state.index = index;
    state.empty = texts.empty();
    state.undoable = index > 0;
    state.redoable = index < state.count;
    state.clean = clean;
    if (state.undoable)
        state.current = state.undoText = texts[static_cast<std::size_t>(index) - 1];
    if (state.redoable)
        state.redoText = texts[static_cast<std::size_t>(index)];
    return state;
}
