// SPDX-License-Identifier: MIT
#pragma once

#include "ksPlainCommand.h"

#include <memory>
#include <string>
#include <tuple>
#include <vector>

namespace ksPlain {

/// What a stack tells of itself.
struct StackState
{
    int count = 0;
    int index = 0;
    int limit = 0;
    int busyDepth = 0;
    bool isEmpty = true;
    bool canUndo = false;
    bool canRedo = false;
    bool isClean = true;
    std::string undoText;
    std::string redoText;
    std::string current;

    auto tied() const
    {
        return std::tie(count, index, limit, busyDepth, isEmpty, canUndo, canRedo, isClean, undoText,
                        redoText, current);
    }
    bool operator==(const StackState &other) const { return tied() == other.tied(); }
};

/// What a stack of commands is required to be.
class Stack
{
public:
    Stack(Workshop &workshop, const std::string &name)
        : workshop(workshop)
        , name(name)
    {}

    void add(std::unique_ptr<Command> command);
    void undo();
    void redo();
    void mark() { marked = index; }
    void reset();
    void setClean();
    void clear();
    void forgetUndone();
    void beginMacro(const std::string &text);
    void endMacro();
    void beginGesture();
    void endGesture();
    void takeBackGesture();
    void setLimit(int newLimit);

    /// Tells the command that undo() would take back anew what Workshop::retell() says.
    void retell(int number);

    StackState state() const;
    const std::vector<std::unique_ptr<Command>> &history() const { return commands; }
    bool isInGesture() const { return openGestures > 0; }

    /// Which function receives the messages, 0 for none.
    int receiver = 1;

private:
    int count() const { return static_cast<int>(commands.size()); }
    Command &at(int place) { return *commands[static_cast<std::size_t>(place)]; }
    std::string textAt(int place) const
    {
        return place < 0 || place >= count() ? std::string()
                                             : commands[static_cast<std::size_t>(place)]->text;
    }

    /// Notes that Qt warns, while a macro is open, of what is not done then.
    bool isRefused(const std::string &warning);

    void drop(std::size_t place);
    void dropUndone();
    void finishStep();
    void goTo(int place);
    /// Tells of a step, to receivers who find the stack busy but when it is cleared.
    void announce(bool isUndo, bool isBusy = true);

    Workshop &workshop;
    std::string name;
    std::vector<std::unique_ptr<Command>> commands;
    std::vector<Command *> macros;
    int index = 0;
    int limit = 0;
    int clean = 0;
    int marked = 0;
    bool isAddition = false;
    int openGestures = 0;
    unsigned gesture = 0;
};

} // namespace ksPlain
