// SPDX-License-Identifier: MIT
#pragma once

#include <QElapsedTimer>
#include <QString>

#include <functional>
#include <mutex>
#include <thread>

/// Ends work that takes too long, takes too much, or is wanted no more: as long as it lives, SIGINT and
/// SIGTERM do not end the process, unless they were ignored before. The second signal does. There may be one
/// at a time.
class ksInterrupter
{
public:
    ksInterrupter();
    ~ksInterrupter();
    ksInterrupter(const ksInterrupter &) = delete;
    ksInterrupter &operator=(const ksInterrupter &) = delete;

    /// From now on calls \a interrupt, in a thread of its own, at most once: at a signal, also at one that
    /// has come before, after \a seconds unless that is 0, or when the process has more than \a bytes of
    /// memory in use. When the work does not heed that for a while, or takes much more memory still, calls
    /// \a force with the reason, which must end the process, unless it is empty.
    void start(double seconds, qint64 bytes, std::function<void()> interrupt,
               std::function<void(const QString &reason)> force = {});

    /// The reason when it is the time, of \a seconds.
    static QString reasonAfter(double seconds);

    /// Calls no more, once this returns.
    void stop();

    /// Why the work is to end: a signal, whenever it came, or a limit. Empty when it is not.
    QString reason() const;

private:
    void watch();

    /// Why it is to end now; empty when it is not.
    QString limitReached() const;

    /// Whether the work, which was told to end, goes on for too long.
    bool isUnheeded() const;

    /// Guards what follows.
    mutable std::mutex mutex;
    QString found;
    std::function<void()> call;
    std::function<void(const QString &reason)> endByForce;
    QElapsedTimer timer;

    /// How long ago the work was told to end.
    QElapsedTimer told;
    double timeLimit = 0;
    qint64 memoryLimit = 0;

    std::thread thread;
};
