// SPDX-License-Identifier: MIT
#include <OpenSG/OSGBarrier.h>

OSG_BEGIN_NAMESPACE

void Barrier::enter(UInt32 numWaitFor)
{
    std::unique_lock<std::mutex> lock(_mutex);
    if (++_waiting >= numWaitFor) {
        _waiting = 0;
        ++_round;
        _opened.notify_all();
        return;
    }
    const UInt32 round = _round;
    _opened.wait(lock, [&] { return _round != round; });
}

OSG_END_NAMESPACE
