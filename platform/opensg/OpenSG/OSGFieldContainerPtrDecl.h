// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGFieldContainerBase.h>
#include <OpenSG/OSGThreadContext.h>

#include <atomic>
#include <cstddef>
#include <ostream>

/// @file
/// Handles of containers. Include OSGFieldContainerPtr.h to work with them.

OSG_BEGIN_NAMESPACE

class AttachmentContainer;
class Attachment;
class FieldContainer;
class LockPool;
class Node;
class NullFieldContainerPtr;

/// What every handle is: the place of a container and a mark. A handle does not count as a reference, has 16
/// bytes and can be copied freely; it dangles once its container is destroyed. A default-constructed handle
/// is null.
///
/// Containers live in one block: reference count and id, then one copy per aspect.
class FieldContainerPtrBase
{
    typedef void (FieldContainerPtrBase::*SafeBool)(void) const;

public:
    static constexpr UInt16 InvalidParentEPos = 0xFFFF;

    constexpr FieldContainerPtrBase(void) = default;

    /// 0 for a null handle.
    UInt32 getFieldContainerId(void) const { return _storeP != nullptr ? header().id : 0; }

    /// 0 for a null handle. Other threads may change it at any time.
    Int32 getRefCount(void) const { return _storeP != nullptr ? header().refCount.load() : 0; }

    /// Bytes of one aspect's copy; 0 for a null handle.
    UInt16 getContainerSize(void) const { return _containerSize; }

    /// A mark that the keeper of the handle is free to use: the id of the field that holds the container.
    UInt16 getParentFieldPos(void) const { return _uiParentEPos; }
    void setParentFieldPos(UInt16 position) { _uiParentEPos = position; }

    operator SafeBool(void) const { return _storeP != nullptr ? &FieldContainerPtrBase::addRef : nullptr; }
    bool operator!(void) const { return _storeP == nullptr; }

    /// Compares the containers; the mark has no say.
    bool operator==(const FieldContainerPtrBase &other) const { return _storeP == other._storeP; }
    bool operator!=(const FieldContainerPtrBase &other) const { return _storeP != other._storeP; }

    /// The order of addresses, which is not the order of ids. Nothing is less than null.
    bool operator<(const FieldContainerPtrBase &other) const { return _storeP < other._storeP; }

    /// The container's id.
    friend std::ostream &operator<<(std::ostream &stream, const FieldContainerPtrBase &fc)
    {
        return stream << fc.getFieldContainerId();
    }

    /// Destroys the container whatever its count: takes it out of the factory, calls onDestroy(), destroys
    /// the copies of all aspects and frees the memory. Records nothing; the caller does so before. Does
    /// nothing for a null handle. Every handle of the container dangles afterwards.
    void deleteContainers(void) const;

    /// Guards reference counts; chosen by the container's address. Null before osgInit() and after osgExit().
    static LockPool *_pRefCountLock;

protected:
    struct Header
    {
        std::atomic<Int32> refCount; // asked for without the lock
        UInt32 id;
    };

    friend class FieldContainer;
    friend void addRefCP(const FieldContainerPtrBase &fc);
    friend void subRefCP(const FieldContainerPtrBase &fc);

    FieldContainerPtrBase(UInt8 *store, UInt16 containerSize)
        : _containerSize(containerSize)
        , _storeP(store)
    {}

    Header &header(void) const { return *reinterpret_cast<Header *>(_storeP - sizeof(Header)); }

    /// The copy for the calling thread's aspect; the handle must not be null.
    FieldContainer *currentCopy(void) const { return copyOf(ThreadContext::aspect()); }
    FieldContainer *copyOf(UInt32 aspect) const
    {
        return reinterpret_cast<FieldContainer *>(_storeP + aspect * _containerSize);
    }

    void addRef(void) const;
    void subRef(void) const;

    /// Takes a reference for a copy that the calling thread's aspect has got without a list that brought it.
    void addRefOfCopy(void) const;

    UInt16 _containerSize = 0;
    UInt16 _uiParentEPos = InvalidParentEPos;
    mutable UInt8 *_storeP = nullptr; // subRefCP() sets constant handles to null as well

private:
    enum class RefChange
    {
        Added,
        Released
    };

    void recordRefChange(RefChange change) const;

    static constexpr std::size_t HeaderSpace = alignof(std::max_align_t);
    static_assert(sizeof(Header) <= HeaderSpace);

    /// The handle of a new block with space for all copies, count 0 and id 0.
    static FieldContainerPtrBase allocate(UInt16 containerSize);
};

/// Handle of any container.
class FieldContainerPtr : public FieldContainerPtrBase
{
public:
    typedef FieldContainer StoredObjectType;
    typedef FieldContainerPtr ObjectType;
    typedef FieldContainerPtrBase Inherited;

    /// While true, the end of an edit calls no change handler, on any thread; it is recorded as always. To be
    /// set while no other thread edits.
    static bool _ignore_change;

    constexpr FieldContainerPtr(void) = default;
    FieldContainerPtr(const NullFieldContainerPtr &);

    /// The handle of a container from one of its copies.
    explicit FieldContainerPtr(const FieldContainer &source);
    explicit FieldContainerPtr(const FieldContainer *source);

    /// The copy for the calling thread's aspect. Not checked: the handle must not be null.
    FieldContainer *operator->(void) const { return currentCopy(); }
    FieldContainer &operator*(void) const { return *currentCopy(); }
    FieldContainer *getCPtr(void) const { return currentCopy(); }

