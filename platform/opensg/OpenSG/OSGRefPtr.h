// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGFieldContainerPtr.h>

#include <utility>

OSG_BEGIN_NAMESPACE

/// Handle that holds a reference on its container.
template <class PtrT>
class RefPtr
{
public:
    typedef PtrT Ptr;
    typedef typename PtrT::StoredObjectType ObjectType;

    RefPtr(void) = default;
    RefPtr(const NullFieldContainerPtr &) {}
    RefPtr(const PtrT &fc)
        : _fc(fc)
    {
        addRefCP(_fc);
    }
    RefPtr(const RefPtr &other)
        : RefPtr(other._fc)
    {}
    RefPtr(RefPtr &&other) noexcept
        : _fc(std::exchange(other._fc, PtrT()))
    {}
    ~RefPtr(void) { subRefCP(_fc); }

    /// Takes the new reference first, so that a container held only through the old one survives.
    RefPtr &operator=(RefPtr other)
    {
        std::swap(_fc, other._fc);
        return *this;
    }

    const PtrT &get(void) const { return _fc; }
    operator const PtrT &(void) const { return _fc; }

    ObjectType *operator->(void) const { return _fc.operator->(); }
    ObjectType &operator*(void) const { return *_fc; }

    bool operator!(void) const { return !_fc; }
    bool operator==(const FieldContainerPtrBase &fc) const { return _fc == fc; }
    bool operator!=(const FieldContainerPtrBase &fc) const { return _fc != fc; }
    bool operator==(const RefPtr &other) const { return _fc == other._fc; }
    bool operator!=(const RefPtr &other) const { return _fc != other._fc; }
    bool operator<(const RefPtr &other) const { return _fc < other._fc; }

private:
    PtrT _fc;
};

typedef RefPtr<FieldContainerPtr> FieldContainerRefPtr;
typedef RefPtr<AttachmentContainerPtr> AttachmentContainerRefPtr;
typedef RefPtr<AttachmentPtr> AttachmentRefPtr;
typedef RefPtr<NodePtr> NodeRefPtr;

OSG_END_NAMESPACE
