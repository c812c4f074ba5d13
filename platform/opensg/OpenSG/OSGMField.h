// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGSField.h>

#include <algorithm>
#include <vector>

OSG_BEGIN_NAMESPACE

template <class T>
using MFieldVector = std::vector<T>;

/// A field with a list of values; behaves like a vector of them.
template <class T, Int32 FieldNameSpace = 0>
class MField : public Field
{
public:
    typedef MField Self;
    typedef T StoredType;
    typedef MFieldVector<T> StorageType;
    typedef FieldArgument<T> ArgumentType;
    typedef typename FieldDataTraitsOf<T, FieldNameSpace>::Traits Traits;

    typedef typename StorageType::iterator iterator;
    typedef typename StorageType::const_iterator const_iterator;
    typedef typename StorageType::reverse_iterator reverse_iterator;
    typedef typename StorageType::const_reverse_iterator const_reverse_iterator;
    typedef typename StorageType::reference reference;
    typedef typename StorageType::const_reference const_reference;

    MField(void) = default;
    explicit MField(UInt32 size)
        : _values(size)
    {}
    explicit MField(const StorageType &values)
        : _values(values)
    {}
    MField(const MField &) = default;
    MField(MField &&) noexcept = default;
    MField &operator=(const MField &) = default;
    MField &operator=(MField &&) noexcept = default;

    static const FieldType &getClassType(void);
    const FieldType &getType(void) const override { return getClassType(); }

    /// A new field, deleted by the caller.
    static Field *create(void) { return new MField; }

    StorageType &getValues(void) { return _values; }
    const StorageType &getValues(void) const { return _values; }
    void setValues(const StorageType &values) { _values = values; }
    void setValues(const Self &source) { _values = source._values; }

    reference getValue(UInt32 index) { return _values[index]; }
    const_reference getValue(UInt32 index) const { return _values[index]; }
    void setValue(ArgumentType value, UInt32 index) { _values[index] = value; }
    void addValue(ArgumentType value) { _values.push_back(value); }

    bool isEmpty(void) const override { return _values.empty(); }
    UInt32 getSize(void) const override { return static_cast<UInt32>(_values.size()); }

    iterator begin(void) { return _values.begin(); }
    iterator end(void) { return _values.end(); }
    const_iterator begin(void) const { return _values.begin(); }
    const_iterator end(void) const { return _values.end(); }
    reverse_iterator rbegin(void) { return _values.rbegin(); }
    reverse_iterator rend(void) { return _values.rend(); }
    const_reverse_iterator rbegin(void) const { return _values.rbegin(); }
    const_reverse_iterator rend(void) const { return _values.rend(); }

    reference front(void) { return _values.front(); }
    const_reference front(void) const { return _values.front(); }
    reference back(void) { return _values.back(); }
    const_reference back(void) const { return _values.back(); }
    reference operator[](UInt32 index) { return _values[index]; }
    const_reference operator[](UInt32 index) const { return _values[index]; }

    bool empty(void) const { return _values.empty(); }
    UInt32 size(void) const { return getSize(); }
    UInt32 capacity(void) const { return static_cast<UInt32>(_values.capacity()); }
    void reserve(UInt32 count) { _values.reserve(count); }
    void resize(UInt32 count, ArgumentType value = T()) { _values.resize(count, value); }
    void clear(void) { _values.clear(); }
    void push_back(ArgumentType value) { _values.push_back(value); }
    void swap(Self &other) { _values.swap(other._values); }

    /// Inserts before @p position and returns where the value now is.
    iterator insert(iterator position, ArgumentType value) { return _values.insert(position, value); }
    iterator erase(iterator position) { return _values.erase(position); }

    /// The first place with @p value, or end().
    iterator find(ArgumentType value) { return std::find(begin(), end(), value); }
    const_iterator find(ArgumentType value) const { return std::find(begin(), end(), value); }

    void pushValueByStr(const Char8 *text) override
    {
        T value{};
        Traits::getFromString(value, text);
        _values.push_back(value);
    }

    std::string &getValueByStr(std::string &text) const override
    {
        for (UInt32 i = 0; i < getSize(); ++i) {
            if (i > 0) {
                text += ", ";
            }
            Traits::putToString(_values[i], text);
        }
        return text;
    }

    void setAbstrValue(const Field &source) override
    {
        if (source.getType() == getClassType()) {
            setValues(static_cast<const Self &>(source));
        }
    }

    /// Takes over the values that @p source has in another aspect.
    void syncWith(const Self &source) { setValues(source); }

    bool operator==(const MField &other) const { return _values == other._values; }
    bool operator!=(const MField &other) const { return !(*this == other); }

private:
    StorageType _values;
};

template <class T, Int32 FieldNameSpace>
const FieldType &MField<T, FieldNameSpace>::getClassType(void)
{
    static const FieldType &type =
        *new FieldType(Traits::getMName(), Traits::getType(), &MField::create, FieldType::MULTI_FIELD);
    return type;
}

/// Removes the first value equal to @p value, if there is one.
template <class FieldT>
void eraseFirst(FieldT &field, typename FieldT::ArgumentType value)
{
    const auto found = field.find(value);
    if (found != field.end()) {
        field.erase(found);
    }
}

OSG_END_NAMESPACE

/// Makes the fields of one class of values once, for libraries that are linked to the one that says so. @p
/// library is of no importance.
#define OSG_DLLEXPORT_SFIELD_DEF1(Type, library) template class SField<Type>
#define OSG_DLLEXPORT_MFIELD_DEF1(Type, library) template class MField<Type>
