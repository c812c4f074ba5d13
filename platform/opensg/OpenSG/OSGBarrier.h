// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGBaseTypes.h>

#include <condition_variable>
#include <mutex>

OSG_BEGIN_NAMESPACE

/// Where threads wait for each other.
class Barrier
{
public:
    /// Returns when @p numWaitFor threads are inside; the barrier can then be used again.
    void enter(UInt32 numWaitFor);

private:
    std::mutex _mutex;
    std::condition_variable _opened;
    UInt32 _waiting = 0;
    UInt32 _round = 0;
};

OSG_END_NAMESPACE
