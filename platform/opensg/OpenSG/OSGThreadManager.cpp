// SPDX-License-Identifier: MIT
#include <OpenSG/OSGThreadManager.h>

OSG_BEGIN_NAMESPACE

ThreadManager *ThreadManager::the(void)
{
    static ThreadManager *manager = new ThreadManager;
    return manager;
}

void ThreadManager::setNumAspects(UInt32)
{}

ThreadBase *ThreadManager::getAppThread(void)
{
    return the()->findThread("OSGAppThread");
}

template <class T, class Make>
T *ThreadManager::getOrMake(Store<T> &store, const Char8 *name, Make make)
{
    const std::lock_guard<std::mutex> guard(_mutex);
    std::unique_ptr<T> &entry = store[name];
    if (!entry) {
        entry.reset(make());
    }
    return entry.get();
}

template <class T>
T *ThreadManager::find(const Store<T> &store, const Char8 *name)
{
    const std::lock_guard<std::mutex> guard(_mutex);
    const auto found = store.find(name);
    return found != store.end() ? found->second.get() : nullptr;
}

Thread *ThreadManager::getThread(const Char8 *name)
{
    return getOrMake(_threads, name, [name] { return new Thread(name); });
}

ExternalThread *ThreadManager::getExternalThread(const Char8 *name)
{
    return getOrMake(_externalThreads, name, [name] { return new ExternalThread(name); });
}

Lock *ThreadManager::getLock(const Char8 *name)
{
    return getOrMake(_locks, name, [] { return new Lock; });
}

LockPool *ThreadManager::getLockPool(const Char8 *name)
{
    return getOrMake(_lockPools, name, [] { return new LockPool; });
}

Barrier *ThreadManager::getBarrier(const Char8 *name)
{
    return getOrMake(_barriers, name, [] { return new Barrier; });
}

Thread *ThreadManager::findThread(const Char8 *name)
{
    return find(_threads, name);
}

ExternalThread *ThreadManager::findExternalThread(const Char8 *name)
{
    return find(_externalThreads, name);
}

OSG_END_NAMESPACE
