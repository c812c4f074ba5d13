// SPDX-License-Identifier: MIT
#include <OpenSG/OSGFieldContainerPtr.h>
#include <OpenSG/OSGLock.h>

#include <cstdint>
#include <new>

OSG_BEGIN_NAMESPACE

LockPool *FieldContainerPtrBase::_pRefCountLock = nullptr;
bool FieldContainerPtr::_ignore_change = false;

const NullFieldContainerPtr NullFC;

namespace {

/// Holds a container's lock, if there are locks.
class RefCountGuard
{
public:
    RefCountGuard(LockPool *pool, void *store)
        : _pool(pool)
        , _store(store)
    {
        if (_pool != nullptr) {
            _pool->aquire(_store);
        }
    }
    ~RefCountGuard(void)
    {
        if (_pool != nullptr) {
            _pool->release(_store);
        }
    }

    RefCountGuard(const RefCountGuard &) = delete;
    RefCountGuard &operator=(const RefCountGuard &) = delete;

private:
    LockPool *const _pool;
    void *const _store;
};

bool isKnown(const FieldContainerPtrBase &fc, UInt32 id)
{
    return FieldContainerFactory::the()->getContainer(id) == fc;
}

} // namespace

/// A copy that is made or destroyed for another aspect takes and releases that aspect's references itself. So
/// the list must do neither this to that aspect, nor what the list's own aspect has done alike.
void FieldContainerPtrBase::recordRefChange(RefChange change) const
{
    ChangeList *const changes = Thread::getCurrentChangeList();
    if (changes == nullptr) {
        return;
    }
    const FieldContainerPtr fc(*this);
    if (change == RefChange::Added) {
        changes->addAddRefd(fc);
    } else {
        changes->addSubRefd(fc);
    }
    if (changes->getAspect() != Thread::getAspect()) {
        changes->settle(change == RefChange::Added ? changes->_settledAdds : changes->_settledSubs, fc, 2);
    }
}

FieldContainerPtrBase FieldContainerPtrBase::allocate(UInt16 containerSize)
{
    const std::size_t bytes = HeaderSpace + std::size_t(OSG_NUM_ASPECTS) * containerSize;
    UInt8 *const store = static_cast<UInt8 *>(::operator new(bytes)) + HeaderSpace;
    new (store - sizeof(Header)) Header{0, 0};
    return FieldContainerPtrBase(store, containerSize);
}

void FieldContainerPtrBase::addRef(void) const
{
    if (_storeP == nullptr) {
        return;
    }
    {
        const RefCountGuard guard(_pRefCountLock, _storeP);
        ++header().refCount;
    }
    recordRefChange(RefChange::Added);
}

void FieldContainerPtrBase::addRefOfCopy(void) const
{
    if (_storeP == nullptr) {
        return;
    }
    {
        const RefCountGuard guard(_pRefCountLock, _storeP);
        ++header().refCount;
    }
    ChangeList *const changes = Thread::getCurrentChangeList();
    if (changes == nullptr) {
        return;
    }
    // The reference that was recorded for the first copy covers this one, which has its own now. If this one
    // is the list's own, that record has left out one entry too many.
    if (changes->getAspect() != Thread::getAspect()) {
        changes->settle(changes->_settledAdds, FieldContainerPtr(*this), 1);
    } else {
        changes->unsettle(changes->_settledAdds, FieldContainerPtr(*this));
    }
}

void FieldContainerPtrBase::subRef(void) const
{
    if (_storeP == nullptr) {
        return;
    }
    {
        // Recorded under the lock: once it is free, another thread may destroy the container.
        const RefCountGuard guard(_pRefCountLock, _storeP);
        if (--header().refCount > 0) {
            recordRefChange(RefChange::Released);
            return;
        }
    }
    if (ChangeList *changes = Thread::getCurrentChangeList()) {
        changes->addDestroyed(getFieldContainerId());
    }
    // The handle itself may lie in memory that goes away with the container.
    const FieldContainerPtrBase fc(*this);
    _storeP = nullptr;
    fc.deleteContainers();
}

void FieldContainerPtrBase::deleteContainers(void) const
{
    if (_storeP == nullptr) {
        return;
    }
    // The handle itself may lie in memory that goes away below.
    const FieldContainerPtrBase fc(*this);
    FieldContainerFactory::the()->unregisterFieldContainer(FieldContainerPtr(fc));
    for (UInt32 aspect = 0; aspect < OSG_NUM_ASPECTS; ++aspect) {
        const AspectScope scope(aspect);
        if (aspect == 0) {
            fc.copyOf(0)->onDestroy();
        }
        fc.copyOf(aspect)->~FieldContainer();
    }
    ::operator delete(fc._storeP - HeaderSpace);
}

FieldContainerPtr::FieldContainerPtr(const FieldContainer &source)
{
    const FieldContainer::Place &place = source._place;
    UInt8 *const copy = reinterpret_cast<UInt8 *>(const_cast<FieldContainer *>(&source));
    _containerSize = place.containerSize;
    _storeP = copy - std::size_t(place.aspect) * place.containerSize;
}

FieldContainerPtr::FieldContainerPtr(const FieldContainer *source)
{
    if (source != nullptr) {
        *this = FieldContainerPtr(*source);
    }
}

void FieldContainerPtr::executeSync(UInt32 fromAspect, UInt32 toAspect, BitVector whichField) const
{
    copyOf(toAspect)->executeSync(*copyOf(fromAspect), whichField);
}

void setRefdCP(FieldContainerPtrBase &target, const FieldContainerPtrBase &source)
{
    if (target == source) {
        return;
    }
    if (source == NullFC) {
        clearRefCP(target);
        return;
    }
    // The source may lie in memory that goes away with the old container, and so may the new container.
    const FieldContainerPtrBase assigned(source);
    const UInt32 id = assigned.getFieldContainerId();
    const bool mayGo = target.getRefCount() <= 1 && isKnown(assigned, id);
    subRefCP(target);
    target = mayGo && !isKnown(assigned, id) ? FieldContainerPtrBase() : assigned;
    addRefCP(target);
}

void endEditNotChangedCP(const FieldContainerPtr &fc, BitVector whichField, UInt32)
{
    ChangeList *const changes = Thread::getCurrentChangeList();
    if (fc != NullFC && changes != nullptr) {
        changes->addChanged(fc, whichField);
    }
}

void changedCP(const FieldContainerPtr &fc, BitVector whichField, UInt32 origin)
{
    if (fc != NullFC) {
        fc->changed(whichField, origin);
    }
}

void endEditCP(const FieldContainerPtr &fc, BitVector whichField, UInt32 origin)
{
    endEditNotChangedCP(fc, whichField, origin);
    if (!FieldContainerPtr::_ignore_change) {
        changedCP(fc, whichField, origin);
    }
}

OSG_END_NAMESPACE
