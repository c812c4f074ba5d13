// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGBaseTypes.h>

#include <array>
#include <mutex>

OSG_BEGIN_NAMESPACE

/// A lock that one thread holds at a time; not recursive.
class Lock
{
public:
    void aquire(void) { _mutex.lock(); }
    void release(void) { _mutex.unlock(); }

    /// Takes the lock if it is free; false if not.
    bool request(void) { return _mutex.try_lock(); }

private:
    std::mutex _mutex;
};

/// 32 locks for any number of objects: the object's address chooses the lock.
class LockPool
{
public:
    void aquire(void *object) { lockOf(object).aquire(); }
    void release(void *object) { lockOf(object).release(); }
    bool request(void *object) { return lockOf(object).request(); }

private:
    Lock &lockOf(void *object);

    std::array<Lock, 32> _locks;
};

OSG_END_NAMESPACE
