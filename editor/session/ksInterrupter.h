// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <functional>
#include <mutex>
#include <thread>

/// Ends work that takes too long, takes too much, or is wanted no more: as long as it lives, SIGINT and
/// SIGTERM do not end the process. The second signal does. There may be one at a time.
class ksInterrupter
{
public:
    /// Calls \a interrupt, in a thread of its own, at most once: at a signal, after \a seconds unless that is
    /// 0, or when the process has more than \a bytes of memory in use.
    ksInterrupter(double seconds, qint64 bytes, std::function<void()> interrupt);
    ~ksInterrupter();
    ksInterrupter(const ksInterrupter &) = delete;
    ksInterrupter &operator=(const ksInterrupter &) = delete;

    /// Why it has called; empty when it has not.
    QString reason() const;

private:
    void watch();

    const double timeLimit;
    const qint64 memoryLimit;
    const std::function<void()> call;
    mutable std::mutex mutex;
    QString found;
    std::thread thread;
};
