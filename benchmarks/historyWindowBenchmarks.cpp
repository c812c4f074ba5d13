// SPDX-License-Identifier: MIT
#include "Fixtures.h"
#include "Meter.h"
#include "Topics.h"

#include <QCoreApplication>

namespace {

constexpr int rowCount = 50'000;

/// One step and everything that the window does because of it.
template <class Edits>
void undo(Meter &meter)
{
    const MaterialScene scene(2);
    Edits edits;
    for (int i = 0; i < rowCount; ++i)
        edits.push(Edits::makeCommand(scene.target(i), static_cast<float>(i)));
    edits.showHistory();
    const auto step = [&edits](int) {
        edits.undo();
        QCoreApplication::processEvents();
    };
    step(0);
    meter.measure(2, step);
    meter.require(edits.index() == rowCount - 3, "a step was not undone");
}

} // namespace

void addHistoryWindowBenchmarks()
{
    addCase("history window/undo", undo<ByLibrary>, undo<ByHand>);
}
