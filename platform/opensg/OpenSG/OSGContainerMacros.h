// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGFieldContainerPtr.h>
#include <OpenSG/OSGMField.h>
#include <OpenSG/OSGRefPtr.h>
#include <OpenSG/OSGSField.h>

#include <cstring>

/// @file
/// Declares container types. A type X has a field list, a handle XPtr, a generated class XBase and a class X:
///
///     OSG_CONTAINER_POINTER(Lamp, NodeCorePtr)
///
///     #define OSG_LAMP_FIELDS(SF, MF)
///         SF(SFReal32, power, Power, 1.0f)
///         MF(MFString, labels, Labels)
///
///     OSG_CONTAINER_BASE(Lamp, NodeCore, OSG_LAMP_FIELDS)
///
///     class Lamp : public LampBase
///     {
///         OSG_CONTAINER(Lamp)
///     };
///
/// and in one source file
///
///     OSG_DEFINE_CONTAINER(Lamp, NodeCore, "", OSG_LAMP_FIELDS)
///
/// all in namespace osg. See docs/declaring-a-container.md.

OSG_BEGIN_NAMESPACE

/// Marks a field of a field list as kept by the container itself, not to be edited or saved.
template <class FieldT>
struct InternalField;

/// A field of a field list whose description declares another type than it has.
template <class FieldT, class DeclaredT>
struct DeclaredField;

/// What a field list says of a field.
template <class FieldT>
struct FieldSpec
{
    typedef FieldT Real;
    typedef FieldT Declared;
    static constexpr bool internal = false;
};

template <class FieldT>
struct FieldSpec<InternalField<FieldT>> : public FieldSpec<FieldT>
{
    static constexpr bool internal = true;
};

template <class FieldT, class DeclaredT>
struct FieldSpec<DeclaredField<FieldT, DeclaredT>> : public FieldSpec<FieldT>
{
    typedef DeclaredT Declared;
};

/// Sets @p value to the container whose id is @p text. False, and no change, if there is no such container or
/// its type is not the one that handles of type @p handleTypeName (the type's name and "Ptr") are for.
bool readContainerHandle(FieldContainerPtrBase &value, const Char8 *text, const Char8 *handleTypeName);

/// Text of a handle: the container's id, 0 for null. Reading one takes no reference.
template <class PtrT>
struct ValueText<PtrT, std::enable_if_t<std::is_base_of_v<FieldContainerPtrBase, PtrT>>>
{
    static bool getFromString(PtrT &value, const Char8 *text)
    {
        return readContainerHandle(value, text, FieldDataTraits<PtrT>::getSName() + std::strlen("SF"));
    }

    static void putToString(const PtrT &value, std::string &text)
    {
        ValueText<UInt32>::putToString(value.getFieldContainerId(), text);
    }
};

OSG_END_NAMESPACE

