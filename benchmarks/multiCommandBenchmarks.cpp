// SPDX-License-Identifier: MIT
#include "Fixtures.h"
#include "Meter.h"
#include "Topics.h"

namespace {

constexpr int childCount = 10'000;

template <class Edits>
void pushMulti(Edits &edits, const MaterialScene &scene)
{
    QUndoCommand *multi = Edits::makeMultiCommand();
    for (int i = 0; i < childCount; ++i)
        Edits::makeCommand(scene.target(i), static_cast<float>(i), multi);
    edits.push(multi);
}

template <class Edits>
void push(Meter &meter)
{
    const MaterialScene scene(childCount);
    Edits edits;
    pushMulti(edits, scene);
    // Keeps the next one from merging.
    edits.push(Edits::makeCommand(scene.target(0), 0.0F));
    meter.measure(
        1, [&](int) { pushMulti(edits, scene); }, childCount);
    meter.require(edits.count() == 3, "the multi-command merged");
}

template <class Edits>
void undo(Meter &meter)
{
    const MaterialScene scene(childCount);
    Edits edits;
    pushMulti(edits, scene);
    edits.undo();
    edits.redo();
    meter.measure(
        1, [&](int) { edits.undo(); }, childCount);
    meter.require(edits.index() == 0, "the multi-command was not undone");
}

} // namespace

void addMultiCommandBenchmarks()
{
    addCase("multi-command/push", push<ByLibrary>, push<ByHand>);
    addCase("multi-command/undo", undo<ByLibrary>, undo<ByHand>);
}
