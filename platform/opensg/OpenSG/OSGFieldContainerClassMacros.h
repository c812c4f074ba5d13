// SPDX-License-Identifier: MIT
#pragma once

/// @file
/// The usual members of a container class that is written out by hand, instead of being made from a field
/// list. Such a class stores `static FieldDescription *_desc[]` and `static FieldContainerType _type`,
/// defines its fields, ids and masks itself, has `friend class FieldContainer` and overrides executeSync().
/// The DECL macros stand in its public part, the INL_DEF macros behind it in the header, the DEF macros in
/// its source file, all in namespace osg. See docs/declaring-a-container.md.

#define OSG_ABSTR_FIELD_CONTAINER_DECL(PtrT)                \
    typedef PtrT Ptr;                                       \
    static FieldContainerType &getClassType(void);          \
    static UInt32 getClassTypeId(void);                     \
    static UInt16 getClassGroupId(void);                    \
    FieldContainerType &getType(void) override;             \
    const FieldContainerType &getType(void) const override; \
    UInt32 getContainerSize(void) const override;           \
    PtrT getPtr(void) const;

#define OSG_FIELD_CONTAINER_DECL(PtrT)   \
    OSG_ABSTR_FIELD_CONTAINER_DECL(PtrT) \
    static PtrT create(void);            \
    static PtrT createEmpty(void);       \
    FieldContainerPtr shallowCopy(void) const override;

#define OSG_ABSTR_FIELD_CONTAINER_INL_DEF(X, PtrT)   \
    inline FieldContainerType &X::getClassType(void) \
    {                                                \
        return _type;                                \
    }                                                \
    inline UInt32 X::getClassTypeId(void)            \
    {                                                \
        return _type.getId();                        \
    }                                                \
    inline UInt16 X::getClassGroupId(void)           \
    {                                                \
        return _type.getGroupId();                   \
    }                                                \
    inline PtrT X::getPtr(void) const                \
    {                                                \
        return PtrT(*this);                          \
    }

#define OSG_FIELD_CONTAINER_INL_DEF(X, PtrT)                       \
    OSG_ABSTR_FIELD_CONTAINER_INL_DEF(X, PtrT)                     \
    inline PtrT X::create(void)                                    \
    {                                                              \
        return PtrT::dcast(getClassType().createFieldContainer()); \
    }                                                              \
    inline PtrT X::createEmpty(void)                               \
    {                                                              \
        PtrT result;                                               \
        newPtr(result);                                            \
        return result;                                             \
    }

#define OSG_ABSTR_FIELD_CONTAINER_DEF(X, PtrT)       \
    FieldContainerType &X::getType(void)             \
    {                                                \
        return _type;                                \
    }                                                \
    const FieldContainerType &X::getType(void) const \
    {                                                \
        return _type;                                \
    }                                                \
    UInt32 X::getContainerSize(void) const           \
    {                                                \
        return sizeof(X);                            \
    }

#define OSG_FIELD_CONTAINER_DEF(X, PtrT)         \
    OSG_ABSTR_FIELD_CONTAINER_DEF(X, PtrT)       \
    FieldContainerPtr X::shallowCopy(void) const \
    {                                            \
        PtrT result;                             \
        newPtr(result, this);                    \
        return result;                           \
    }
