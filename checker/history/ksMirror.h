// SPDX-License-Identifier: MIT
#pragma once

#include <condition_variable>
#include <functional>
#include <mutex>
#include <thread>

/// What a renderer of the scene would see: aspect 1, in a thread of its own, which learns of edits only from
/// the application thread's change list.
///
/// To be used by the application thread. It waits while the mirror's thread works, so that the two never
/// touch the scene at the same time.
class ksMirror
{
public:
    /// Starts the thread.
    ksMirror();

    /// Ends the thread. Aspect 1 stays as it is.
    ~ksMirror();
    ksMirror(const ksMirror &) = delete;
    ksMirror &operator=(const ksMirror &) = delete;

    /// Carries everything that the application thread has recorded over to aspect 1 and empties its change
    /// list, then calls \a look as run() does.
    void update(const std::function<void()> &look = [] {});

    /// Calls \a work in the mirror's thread, where handles lead to aspect 1, and waits for its end. \a work
    /// must not throw.
    void run(const std::function<void()> &work);

private:
    void loop();

    std::mutex mutex;
    std::condition_variable changed;
    const std::function<void()> *work = nullptr;
    bool ending = false;
    std::thread thread;
};
