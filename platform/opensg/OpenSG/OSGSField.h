// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGField.h>
#include <OpenSG/OSGFieldDataTraits.h>

OSG_BEGIN_NAMESPACE

/// How values travel into fields: numbers by value, others by reference.
template <class T>
using FieldArgument = std::conditional_t<std::is_scalar_v<T>, T, const T &>;

/// A field with one value. @a FieldNameSpace picks the family of value types, see FieldDataTraits.
template <class T, Int32 FieldNameSpace = 0>
class SField : public Field
{
public:
    typedef SField Self;
    typedef T StoredType;
    typedef FieldArgument<T> ArgumentType;
    typedef typename FieldDataTraitsOf<T, FieldNameSpace>::Traits Traits;

    SField(void)
        : _value()
    {}
    explicit SField(ArgumentType value)
        : _value(value)
    {}
    SField(const SField &) = default;
    SField &operator=(const SField &) = default;

    static const FieldType &getClassType(void);
    const FieldType &getType(void) const override { return getClassType(); }

    /// A new field, deleted by the caller.
    static Field *create(void) { return new SField; }

    T &getValue(void) { return _value; }
    const T &getValue(void) const { return _value; }
    void setValue(ArgumentType value) { _value = value; }
    void setValue(const Self &source) { _value = source._value; }

    bool isEmpty(void) const override { return false; }
    UInt32 getSize(void) const override { return 1; }

    void pushValueByStr(const Char8 *text) override { Traits::getFromString(_value, text); }

    std::string &getValueByStr(std::string &text) const override
    {
        text.clear();
        Traits::putToString(_value, text);
        return text;
    }

    void setAbstrValue(const Field &source) override
    {
        if (source.getType() == getClassType()) {
            setValue(static_cast<const Self &>(source));
        }
    }

    /// Takes over the value that @p source has in another aspect.
    void syncWith(const Self &source) { setValue(source); }

    bool operator==(const SField &other) const { return _value == other._value; }
    bool operator!=(const SField &other) const { return !(*this == other); }

private:
    T _value;
};

template <class T, Int32 FieldNameSpace>
const FieldType &SField<T, FieldNameSpace>::getClassType(void)
{
    static const FieldType &type =
        *new FieldType(Traits::getSName(), Traits::getType(), &SField::create, FieldType::SINGLE_FIELD);
    return type;
}

OSG_END_NAMESPACE
