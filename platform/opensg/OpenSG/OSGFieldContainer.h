// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGField.h>
#include <OpenSG/OSGFieldContainerClassMacros.h>
#include <OpenSG/OSGFieldContainerFactoryDecl.h>
#include <OpenSG/OSGFieldContainerPtrDecl.h>
#include <OpenSG/OSGFieldContainerPtrFunctions.h>
#include <OpenSG/OSGFieldContainerTypeDecl.h>
#include <OpenSG/OSGFieldDescriptionDecl.h>
#include <OpenSG/OSGThread.h>

#include <new>

/// @file
/// Containers with all that belongs to them: handles, types, descriptions and the factory. Each of these has
/// a header of its own name as well, which includes this one.

OSG_BEGIN_NAMESPACE

/// Base of all containers: objects with numbered fields, counted references, an id and a copy per aspect. An
/// object of this class is one of the copies. Containers are made by their class's create() and only handled
/// by handles.
///
/// Constructors and destructors run once for every copy, with the thread moved to the copy's aspect. A
/// destructor releases what its copy refers to.
class FieldContainer
{
public:
    typedef FieldContainerPtr Ptr;

    enum
    {
        NextFieldId = 1
    };

    /// Fields whose change the threads of other aspects must see at once: none.
    static constexpr BitVector MTInfluenceMask = FieldBits::NoField;

    FieldContainer &operator=(const FieldContainer &) = delete;

    static FieldContainerType &getClassType(void) { return _type; }
    static UInt32 getClassTypeId(void) { return _type.getId(); }
    static UInt16 getClassGroupId(void) { return _type.getGroupId(); }

    virtual FieldContainerType &getType(void) { return _type; }
    virtual const FieldContainerType &getType(void) const { return _type; }
    UInt32 getTypeId(void) const { return getType().getId(); }
    UInt16 getGroupId(void) const { return getType().getGroupId(); }
    const Char8 *getTypeName(void) const { return getType().getCName(); }

    /// Bytes of one copy.
    virtual UInt32 getContainerSize(void) const = 0;

    /// The field of that id (from 1) or name; null if there is none.
    Field *getField(UInt32 fieldId);
    Field *getField(const Char8 *fieldName);

    /// A new container with the same field values in all aspects, as this copy has them. It refers to the
    /// same attachments, a node to the same core, a material to the same chunks, and holds references on
    /// them. A node's children, and what has the container as parent, are not copied. Count 0.
    virtual FieldContainerPtr shallowCopy(void) const = 0;

    /// Called after fields have changed: react, and call the parent class's handler. @p origin is a
    /// ChangedOrigin.
    virtual void changed(BitVector whichField, UInt32 origin);

    /// Writes type, id and fields to the log, those of @p whichField or all, @p indent columns from the left.
    virtual void dump(UInt32 indent = 0, const BitVector whichField = FieldBits::NoField) const;

    /// Called once for a new container, after all its copies are made; @p source is what it was copied from,
    /// or null.
    virtual void onCreate(const FieldContainer *source = nullptr);

    /// Called for every aspect's copy, after onCreate(); @p created is the first copy.
    virtual void onCreateAspect(const FieldContainer *created, const FieldContainer *source = nullptr);

    /// Called once before the container is destroyed, on the first aspect's copy.
    virtual void onDestroy(void);

protected:
    friend class FieldContainerPtr;
    friend class FieldContainerPtrBase;

    FieldContainer(void);
    FieldContainer(const FieldContainer &);
    virtual ~FieldContainer(void) = default;

    /// Takes over the fields of @p whichField from another aspect's copy.
    virtual void executeSync(FieldContainer &other, const BitVector &whichField);
    void executeSyncImpl(FieldContainer *, const BitVector &) {}

    /// A new container: default-constructed, or with @p source every copy constructed from that one.
    template <class ContainerT>
    static typename ContainerT::Ptr newContainer(const ContainerT *source = nullptr);

    /// Gives @p result a new container, likewise.
    template <class PtrT>
    static void newPtr(PtrT &result, const typename PtrT::StoredObjectType *source = nullptr)
    {
        result = newContainer(source);
    }

    /// Takes a reference for a handle that the copy of another aspect has been given without a record.
    static void addRefOfCopy(const FieldContainerPtrBase &fc) { fc.addRefOfCopy(); }

    /// A description's access method made from the method that gives a container's own type of field.
    template <auto Method>
    Field *accessField(void);

    /// For containers without an own start of their type.
    static void initMethod(void) {}

private:
    /// Where the copy belongs that is being constructed, so that it can tell from the start.
    struct Place
    {
        UInt16 containerSize;
        UInt16 aspect;
    };

    static __thread Place _nextPlace;

    /// Gives @p fc a new block, registered and recorded.
    static void announce(FieldContainerPtrBase &fc, UInt16 containerSize);

    /// Calls onCreate() and onCreateAspect() on the copies.
    static void finish(const FieldContainerPtrBase &fc, const FieldContainer *source);

    static FieldContainerType _type;

    const Place _place;
};

template <class ClassT, class FieldT>
ClassT *classOfAccess(FieldT *(ClassT::*)(void));

template <auto Method>
Field *FieldContainer::accessField(void)
{
    return (static_cast<decltype(classOfAccess(Method))>(this)->*Method)();
}

template <class ContainerT>
typename ContainerT::Ptr FieldContainer::newContainer(const ContainerT *source)
{
    static_assert(sizeof(ContainerT) <= 0xFFFF, "handles keep the size in 16 bits");
    static_assert(alignof(ContainerT) <= alignof(std::max_align_t));

    typename ContainerT::Ptr result;
    announce(result, sizeof(ContainerT));
    for (UInt32 aspect = 0; aspect < OSG_NUM_ASPECTS; ++aspect) {
        const AspectScope scope(aspect);
        _nextPlace = {static_cast<UInt16>(sizeof(ContainerT)), static_cast<UInt16>(aspect)};
        void *const space = result._storeP + aspect * sizeof(ContainerT);
        if (source != nullptr) {
            new (space) ContainerT(*source);
        } else {
            new (space) ContainerT;
        }
    }
    finish(result, source);
    return result;
}

OSG_END_NAMESPACE