/// Declares class @p X, its handle XPtr, the counting handle XRefPtr and the fields SFXPtr and MFXPtr.
/// @p ParentPtr is the handle of the parent class.
#define OSG_CONTAINER_POINTER(X, ParentPtr) \
    class X;                                \
    typedef FCPtr<ParentPtr, X> X##Ptr;     \
    typedef RefPtr<X##Ptr> X##RefPtr;       \
    OSG_FIELD_VALUE(FieldDataTraits, 0, X##Ptr, X##Ptr)

// The members that one field of a field list gives to class XBase.

#define OSG_FIELD_ID_SF(Type, name, Name, Default) Name##FieldId,
#define OSG_FIELD_ID_MF(Type, name, Name) Name##FieldId,

#define OSG_FIELD_MASK(Name) \
    static constexpr BitVector Name##FieldMask = TypeTraits<BitVector>::One << Name##FieldId;
#define OSG_FIELD_MASK_SF(Type, name, Name, Default) OSG_FIELD_MASK(Name)
#define OSG_FIELD_MASK_MF(Type, name, Name) OSG_FIELD_MASK(Name)

#define OSG_FIELD_ACCESS_SF(Type, name, Name, Default)             \
    FieldSpec<Type>::Real *getSF##Name(void)                       \
    {                                                              \
        return &_sf##Name;                                         \
    }                                                              \
    FieldSpec<Type>::Real::StoredType &get##Name(void)             \
    {                                                              \
        return _sf##Name.getValue();                               \
    }                                                              \
    const FieldSpec<Type>::Real::StoredType &get##Name(void) const \
    {                                                              \
        return _sf##Name.getValue();                               \
    }                                                              \
    void set##Name(const FieldSpec<Type>::Real::StoredType &value) \
    {                                                              \
        _sf##Name.setValue(value);                                 \
    }

#define OSG_FIELD_ACCESS_MF(Type, name, Name)                            \
    FieldSpec<Type>::Real *getMF##Name(void)                             \
    {                                                                    \
        return &_mf##Name;                                               \
    }                                                                    \
    FieldSpec<Type>::Real &get##Name(void)                               \
    {                                                                    \
        return _mf##Name;                                                \
    }                                                                    \
    const FieldSpec<Type>::Real &get##Name(void) const                   \
    {                                                                    \
        return _mf##Name;                                                \
    }                                                                    \
    FieldSpec<Type>::Real::reference get##Name(UInt32 index)             \
    {                                                                    \
        return _mf##Name[index];                                         \
    }                                                                    \
    FieldSpec<Type>::Real::const_reference get##Name(UInt32 index) const \
    {                                                                    \
        return _mf##Name[index];                                         \
    }

#define OSG_FIELD_MEMBER_SF(Type, name, Name, Default) \
    FieldSpec<Type>::Real _sf##Name{FieldSpec<Type>::Real::StoredType(Default)};
#define OSG_FIELD_MEMBER_MF(Type, name, Name) FieldSpec<Type>::Real _mf##Name;

#define OSG_FIELD_DESCRIPTION(Type, name, Name, kind)                                                      \
    new FieldDescription(FieldSpec<Type>::Declared::getClassType(), #name, Name##FieldId, Name##FieldMask, \
                         FieldSpec<Type>::internal, &Self::accessField<&Self::get##kind##Name>),
#define OSG_FIELD_DESCRIPTION_SF(Type, name, Name, Default) OSG_FIELD_DESCRIPTION(Type, name, Name, SF)
#define OSG_FIELD_DESCRIPTION_MF(Type, name, Name) OSG_FIELD_DESCRIPTION(Type, name, Name, MF)

#define OSG_FIELD_SYNC(Name, member)    \
    if (whichField & Name##FieldMask) { \
        member.syncWith(source.member); \
    }
#define OSG_FIELD_SYNC_SF(Type, name, Name, Default) OSG_FIELD_SYNC(Name, _sf##Name)
#define OSG_FIELD_SYNC_MF(Type, name, Name) OSG_FIELD_SYNC(Name, _mf##Name)

/// The generated members of class XBase, abstract or not.
#define OSG_CONTAINER_BASE_MEMBERS(X, Parent, FIELDS)                              \
private:                                                                           \
    typedef Parent Inherited;                                                      \
    typedef X##Base Self;                                                          \
                                                                                   \
public:                                                                            \
    typedef X##Ptr Ptr;                                                            \
                                                                                   \
    enum                                                                           \
    {                                                                              \
        LastInheritedFieldId = Inherited::NextFieldId - 1,                         \
        FIELDS(OSG_FIELD_ID_SF, OSG_FIELD_ID_MF) NextFieldId                       \
    };                                                                             \
    FIELDS(OSG_FIELD_MASK_SF, OSG_FIELD_MASK_MF)                                   \
                                                                                   \
    static FieldContainerType &getClassType(void)                                  \
    {                                                                              \
        return _type;                                                              \
    }                                                                              \
    static UInt32 getClassTypeId(void)                                             \
    {                                                                              \
        return _type.getId();                                                      \
    }                                                                              \
    static UInt16 getClassGroupId(void)                                            \
    {                                                                              \
        return _type.getGroupId();                                                 \
    }                                                                              \
    FieldContainerType &getType(void) override                                     \
    {                                                                              \
        return _type;                                                              \
    }                                                                              \
    const FieldContainerType &getType(void) const override                         \
    {                                                                              \
        return _type;                                                              \
    }                                                                              \
    UInt32 getContainerSize(void) const override;                                  \
                                                                                   \
    FIELDS(OSG_FIELD_ACCESS_SF, OSG_FIELD_ACCESS_MF)                               \
                                                                                   \
protected:                                                                         \
    X##Base(void) = default;                                                       \
    X##Base(const X##Base &) = default;                                            \
    ~X##Base(void) override = default;                                             \
                                                                                   \
    void executeSync(FieldContainer &other, const BitVector &whichField) override; \
    void executeSyncImpl(Self *other, const BitVector &whichField);                \
    static void initMethod(void)                                                   \
    {}                                                                             \
                                                                                   \
    FIELDS(OSG_FIELD_MEMBER_SF, OSG_FIELD_MEMBER_MF)                               \
                                                                                   \
private:                                                                           \
    friend class FieldContainer;                                                   \
                                                                                   \
    static FieldDescription *_desc[];                                              \
    static FieldContainerType _type;

/// Declares class XBase of a container type: ids, masks, accessors and fields of the field list @p FIELDS,
/// and create(), createEmpty() and shallowCopy().
#define OSG_CONTAINER_BASE(X, Parent, FIELDS)                  \
    class X##Base : public Parent                              \
    {                                                          \
        OSG_CONTAINER_BASE_MEMBERS(X, Parent, FIELDS)          \
                                                               \
    public:                                                    \
        /** A copy of the prototype; null before osgInit(). */ \
        static X##Ptr create(void);                            \
        /** A container as its constructor leaves it. */       \
        static X##Ptr createEmpty(void);                       \
        FieldContainerPtr shallowCopy(void) const override;    \
    };

/// Declares class XBase of an abstract container type.
#define OSG_ABSTRACT_CONTAINER_BASE(X, Parent, FIELDS) \
    class X##Base : public Parent                      \
    {                                                  \
        OSG_CONTAINER_BASE_MEMBERS(X, Parent, FIELDS)  \
    };

/// Stands first in class X, which derives from XBase and declares its constructors and its destructor itself,
/// all protected. An own `static void initMethod(void)` runs when the type is registered.
#define OSG_CONTAINER_MEMBERS(X) \
private:                         \
    typedef X##Base Inherited;   \
    friend class FieldContainer; \
    friend class X##Base;

/// Stands first in class X, which derives from XBase and needs no constructors and destructor of its own.
#define OSG_CONTAINER(X)         \
    OSG_CONTAINER_MEMBERS(X)     \
protected:                       \
    X(void) = default;           \
    X(const X &) = default;      \
    ~X(void) override = default; \
                                 \
private:

/// The definitions of class XBase, abstract or not.
#define OSG_DEFINE_CONTAINER_MEMBERS(X, Parent, group, FIELDS, prototypeCreate)                       \
    FieldDescription *X##Base::_desc[] = {                                                            \
        FIELDS(OSG_FIELD_DESCRIPTION_SF, OSG_FIELD_DESCRIPTION_MF) nullptr};                          \
                                                                                                      \
    FieldContainerType X##Base::_type(#X, #Parent, group, prototypeCreate, &X::initMethod, _desc,     \
                                      sizeof(_desc) - sizeof(*_desc));                                \
                                                                                                      \
    UInt32 X##Base::getContainerSize(void) const                                                      \
    {                                                                                                 \
        return sizeof(X);                                                                             \
    }                                                                                                 \
                                                                                                      \
    void X##Base::executeSync(FieldContainer &other, const BitVector &whichField)                     \
    {                                                                                                 \
        static_cast<X *>(this)->executeSyncImpl(static_cast<X *>(&other), whichField);                \
    }                                                                                                 \
                                                                                                      \
    void X##Base::executeSyncImpl(Self *other, const BitVector &whichField)                           \
    {                                                                                                 \
        Inherited::executeSyncImpl(other, whichField);                                                \
        [[maybe_unused]] const Self &source = *other;                                                 \
        FIELDS(OSG_FIELD_SYNC_SF, OSG_FIELD_SYNC_MF)                                                  \
    }                                                                                                 \
                                                                                                      \
    /* So that fields of the handles can be made by name at once. */                                  \
    [[maybe_unused]] static const FieldType *const X##PtrFieldTypes[] = {&SF##X##Ptr::getClassType(), \
                                                                         &MF##X##Ptr::getClassType()};

/// Defines what OSG_CONTAINER_BASE declared. @p group is the group's name; empty: the type's own.
#define OSG_DEFINE_CONTAINER(X, Parent, group, FIELDS)                                    \
    OSG_DEFINE_CONTAINER_MEMBERS(X, Parent, group, FIELDS,                                \
                                 [](void) -> FieldContainerPtr { return createEmpty(); }) \
                                                                                          \
    X##Ptr X##Base::create(void)                                                          \
    {                                                                                     \
        return X##Ptr::dcast(getClassType().createFieldContainer());                      \
    }                                                                                     \
                                                                                          \
    X##Ptr X##Base::createEmpty(void)                                                     \
    {                                                                                     \
        return newContainer<X>();                                                         \
    }                                                                                     \
                                                                                          \
    FieldContainerPtr X##Base::shallowCopy(void) const                                    \
    {                                                                                     \
        return newContainer<X>(static_cast<const X *>(this));                             \
    }

/// Defines what OSG_ABSTRACT_CONTAINER_BASE declared.
#define OSG_DEFINE_ABSTRACT_CONTAINER(X, Parent, group, FIELDS) \
    OSG_DEFINE_CONTAINER_MEMBERS(X, Parent, group, FIELDS, nullptr)
