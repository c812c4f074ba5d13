// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGBaseTypes.h>

#include <atomic>

OSG_BEGIN_NAMESPACE

/// An object outside the scene graph that counts its users. Count 0 at first; releasing the last user deletes
/// it.
class MemoryObject
{
public:
    MemoryObject(const MemoryObject &) = delete;
    MemoryObject &operator=(const MemoryObject &) = delete;

    void addRef(void) { ++_refCount; }

    void subRef(void)
    {
        if (--_refCount <= 0) {
            delete this;
        }
    }

    Int32 getRefCount(void) const { return _refCount; }

protected:
    MemoryObject(void) = default;
    virtual ~MemoryObject(void) = default;

private:
    std::atomic<Int32> _refCount{0};
};

/// Counts a user of an object, or one less, which may delete it. Null does nothing.
template <class ObjectT>
void addRefP(ObjectT *object)
{
    if (object != nullptr) {
        object->addRef();
    }
}

template <class ObjectT>
void subRefP(ObjectT *object)
{
    if (object != nullptr) {
        object->subRef();
    }
}

OSG_END_NAMESPACE
