// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGDataType.h>
#include <OpenSG/OSGValueText.h>

OSG_BEGIN_NAMESPACE

/// What fields need to know of a value type: `getTypeName()`, `getSName()` and `getMName()` (the names of the
/// two field types), `getType()`, and the text functions of ValueText. Three families, so that types which
/// C++ takes for the same (Real64 and Time) get field types of their own; the second parameter of SField and
/// MField picks the family.
template <class T>
struct FieldDataTraits;

template <class T>
struct FieldDataTraits1;

template <class T>
struct FieldDataTraits2;

template <class T, Int32 FieldNameSpace>
struct FieldDataTraitsOf;

template <class T>
struct FieldDataTraitsOf<T, 0>
{
    typedef FieldDataTraits<T> Traits;
};

template <class T>
struct FieldDataTraitsOf<T, 1>
{
    typedef FieldDataTraits1<T> Traits;
};

template <class T>
struct FieldDataTraitsOf<T, 2>
{
    typedef FieldDataTraits2<T> Traits;
};

/// Base of the traits: the data type, made at its first use and kept for the rest of the process.
template <class Traits>
struct FieldDataTraitsBase
{
    static DataType &getType(void)
    {
        static DataType &type = *new DataType(Traits::getTypeName());
        return type;
    }
};

/// Base of the traits of a handle that are written out by hand, with a data type of their own.
template <class PtrT, bool HasParent = false>
struct FieldTraitsRecurseMapper : public ValueText<PtrT>
{};

template <class T, Int32 FieldNameSpace>
class SField;

template <class T, Int32 FieldNameSpace>
class MField;

OSG_END_NAMESPACE

/// Announces @p Type as a value of fields and names the field types SF<Name> and MF<Name>. @p Traits is the
/// family (FieldDataTraits, FieldDataTraits1, FieldDataTraits2), @p FieldNameSpace its number; ValueText must
/// know the type. To be used in namespace osg, before the first field of that type.
#define OSG_FIELD_VALUE(Traits, FieldNameSpace, Type, Name) \
    OSG_FIELD_VALUE_OF(Traits, FieldNameSpace, Type, Name, #Name, ValueText<Type>)

/// The same with another name for the type of the value, and with text functions of its own.
#define OSG_FIELD_VALUE_OF(Traits, FieldNameSpace, Type, Name, typeName, Text) \
    template <>                                                                \
    struct Traits<Type> : public FieldDataTraitsBase<Traits<Type>>, Text       \
    {                                                                          \
        static const Char8 *getTypeName(void) { return typeName; }             \
        static const Char8 *getSName(void) { return "SF" #Name; }              \
        static const Char8 *getMName(void) { return "MF" #Name; }              \
    };                                                                         \
    typedef SField<Type, FieldNameSpace> SF##Name;                             \
    typedef MField<Type, FieldNameSpace> MF##Name;
