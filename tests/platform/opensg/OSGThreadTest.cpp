// SPDX-License-Identifier: MIT
#include "support/ksRecords.h"

#include <OpenSG/OSGNode.h>
#include <OpenSG/OSGRefPtr.h>
#include <OpenSG/OSGThread.h>
#include <OpenSG/OSGThreadManager.h>

#include <gtest/gtest.h>

#include <thread>
#include <vector>

namespace {

using namespace osg;

TEST(OSGThread, TheStartingThreadIsTheApplications)
{
    EXPECT_EQ(Thread::getAspect(), 0u);
    EXPECT_EQ(Thread::getCurrent(), ThreadManager::getAppThread());
    EXPECT_STREQ(ThreadManager::getAppThread()->getCName(), "OSGAppThread");
    EXPECT_EQ(Thread::getCurrentChangeList(), ThreadManager::getAppThread()->getChangeList());
    EXPECT_EQ(Thread::find("OSGAppThread"), ThreadManager::getAppThread());
}

TEST(OSGThread, ForeignThreadsRecordNothing)
{
    ksRecorder recorder;
    const NodeRefPtr node(Node::create());
    recorder.take();

    std::thread([&] {
        EXPECT_EQ(PThreadBase::getCurrentChangeList(), nullptr);
        EXPECT_EQ(Thread::getCurrent(), nullptr);
        EXPECT_EQ(Thread::getAspect(), 0u);
        addRefCP(node.get());
        endEditCP(node, Node::ExternalFlagsFieldMask);
        NodePtr fresh = Node::create();
        EXPECT_TRUE(fresh != NullFC);
        subRefCP(fresh);
        NodePtr release = node;
        subRefCP(release);
    }).join();

    EXPECT_EQ(node.get().getRefCount(), 1);
    EXPECT_EQ(recorder.take(), ksRecords());
}

TEST(OSGThread, ExternalThreadsHaveAspectAndListOfTheirOwn)
{
    ksRecorder recorder;
    const NodeRefPtr node(Node::create());
    recorder.take();

    std::thread([&] {
        ExternalThread *self = ExternalThread::get("recording");
        self->initialize(1);
        EXPECT_EQ(Thread::getAspect(), 1u);
        EXPECT_EQ(Thread::getCurrent(), self);
        EXPECT_EQ(Thread::getCurrentChangeList(), self->getChangeList());
        EXPECT_EQ(self->getChangeList()->getAspect(), 1u);
        const CPEditor edit(node, Node::ExternalFlagsFieldMask);
        node->setExternalFlags(3);
    }).join();

    EXPECT_EQ(node->getExternalFlags(), 0u) << "the other aspect's copy changed";
    EXPECT_EQ(recorder.take(), ksRecords());
    EXPECT_EQ(ExternalThread::find("recording")->getChangeList()->sizeChanged(), 1u);
    ExternalThread::find("recording")->getChangeList()->applyAndClear();
    EXPECT_EQ(node->getExternalFlags(), 3u);
}

TEST(OSGThread, RunsWorkInAnAspect)
{
    UInt32 aspect = 0;
    const ChangeList *list = nullptr;
    Thread *worker = Thread::get("worker");

    worker->runFunction(
        [&] {
            aspect = Thread::getAspect();
            list = Thread::getCurrentChangeList();
        },
        1);
    Thread::join(worker);

    EXPECT_EQ(aspect, 1u);
    EXPECT_EQ(list, worker->getChangeList());
    EXPECT_EQ(Thread::getAspect(), 0u);
    Thread::join(worker);
    Thread::join(nullptr);
}

TEST(OSGThread, RunsAFunctionWithAnArgument)
{
    UInt32 aspect = 0;
    Thread *thread = Thread::get("function");
    thread->runFunction([](void *argument) { *static_cast<UInt32 *>(argument) = Thread::getAspect(); }, 1,
                        &aspect);
    BaseThread *base = thread;
    BaseThread::join(base);
    EXPECT_EQ(aspect, 1u);
    EXPECT_STREQ(base->getCName(), "function");
}

TEST(OSGThread, RunsAgainAfterTheLastRun)
{
    std::vector<int> order;
    Thread *worker = Thread::get("worker");
    worker->runFunction([&] { order.push_back(1); }, 0);
    worker->runFunction([&] { order.push_back(2); }, 0);
    Thread::join(worker);
    EXPECT_EQ(order, (std::vector<int>{1, 2}));
}

TEST(OSGThread, RunsItsOwnWork)
{
    struct Worker : Thread
    {
        explicit Worker(UInt32 &aspectAtWork)
            : Thread("own work")
            , seen(aspectAtWork)
        {}
        void workProc() override { seen = getAspect(); }
        UInt32 &seen;
    };
    UInt32 aspect = 0;
    Worker worker(aspect);
    worker.run(1);
    Thread::join(&worker);
    EXPECT_EQ(aspect, 1u);
}

TEST(OSGThread, ThreadsAreFoundByName)
{
    EXPECT_EQ(Thread::find("nobody"), nullptr);
    EXPECT_EQ(ExternalThread::find("nobody"), nullptr);
    Thread *thread = Thread::get("somebody");
    ExternalThread *external = ExternalThread::get("somebody");
    EXPECT_EQ(Thread::get("somebody"), thread);
    EXPECT_EQ(Thread::find("somebody"), thread);
    EXPECT_EQ(ThreadManager::the()->getThread("somebody"), thread);
    EXPECT_EQ(ExternalThread::get("somebody"), external);
    EXPECT_EQ(ExternalThread::find("somebody"), external);
}

TEST(OSGThreadManager, KeepsLocksAndBarriersByName)
{
    ThreadManager &manager = *ThreadManager::the();

    Lock *lock = manager.getLock("lock");
    EXPECT_EQ(manager.getLock("lock"), lock);
    EXPECT_NE(manager.getLock("other"), lock);
    EXPECT_EQ(manager.getLockPool("pool"), manager.getLockPool("pool"));
    EXPECT_EQ(manager.getBarrier("barrier"), manager.getBarrier("barrier"));
}

TEST(OSGThreadManager, NumberOfAspectsIsFixed)
{
    ThreadManager::setNumAspects(7);
    EXPECT_EQ(ThreadManager::getNumAspects(), 2u);
}

bool otherThreadGets(Lock &lock)
{
    bool got = false;
    std::thread([&] {
        got = lock.request();
        if (got) {
            lock.release();
        }
    }).join();
    return got;
}

TEST(OSGLock, IsHeldByOneThread)
{
    Lock lock;
    lock.aquire();
    EXPECT_FALSE(otherThreadGets(lock));
    lock.release();
    EXPECT_TRUE(otherThreadGets(lock));
}

TEST(OSGLockPool, LocksByAddress)
{
    LockPool pool;
    int objects[2048];
    pool.aquire(&objects[0]);
    bool same = true;
    bool other = false;
    std::thread([&] {
        same = pool.request(&objects[0]);
        // 128 ints and more lie in the area of another lock.
        other = pool.request(&objects[64]);
        if (other) {
            pool.release(&objects[64]);
        }
    }).join();
    pool.release(&objects[0]);

    EXPECT_FALSE(same);
    EXPECT_TRUE(other);
}

TEST(OSGBarrier, OpensWhenAllAreIn)
{
    constexpr int turns = 100;
    Barrier barrier;
    std::vector<int> rounds(3, 0);
    std::vector<std::thread> threads;
    bool complete = true;
    Lock lock;
    int entered = 0;
    for (int &round : rounds) {
        threads.emplace_back([&] {
            for (int turn = 0; turn < turns; ++turn) {
                lock.aquire();
                ++entered;
                lock.release();
                barrier.enter(3);
                ++round;
                lock.aquire();
                complete = complete && entered >= 3 * (turn + 1);
                lock.release();
                barrier.enter(3);
            }
        });
    }
    for (std::thread &thread : threads) {
        thread.join();
    }
    EXPECT_EQ(rounds, std::vector<int>(3, turns));
    EXPECT_TRUE(complete);
}

} // namespace
