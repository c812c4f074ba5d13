// SPDX-License-Identifier: MIT
#include "Fixtures.h"
#include "Meter.h"
#include "Topics.h"

#include <QApplication>
#include <QWidget>

namespace {

/// What happens to the history under its window.
enum class Event
{
    undo,
    push,
    merge
};

/// Whether there is a window, and whether it is shown.
enum class Window
{
    none,
    shown,
    closed
};

/// Some steps and everything that the window does because of them.
template <class Edits>
void stepUnder(Meter &meter, int rows, Window window, Event event)
{
    const MaterialScene scene(3);
    Edits edits;
    for (int i = 0; i < rows; ++i)
        edits.push(Edits::makeCommand(scene.target(i % 2), static_cast<float>(i)));
    if (window != Window::none)
        edits.showHistory();
    QCoreApplication::processEvents();
    if (window == Window::closed)
        QApplication::closeAllWindows();
    const auto step = [&](int i) {
        if (event == Event::undo)
            edits.undo();
        else if (event == Event::push)
            edits.push(Edits::makeCommand(scene.target(i % 2), static_cast<float>(i)));
        else
            edits.push(Edits::makeMergingCommand(scene.target(2), static_cast<float>(i)));
        QCoreApplication::processEvents();
    };
    step(0);
    step(1);
    constexpr int steps = 10;
    meter.measure(steps, step);
    const int added = event == Event::undo ? 0 : event == Event::merge ? 1 : steps + 2;
    meter.require(edits.count() == rows + added, "a step is missing");
}

} // namespace

void addHistoryWindowBenchmarks()
{
    const auto add = [](const std::string &name, int rows, Window window, Event event) {
        addCase("history window/" + name,
                [=](Meter &meter) { stepUnder<ByLibrary>(meter, rows, window, event); });
    };
    for (const int rows : {1'000, 10'000, 50'000}) {
        const std::string prefix = std::to_string(rows);
        add(prefix + "/undo", rows, Window::shown, Event::undo);
        add(prefix + "/merge", rows, Window::shown, Event::merge);
        add(prefix + "/push", rows, Window::shown, Event::push);
    }
    add("none/push", 1'000, Window::none, Event::push);
    add("closed/push", 1'000, Window::closed, Event::push);
    addCase("history window/10000/stock view, undo", {},
            [](Meter &meter) { stepUnder<ByHand>(meter, 10'000, Window::shown, Event::undo); });
}
