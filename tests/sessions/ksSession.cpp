// SPDX-License-Identifier: MIT
#include "ksSession.h"

#include <QString>

#include <algorithm>
#include <sstream>
#include <stdexcept>

namespace {

using Edits = ksLiveScene::Edits;

/// Without fields that there are not, of containers that live.
Edits normalised(const Edits &edits, const ksPlain::Scene &scene)
{
    Edits result;
    for (const auto &[id, fields] : edits) {
        const std::size_t count = ksPlain::fieldsOf(scene.kindOf(id)).size();
        const unsigned present = fields & (ksPlain::bit(static_cast<int>(count)) - 1);
        if (present != 0 && scene.lives(id))
            result.emplace_back(id, present);
    }
    return result;
}

std::string textOf(const Edits &edits)
{
    std::ostringstream text;
    for (const auto &[id, fields] : edits)
        text << ' ' << id << "/0x" << std::hex << fields << std::dec;
    return text.str();
}

std::string textOf(const ksPlain::Events &events)
{
    std::string text;
    for (const std::string &event : events)
        text += "\n    " + event;
    return text;
}

std::string textOf(const ksPlain::StackState &state)
{
    std::ostringstream text;
    text << "count " << state.count << ", index " << state.index << ", limit " << state.limit << ", busy "
         << state.busyDepth << ", empty " << state.isEmpty << ", undo " << state.canUndo << " '"
         << state.undoText << "', redo " << state.canRedo << " '" << state.redoText << "', clean "
         << state.isClean << ", current '" << state.current << '\'';
    return text.str();
}

template <class T>
void expectEqual(const char *what, const T &actual, const T &expected)
{
    if (!(actual == expected))
        throw std::runtime_error(std::string(what) + ": " + textOf(actual) + "\n  instead of " +
                                 textOf(expected));
}

void expectNothing(const std::string &what, const std::string &difference)
{
    if (!difference.empty())
        throw std::runtime_error(what + ": " + difference);
}

} // namespace

ksSession::ksSession()
{
    compare();
}

ksSession::~ksSession()
{
    for (const int stack : {0, 1})
        for (; plainStack(stack).isInGesture(); plainStack(stack).endGesture())
            live[stack].endGesture();
}

void ksSession::compare()
{
    expectEqual("events", live.events, workshop.events);
    live.events.clear();
    workshop.events.clear();
    const Edits edits = normalised(workshop.scene.records, workshop.scene);
    expectEqual("edits", live.scene.recordedEdits(), edits);
    expectEqual("change handlers", live.scene.takeHandledEdits(), edits);
    workshop.scene.sync();
    live.scene.sync();
    expectNothing("scene", live.scene.difference());
    for (const int stack : {0, 1}) {
        expectEqual("stack", live.stateOf(stack), plainStack(stack).state());
        expectNothing("history", live.historyDifference(stack, plainStack(stack)));
    }
}

ksSession::Built ksSession::built(const ksCommandRequest &request)
{
    Built command;
    command.plain = workshop.build(request, "Edit " + std::to_string(request.value));
    if (command.plain != nullptr)
        command.live = live.build(*command.plain);
    return command;
}

void ksSession::add(int stack, Built command)
{
    if (command.plain != nullptr) {
        plainStack(stack).add(std::move(command.plain));
        live[stack].add(command.live.release());
    }
    compare();
}

void ksSession::discardKept()
{
    if (kept.plain != nullptr)
        workshop.destroy(*kept.plain);
    kept = {};
}

void ksSession::push(int stack, const ksCommandRequest &request)
{
    add(stack, built(request));
}

void ksSession::build(const ksCommandRequest &request)
{
    discardKept();
    kept = built(request);
    compare();
}

void ksSession::pushBuilt(int stack)
{
    add(stack, std::exchange(kept, {}));
}

#define KS_SESSION_OPERATION(operation)  \
    void ksSession::operation(int stack) \
    {                                    \
        plainStack(stack).operation();   \
        live[stack].operation();         \
        compare();                       \
    }
KS_SESSION_OPERATION(undo)
KS_SESSION_OPERATION(redo)
KS_SESSION_OPERATION(mark)
KS_SESSION_OPERATION(reset)
KS_SESSION_OPERATION(setClean)
KS_SESSION_OPERATION(clear)
KS_SESSION_OPERATION(endMacro)
KS_SESSION_OPERATION(beginGesture)
KS_SESSION_OPERATION(endGesture)
KS_SESSION_OPERATION(takeBackGesture)
#undef KS_SESSION_OPERATION

void ksSession::forgetUndone(int stack)
{
    plainStack(stack).forgetUndone();
    live[stack].forgetUndone();
    compare();
}

void ksSession::beginMacro(int stack)
{
    plainStack(stack).beginMacro("Macro");
    live[stack].beginMacro(QStringLiteral("Macro"));
    compare();
}

void ksSession::setLimit(int stack, int limit)
{
    plainStack(stack).setLimit(limit);
    live[stack].setUndoLimit(limit);
    compare();
}

void ksSession::retell(int stack, int number)
{
    plainStack(stack).retell(number);
    live.retell(stack, plainStack(stack));
    compare();
}

void ksSession::receive(int stack, int receiver)
{
    plainStack(stack).receiver = receiver;
    live.setReceiver(stack, receiver);
    compare();
}

void ksSession::sync(const std::string &className, int function)
{
    workshop.syncs[className] = function;
    live.setSync(className, function);
    compare();
}

void ksSession::tick(int milliseconds)
{
    workshop.now += milliseconds / 1000.0;
    compare();
}

void ksSession::make(int place)
{
    live.scene.make(static_cast<std::size_t>(place));
    workshop.scene.make(static_cast<std::size_t>(place));
    compare();
}

void ksSession::drop(int place)
{
    live.scene.drop(static_cast<std::size_t>(place));
    workshop.scene.drop(static_cast<std::size_t>(place));
    compare();
}

void ksSession::attach(int place)
{
    live.scene.attach(static_cast<std::size_t>(place));
    workshop.scene.attach(static_cast<std::size_t>(place));
    compare();
}

void ksSession::detach(int place)
{
    live.scene.detach(static_cast<std::size_t>(place));
    workshop.scene.detach(static_cast<std::size_t>(place));
    compare();
}

void ksSession::end()
{
    discardKept();
    for (const int stack : {0, 1})
        clear(stack);
    for (std::size_t place = workshop.scene.places.size(); place-- > 0;)
        drop(static_cast<int>(place));
    const auto &containers = workshop.scene.containers;
    const auto left = std::count_if(containers.begin(), containers.end(),
                                    [](const ksPlain::Container &container) { return container.lives; });
    // The root and its core.
    expectNothing("end", left == 2 ? std::string() : std::to_string(left) + " containers are left");
}
