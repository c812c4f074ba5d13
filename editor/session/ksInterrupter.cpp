// SPDX-License-Identifier: MIT
#include <editor/ksEditorError.h>
#include <editor/session/ksInterrupter.h>
#include <editor/session/ksMemory.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <poll.h>
#include <unistd.h>
#include <utility>

namespace {

constexpr int MillisecondsBetweenLooks = 20;

/// What work may still take that was told to end, which it looks at now and then only: some time, and this
/// share of its memory.
constexpr qint64 MillisecondsToEnd = 10000;
constexpr qint64 ShareToEnd = 4;
constexpr qint64 MostToEnd = qint64(512) << 20U;

constexpr std::array Signals = {SIGINT, SIGTERM};

/// What a signal handler may do is write a byte into a pipe, whose ends these are.
std::array<int, 2> pipeEnds = {-1, -1};

constexpr char Signalled = 's';
constexpr char Ended = 'e';

void notice(char what)
{
    const ssize_t written = write(pipeEnds[1], &what, 1);
    static_cast<void>(written);
}

/// Whether a signal has come.
std::atomic<bool> isSignalled = false;

/// What was done at each of them before.
std::array<struct sigaction, Signals.size()> previousActions;

/// Whether it is ignored then, which it stays.
bool isIgnored(std::size_t signal)
{
    return previousActions[signal].sa_handler == SIG_IGN;
}

/// The next signal, whichever it is, ends the process.
void handleSignal(int)
{
    const int error = errno;
    for (std::size_t i = 0; i < Signals.size(); ++i)
        if (!isIgnored(i))
            std::signal(Signals[i], SIG_DFL);
    isSignalled = true;
    notice(Signalled);
    errno = error;
}

/// Why the work is to end; empty when no signal has come.
QString signalReason()
{
    return isSignalled ? QStringLiteral("interrupted") : QString();
}

} // namespace

ksInterrupter::ksInterrupter()
{
    isSignalled = false;
    if (pipe2(pipeEnds.data(), O_CLOEXEC | O_NONBLOCK) != 0)
        throw ksEditorError("the process has no file descriptors left");
    struct sigaction action = {};
    action.sa_handler = &handleSignal;
    action.sa_flags = SA_RESTART;
    for (std::size_t i = 0; i < Signals.size(); ++i) {
        sigaction(Signals[i], &action, &previousActions[i]);
        if (isIgnored(i))
            sigaction(Signals[i], &previousActions[i], nullptr);
    }
    thread = std::thread(&ksInterrupter::watch, this);
}

ksInterrupter::~ksInterrupter()
{
    for (std::size_t i = 0; i < Signals.size(); ++i)
        sigaction(Signals[i], &previousActions[i], nullptr);
    notice(Ended);
    thread.join();
    for (int &end : pipeEnds)
        close(std::exchange(end, -1));
}

QString ksInterrupter::reason() const
{
    const std::lock_guard<std::mutex> lock(mutex);
    return found.isEmpty() ? signalReason() : found;
}

void ksInterrupter::start(double seconds, qint64 bytes, std::function<void()> interrupt,
                          std::function<void(const QString &reason)> force)
{
    const std::lock_guard<std::mutex> lock(mutex);
    timer.start();
    told.invalidate();
    timeLimit = seconds;
    memoryLimit = bytes;
    call = std::move(interrupt);
    endByForce = std::move(force);
}

QString ksInterrupter::reasonAfter(double seconds)
{
    return QStringLiteral("ended after %1 seconds").arg(seconds);
}

void ksInterrupter::stop()
{
    const std::lock_guard<std::mutex> lock(mutex);
    call = nullptr;
    endByForce = nullptr;
}

QString ksInterrupter::limitReached() const
{
    if (timeLimit > 0 && static_cast<double>(timer.elapsed()) >= timeLimit * 1000)
        return reasonAfter(timeLimit);
    return ksMemory::used() > memoryLimit ? QStringLiteral("out of memory") : QString();
}

bool ksInterrupter::isUnheeded() const
{
    return told.isValid() && (told.elapsed() > MillisecondsToEnd ||
                              ksMemory::used() - memoryLimit > std::min(memoryLimit / ShareToEnd, MostToEnd));
}

void ksInterrupter::watch()
{
    while (true) {
        pollfd waiting = {pipeEnds[0], POLLIN, 0};
        poll(&waiting, 1, MillisecondsBetweenLooks);
        char what = 0;
        if (read(pipeEnds[0], &what, 1) == 1 && what == Ended)
            return;
        const std::lock_guard<std::mutex> lock(mutex);
        if (found.isEmpty())
            found = signalReason();
        if (found.isEmpty() && call)
            found = limitReached();
        if (!found.isEmpty() && call) {
            told.start();
            std::exchange(call, nullptr)();
        }
        if (endByForce && isUnheeded())
            endByForce(found);
    }
}
