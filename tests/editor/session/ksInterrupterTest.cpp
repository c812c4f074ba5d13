// SPDX-License-Identifier: MIT
#include <editor/session/ksInterrupter.h>

#include <gtest/gtest.h>

#include <condition_variable>
#include <csignal>
#include <limits>
#include <mutex>

namespace {

constexpr qint64 Endless = std::numeric_limits<qint64>::max();

/// Counts the calls of an interrupter, which come from another thread, and waits for the first.
class Calls
{
public:
    std::function<void()> taker()
    {
        return [this] {
            const std::lock_guard<std::mutex> lock(mutex);
            ++count;
            called.notify_all();
        };
    }

    void wait()
    {
        std::unique_lock<std::mutex> lock(mutex);
        called.wait(lock, [this] { return count > 0; });
    }

    int count = 0;

private:
    std::mutex mutex;
    std::condition_variable called;
};

} // namespace

TEST(ksInterrupter, CallsAtASignal)
{
    for (const int signal : {SIGINT, SIGTERM}) {
        Calls calls;
        ksInterrupter interrupter;
        interrupter.start(0, Endless, calls.taker());
        EXPECT_EQ(interrupter.reason(), QString());
        std::raise(signal);
        calls.wait();
        EXPECT_EQ(interrupter.reason(), QStringLiteral("interrupted"));
    }
}

/// Such as one that comes while a model is opened.
TEST(ksInterrupter, CallsAtASignalThatHasComeBefore)
{
    Calls calls;
    ksInterrupter interrupter;
    std::raise(SIGINT);
    EXPECT_EQ(interrupter.reason(), QStringLiteral("interrupted"));
    interrupter.start(0, Endless, calls.taker());
    calls.wait();
    EXPECT_EQ(calls.count, 1);
}

TEST(ksInterrupter, CallsNoMoreWhenItIsStopped)
{
    Calls calls;
    {
        ksInterrupter interrupter;
        interrupter.start(0, Endless, calls.taker());
        interrupter.stop();
        std::raise(SIGINT);
        EXPECT_EQ(interrupter.reason(), QStringLiteral("interrupted"));
    }
    EXPECT_EQ(calls.count, 0);
}

TEST(ksInterrupter, LeavesTheSecondSignalToTheProcess)
{
    Calls calls;
    ksInterrupter interrupter;
    interrupter.start(0, Endless, calls.taker());
    std::raise(SIGINT);
    calls.wait();
    struct sigaction now = {};
    sigaction(SIGINT, nullptr, &now);
    EXPECT_EQ(now.sa_handler, SIG_DFL);
}

TEST(ksInterrupter, PutsBackWhatWasDoneAtASignal)
{
    const auto previous = std::signal(SIGINT, SIG_IGN);
    {
        Calls calls;
        ksInterrupter interrupter;
        interrupter.start(0, Endless, calls.taker());
    }
    EXPECT_EQ(std::signal(SIGINT, previous), SIG_IGN);
}

TEST(ksInterrupter, LeavesASignalThatIsIgnored)
{
    const auto previous = std::signal(SIGTERM, SIG_IGN);
    {
        Calls calls;
        ksInterrupter interrupter;
        interrupter.start(0, Endless, calls.taker());
        std::raise(SIGTERM);
        EXPECT_EQ(interrupter.reason(), QString());
        std::raise(SIGINT);
        calls.wait();
        EXPECT_EQ(std::signal(SIGTERM, SIG_IGN), SIG_IGN) << "also after another one";
    }
    std::signal(SIGTERM, previous);
}

TEST(ksInterrupter, CallsOnceAtALimit)
{
    Calls time;
    {
        ksInterrupter interrupter;
        interrupter.start(0.001, Endless, time.taker());
        time.wait();
        EXPECT_EQ(interrupter.reason(), QStringLiteral("ended after 0.001 seconds"));
    }
    Calls memory;
    {
        ksInterrupter interrupter;
        interrupter.start(0, 1, memory.taker());
        memory.wait();
        EXPECT_EQ(interrupter.reason(), QStringLiteral("out of memory"));
        std::raise(SIGTERM);
    }
    EXPECT_EQ(time.count, 1);
    EXPECT_EQ(memory.count, 1);
}

TEST(ksInterrupter, DoesNotCallWithoutAReason)
{
    Calls calls;
    {
        ksInterrupter interrupter;
        interrupter.start(1000, Endless, calls.taker());
    }
    EXPECT_EQ(calls.count, 0);
}