    template <class InTypeT>
    static FieldContainerPtr dcast(const InTypeT &in)
    {
        return in;
    }

    /// Copies the fields of @p whichField from one aspect's copy to another's.
    void executeSync(UInt32 fromAspect, UInt32 toAspect, BitVector whichField) const;

protected:
    friend class FieldContainer;
    friend class FieldContainerPtrBase;

    explicit FieldContainerPtr(const FieldContainerPtrBase &source)
        : FieldContainerPtrBase(source)
    {}
};

static_assert(sizeof(FieldContainerPtr) == 16, "handles are small and have no virtual functions");

/// The null handle: assigns to and compares with handles of every type.
class NullFieldContainerPtr : public FieldContainerPtr
{
public:
    constexpr NullFieldContainerPtr(void) = default;
};

extern const NullFieldContainerPtr NullFC;

inline FieldContainerPtr::FieldContainerPtr(const NullFieldContainerPtr &)
{}

/// Handle of a container that is only read.
class ConstFieldContainerPtr : public FieldContainerPtrBase
{
public:
    typedef const FieldContainer StoredObjectType;
    typedef ConstFieldContainerPtr ObjectType;
    typedef FieldContainerPtrBase Inherited;

    constexpr ConstFieldContainerPtr(void) = default;
    ConstFieldContainerPtr(const FieldContainerPtr &source)
        : FieldContainerPtrBase(source)
    {}
    explicit ConstFieldContainerPtr(const FieldContainer *source)
        : ConstFieldContainerPtr(FieldContainerPtr(source))
    {}

    /// The copy for the calling thread's aspect. Not checked: the handle must not be null.
    const FieldContainer *operator->(void) const { return currentCopy(); }
    const FieldContainer &operator*(void) const { return *currentCopy(); }
    const FieldContainer *getCPtr(void) const { return currentCopy(); }
};

/// Handle of containers of class @a FieldContainerTypeT; @a BasePtrTypeT is the handle of its parent class.
template <class BasePtrTypeT, class FieldContainerTypeT>
class FCPtr : public BasePtrTypeT
{
public:
    typedef FieldContainerTypeT StoredObjectType;
    typedef FCPtr ObjectType;
    typedef BasePtrTypeT Inherited;

    constexpr FCPtr(void) = default;
    FCPtr(const NullFieldContainerPtr &) {}

    /// The handle of a container from one of its copies.
    explicit FCPtr(const FieldContainerTypeT &source)
        : BasePtrTypeT(source)
    {}
    explicit FCPtr(const FieldContainerTypeT *source)
        : BasePtrTypeT(source)
    {}

    /// The copy for the calling thread's aspect. Not checked: the handle must not be null.
    FieldContainerTypeT *operator->(void) const { return getCPtr(); }
    FieldContainerTypeT &operator*(void) const { return *getCPtr(); }
    FieldContainerTypeT *getCPtr(void) const
    {
        return static_cast<FieldContainerTypeT *>(this->currentCopy());
    }

    /// @p in as a handle of this type; null if it is null or a container of another class.
    template <class InTypeT>
    static FCPtr dcast(const InTypeT &in)
    {
        const bool fits =
            in && dynamic_cast<FieldContainerTypeT *>(in.FieldContainerPtr::getCPtr()) != nullptr;
        return fits ? FCPtr(HandleOf(), in) : FCPtr();
    }

protected:
    friend class FieldContainer;

    /// Marks the constructor that takes over a handle known to fit.
    struct HandleOf
    {};

    FCPtr(HandleOf, const FieldContainerPtrBase &source) { FieldContainerPtrBase::operator=(source); }
};

/// The members of a handle class @p Name that has the FCPtr given as its base.
#define OSG_HANDLE_CLASS(Name, ...)      \
public:                                  \
    typedef __VA_ARGS__ Inherited;       \
    typedef Name ObjectType;             \
                                         \
    using Inherited::Inherited;          \
    constexpr Name(void) = default;      \
    Name(const Inherited &source)        \
        : Inherited(source)              \
    {}                                   \
                                         \
    template <class InTypeT>             \
    static Name dcast(const InTypeT &in) \
    {                                    \
        return Inherited::dcast(in);     \
    }

/// Handle of containers that attachments can be attached to.
class AttachmentContainerPtr : public FCPtr<FieldContainerPtr, AttachmentContainer>
{
    OSG_HANDLE_CLASS(AttachmentContainerPtr, FCPtr<FieldContainerPtr, AttachmentContainer>)
};

/// Handle of nodes.
class NodePtr : public FCPtr<AttachmentContainerPtr, Node>
{
    OSG_HANDLE_CLASS(NodePtr, FCPtr<AttachmentContainerPtr, Node>)
};

/// Handle of nodes that are only read.
class CNodePtr : public FCPtr<AttachmentContainerPtr, const Node>
{
    OSG_HANDLE_CLASS(CNodePtr, FCPtr<AttachmentContainerPtr, const Node>)

    CNodePtr(const NodePtr &source)
        : Inherited(HandleOf(), source)
    {}
};

/// Handle of attachments.
class AttachmentPtr : public FCPtr<FieldContainerPtr, Attachment>
{
    OSG_HANDLE_CLASS(AttachmentPtr, FCPtr<FieldContainerPtr, Attachment>)
};

#undef OSG_HANDLE_CLASS

OSG_END_NAMESPACE
