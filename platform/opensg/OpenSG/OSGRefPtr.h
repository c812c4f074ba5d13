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
    typedef typename PtrT::ObjectType ObjectType;
    typedef typename PtrT::StoredObjectType StoredObjectType;

    RefPtr(void) = default;
    RefPtr(const NullFieldContainerPtr &) {}
    explicit RefPtr(const PtrT &fc)
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

    /// Does nothing if it is the same container. Takes the new reference first, so that a container held only
    /// through the old one survives.
    RefPtr &operator=(const PtrT &fc)
    {
        if (_fc != fc) {
            const RefPtr previous(std::move(*this));
            _fc = fc;
            addRefCP(_fc);
        }
        return *this;
    }
    RefPtr &operator=(const RefPtr &other) { return *this = other._fc; }
    RefPtr &operator=(RefPtr &&other) noexcept
    {
        std::swap(_fc, other._fc);
        return *this;
    }
    RefPtr &operator=(const NullFieldContainerPtr &) { return *this = PtrT(); }

    const PtrT &get(void) const { return _fc; }
    operator const PtrT &(void) const { return _fc; }

    StoredObjectType *operator->(void) const { return _fc.operator->(); }
    StoredObjectType &operator*(void) const { return *_fc; }
    StoredObjectType *getCPtr(void) const { return _fc.getCPtr(); }

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
