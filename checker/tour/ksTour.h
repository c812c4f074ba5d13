// SPDX-License-Identifier: MIT
#pragma once

class ksCheckedHistory;

/// A session that works on any scene: edits of every kind that the library has, on several containers each,
/// then all the way back, forth and back again. What the scene lacks for that is added first.
class ksTour
{
public:
    /// \a checkedHistory must outlive the tour.
    explicit ksTour(ksCheckedHistory &checkedHistory);

    /// Runs the tour. The scene ends as it was, and every command is undone. A command class of the library
    /// that has not appeared by then counts as a difference.
    void run();

private:
    void walkHistory();

    ksCheckedHistory &history;
};
