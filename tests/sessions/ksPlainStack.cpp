// SPDX-License-Identifier: MIT
#include "ksPlainStack.h"

#include <algorithm>
#include <utility>

namespace ksPlain {

namespace {

bool isSingle(const Command &command)
{
    return command.type->mechanics != Mechanics::plain && command.type->mechanics != Mechanics::composite;
}

void join(Command &command, unsigned gesture)
{
    if (isSingle(command))
        command.gesture = gesture;
    for (const auto &part : command.parts)
        join(*part, gesture);
}

bool isOf(const Command &command, unsigned gesture)
{
    return (isSingle(command) && command.gesture == gesture) ||
           std::any_of(command.parts.begin(), command.parts.end(),
                       [gesture](const auto &part) { return isOf(*part, gesture); });
}

} // namespace

bool Stack::isRefused(const std::string &warning)
{
    if (macros.empty())
        return false;
    workshop.events.push_back("QUndoStack::" + warning + " in the middle of a macro");
    return true;
}

void Stack::drop(std::size_t place)
{
    const auto entry = commands.begin() + static_cast<std::ptrdiff_t>(place);
    workshop.destroy(**entry);
    commands.erase(entry);
}

void Stack::dropUndone()
{
    while (index < count())
        drop(commands.size() - 1);
    if (clean > index)
        clean = -1;
}

void Stack::announce(bool isUndo, bool isBusy)
{
    const int place = isUndo ? index : index - 1;
    const std::string added = std::exchange(isAddition, false) && !isUndo ? "1" : "0";
    const bool exists = place >= 0 && place < count();
    const std::string text = exists ? textAt(place) : "null";
    workshop.events.push_back(name + (isBusy ? " busy 1" : " busy 0") +
                              (isUndo ? " undone " + text : " redone " + text + ' ' + added));
    if (!exists || receiver == 0)
        return;
    auto keys = Workshop::keysOf(at(place));
    keys["index"] = "int:" + std::to_string(place);
    keys["added"] = "bool:" + added;
    keys["text"] = text;
    std::string line = name + " busy 1 message" + std::to_string(receiver) +
                       (isUndo ? " ksURManager::undo 0" : " ksURManager::redo 0");
    for (const auto &[key, value] : keys)
        line += ' ' + key + '=' + value;
    workshop.events.push_back(line);
}

void Stack::finishStep()
{
    if (limit > 0)
        while (count() > limit) {
            drop(0);
            --index;
            clean = std::max(clean - 1, -1);
        }
    ++index;
    announce(false);
}

void Stack::add(std::unique_ptr<Command> command)
{
    if (openGestures > 0)
        join(*command, gesture);
    isAddition = true;
    workshop.redo(*command);
    if (!macros.empty()) {
        auto &parts = macros.back()->parts;
        if (!parts.empty() && Workshop::merge(*parts.back(), *command))
            workshop.destroy(*command);
        else
            parts.push_back(std::move(command));
        return;
    }
    dropUndone();
    if (index > 0 && index != clean && Workshop::merge(at(index - 1), *command)) {
        workshop.destroy(*command);
        announce(false);
    } else {
        commands.push_back(std::move(command));
        finishStep();
    }
}

void Stack::goTo(int place)
{
    const int before = index;
    for (; index < place; ++index)
        workshop.redo(at(index));
    for (; index > place; --index)
        workshop.undo(at(index - 1));
    if (index != before)
        announce(index < before);
}

void Stack::undo()
{
    if (index > 0 && !isRefused("undo(): cannot undo"))
        goTo(index - 1);
}

void Stack::redo()
{
    if (index < count() && !isRefused("redo(): cannot redo"))
        goTo(index + 1);
}

void Stack::reset()
{
    if (!isRefused("setIndex(): cannot set index"))
        goTo(std::min(marked, count()));
}

void Stack::setClean()
{
    if (isRefused("setClean(): cannot set clean"))
        return;
    clean = index;
    if (openGestures > 0)
        ++gesture;
}

void Stack::clear()
{
    const bool wasEmpty = commands.empty();
    const bool isUndo = index > 0;
    for (const auto &command : commands)
        workshop.destroy(*command);
    commands.clear();
    macros.clear();
    index = 0;
    clean = 0;
    if (!wasEmpty)
        announce(isUndo, false);
    marked = 0;
    isAddition = false;
    workshop.events.push_back(name + " cleared");
}

void Stack::forgetUndone()
{
    if (macros.empty())
        dropUndone();
}

void Stack::beginMacro(const std::string &text)
{
    auto macro = std::make_unique<Command>();
    macro->type = &classOf("QUndoCommand");
    macro->text = text;
    Command *const opened = macro.get();
    if (macros.empty()) {
        dropUndone();
        commands.push_back(std::move(macro));
    } else {
        macros.back()->parts.push_back(std::move(macro));
    }
    macros.push_back(opened);
}

void Stack::endMacro()
{
    isAddition = true;
    if (macros.empty()) {
        workshop.events.push_back("QUndoStack::endMacro(): no matching beginMacro()");
        return;
    }
    macros.pop_back();
    if (macros.empty())
        finishStep();
}

void Stack::beginGesture()
{
    if (openGestures++ == 0)
        ++gesture;
}

void Stack::endGesture()
{
    openGestures = std::max(openGestures - 1, 0);
}

void Stack::takeBackGesture()
{
    while (openGestures > 0 && macros.empty() && index > 0 && isOf(at(index - 1), gesture)) {
        goTo(index - 1);
        dropUndone();
    }
}

/// Of a stack with commands Qt warns.
void Stack::setLimit(int newLimit)
{
    if (count() > 0)
        workshop.events.push_back(
            "QUndoStack::setUndoLimit(): an undo limit can only be set when the stack is empty");
    else
        limit = newLimit;
}

void Stack::retell(int number)
{
    if (index > 0)
        Workshop::retell(at(index - 1), number);
}

StackState Stack::state() const
{
    StackState state;
    state.count = count();
    state.index = index;
    state.limit = limit;
    state.isEmpty = commands.empty();
    state.canUndo = macros.empty() && index > 0;
    state.canRedo = macros.empty() && index < count();
    state.isClean = macros.empty() && index == clean;
    if (state.canUndo)
        state.undoText = textAt(index - 1);
    if (state.canRedo)
        state.redoText = textAt(index);
    state.current = textAt(index - 1);
    return state;
}

} // namespace ksPlain
