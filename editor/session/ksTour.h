// SPDX-License-Identifier: MIT
#pragma once

class ksCheckedHistory;

/// A session that works on any scene: edits of every kind that the library has, on several containers each,
/// then all the way back, forth and back again.
class ksTour
{
public:
    /// \a checkedHistory must outlive the tour.
    explicit ksTour(ksCheckedHistory &checkedHistory);

    /// Runs the tour. The scene ends as it was, and every command is undone.
    void run();

private:
    void walkHistory();

    ksCheckedHistory &history;
};
