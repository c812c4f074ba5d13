// SPDX-License-Identifier: MIT
#pragma once

#include "ksCommandRequest.h"
#include "ksLiveStacks.h"
#include "ksPlainStack.h"

#include <QtGlobal>

#include <array>
#include <memory>
#include <string>
#include <utility>
#include <vector>

/// A session of a user on a scene with two stacks: the library's, and a plain description of what it must be.
/// After each operation both are compared, and what differs is thrown as std::runtime_error.
///
/// Stacks are 0 and 1; places are those of ksPlain::Scene; a receiver of messages and a sync function are
/// 1 or 2, or 0 for none.
class ksSession
{
public:
    ksSession();
    ~ksSession();
    Q_DISABLE_COPY(ksSession)

    void push(int stack, const ksCommandRequest &request);
    void undo(int stack);
    void redo(int stack);
    void mark(int stack);
    void reset(int stack);
    void setClean(int stack);
    void clear(int stack);
    void forgetUndone(int stack);
    void beginMacro(int stack);
    void endMacro(int stack);
    void beginGesture(int stack);
    void endGesture(int stack);
    void takeBackGesture(int stack);
    void setLimit(int stack, int limit);

    /// Tells the command that undo() would take back anew about merging and whom to notify.
    void retell(int stack, int number);
    void receive(int stack, int receiver);

    /// Builds a command to be pushed later, and destroys the one that still was to be.
    void build(const ksCommandRequest &request);
    void pushBuilt(int stack);

    void sync(const std::string &className, int function);
    void tick(int milliseconds);

    void make(int place);
    void drop(int place);
    void attach(int place);
    void detach(int place);

    /// Destroys what was to be pushed, clears both stacks, takes all places away, and looks for what is left.
    void end();

private:
    ksPlain::Stack &plainStack(int which) { return plainStacks[static_cast<std::size_t>(which)]; }
    void compare();
    /// A command and what it is to be, both null where there is none.
    struct Built
    {
        std::unique_ptr<ksPlain::Command> plain{};
        std::unique_ptr<QUndoCommand> live{};
    };
    Built built(const ksCommandRequest &request);
    void add(int stack, Built command);
    void discardKept();

    ksPlain::Workshop workshop;
    std::array<ksPlain::Stack, 2> plainStacks{{{workshop, "0"}, {workshop, "1"}}};
    ksLiveStacks live{workshop.scene};
    Built kept;
};
