// SPDX-License-Identifier: MIT
#include "Fixtures.h"
#include "Meter.h"
#include "Topics.h"

namespace {

int received = 0;

bool receive(const char *, ksMessage &, int)
{
    ++received;
    return true;
}

template <class Edits>
void deliver(Meter &meter)
{
    const MaterialScene scene(1);
    Edits edits;
    edits.setMessageCallback(receive);
    edits.push(Edits::makeCommand(scene.target(0), 1.0F));
    received = 0;
    meter.measure(stepCount, [&edits](int) { edits.sendMessage(); });
    meter.require(received == stepCount, "a message is missing");
}

template <class Edits>
void deliverToNobody(Meter &meter)
{
    const MaterialScene scene(1);
    Edits edits;
    edits.push(Edits::makeCommand(scene.target(0), 1.0F));
    meter.measure(stepCount, [&edits](int) { edits.sendMessage(); });
}

/// A step that the callback hears of, by a command that says nothing about itself.
template <class Edits>
void toldStep(Meter &meter)
{
    Edits edits;
    edits.setMessageCallback(receive);
    edits.push(new QUndoCommand(QStringLiteral("Move 'Table'")));
    received = 0;
    meter.measure(stepCount, [&edits](int i) { i % 2 == 0 ? edits.undo() : edits.redo(); });
    meter.require(received == stepCount, "a message is missing");
}

/// The same that nobody hears of.
template <class Edits>
void untoldStep(Meter &meter)
{
    Edits edits;
    edits.push(new QUndoCommand(QStringLiteral("Move 'Table'")));
    meter.measure(stepCount, [&edits](int i) { i % 2 == 0 ? edits.undo() : edits.redo(); });
}

/// The events of one drag: the first one adds a command, the others merge into it.
template <class Edits>
void drag(Meter &meter)
{
    const MaterialScene scene(2);
    Edits edits;
    edits.setMessageCallback(receive);
    const auto event = [&](int material) {
        return [&edits, &scene, material](int i) {
            edits.push(Edits::makeMergingCommand(scene.target(material), static_cast<float>(i)));
        };
    };
    event(0)(0);
    event(0)(1);
    received = 0;
    meter.measure(stepCount, event(1));
    meter.require(edits.count() == 2, "the events did not merge");
    meter.require(received == stepCount, "a message is missing");
}

} // namespace

void addMessageBenchmarks()
{
    addCase("message/to a callback", deliver<ByLibrary>, deliver<ByHand>);
    addCase("message/to nobody", deliverToNobody<ByLibrary>, deliverToNobody<ByHand>);
    addCase("message/step", toldStep<ByLibrary>, toldStep<ByHand>);
    addCase("message/step without", untoldStep<ByLibrary>, untoldStep<ByHand>);
    addCase("message/drag event", drag<ByLibrary>, drag<ByHand>);
}
