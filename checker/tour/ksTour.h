// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

class ksCheckedHistory;

/// A session that works on any scene: edits of every kind that the library has, on several containers each,
/// then all the way back, forth and back again. What the scene lacks for that is added first.
class ksTour
{
public:
    /// \a checkedHistory must outlive the tour. \a goOn is called before each step; what it throws ends the
    /// tour.
    explicit ksTour(
        ksCheckedHistory &checkedHistory, std::function<void()> goOn = [] {});

    /// Runs the tour. The scene ends as it was, and every command is undone, also when the tour is ended
    /// before. A command class of the library that has not appeared by its end counts as a difference.
    void run();

private:
    void begin(const char *part);
    void walkHistory();

    ksCheckedHistory &history;
    const std::function<void()> mayGoOn;
};
