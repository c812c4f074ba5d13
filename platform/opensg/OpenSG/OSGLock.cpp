// SPDX-License-Identifier: MIT
#include <OpenSG/OSGLock.h>

#include <cstdint>

OSG_BEGIN_NAMESPACE

Lock &LockPool::lockOf(void *object)
{
    // Containers are larger than 128 bytes, so the bits below tell them apart badly.
    return _locks[(reinterpret_cast<std::uintptr_t>(object) >> 7) % _locks.size()];
}

OSG_END_NAMESPACE
