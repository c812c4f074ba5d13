// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGBarrier.h>
#include <OpenSG/OSGLock.h>
#include <OpenSG/OSGThread.h>

#include <map>
#include <memory>
#include <mutex>
#include <string>

OSG_BEGIN_NAMESPACE

/// Keeps threads and what they meet at, by name. All of it lives for the rest of the process.
class ThreadManager
{
public:
    static ThreadManager *the(void);

    /// The number of aspects is fixed when the library is built; this changes nothing.
    static void setNumAspects(UInt32 numAspects);
    static UInt32 getNumAspects(void) { return OSG_NUM_ASPECTS; }

    /// The thread that called osgInit(); null before.
    static ThreadBase *getAppThread(void);

    /// The object of that name; made if there is none.
    Thread *getThread(const Char8 *name);
    ExternalThread *getExternalThread(const Char8 *name);
    Lock *getLock(const Char8 *name);
    LockPool *getLockPool(const Char8 *name);
    Barrier *getBarrier(const Char8 *name);

    /// Null if there is no such thread.
    Thread *findThread(const Char8 *name);
    ExternalThread *findExternalThread(const Char8 *name);

private:
    template <class T>
    using Store = std::map<std::string, std::unique_ptr<T>>;

    ThreadManager(void) = default;

    template <class T, class Make>
    T *getOrMake(Store<T> &store, const Char8 *name, Make make);

    template <class T>
    T *find(const Store<T> &store, const Char8 *name);

    std::mutex _mutex;
    Store<Thread> _threads;
    Store<ExternalThread> _externalThreads;
    Store<Lock> _locks;
    Store<LockPool> _lockPools;
    Store<Barrier> _barriers;
};

OSG_END_NAMESPACE
