// SPDX-License-Identifier: MIT
#pragma once

#include <portValues.h>
#include <sstream>
#include <string>
#include <vector>

namespace osg {

class FieldContainer;

class TypeBase
{
public:
    explicit TypeBase(const Char8 *name);

    UInt32 getId() const { return _id; }
    const Char8 *getCName() const { return _name.c_str(); }

    bool operator==(const TypeBase &other) const { return _id == other._id; }
    bool operator!=(const TypeBase &other) const { return _id != other._id; }

private:
    UInt32 _id;
    std::string _name;
};

class FieldType : public TypeBase
{
public:
    using TypeBase::TypeBase;
};

class Field
{
public:
    virtual ~Field() = default;

    virtual const FieldType &getType() const = 0;
    virtual std::string &getValueByStr(std::string &text) const = 0;
};

/// A field of one value. The number tells apart fields whose values C++ cannot.
template <class T, Int32 fieldNamespace = 0>
class SField : public Field
{
public:
    SField() = default;
    explicit SField(const T &value)
        : _value(value)
    {}

    static const FieldType &getClassType() { return _type; }
    const FieldType &getType() const override { return _type; }

    const T &getValue() const { return _value; }
    T &getValue() { return _value; }
    void setValue(const T &value) { _value = value; }

    std::string &getValueByStr(std::string &text) const override
    {
        std::ostringstream stream;
        stream << _value;
        return text = stream.str();
    }

private:
    static FieldType _type;

    T _value = {};
};

// One in the process, as long as nobody hides it.
template <class T, Int32 fieldNamespace>
FieldType SField<T, fieldNamespace>::_type("SField");

template <class T, Int32 fieldNamespace = 0>
class MField : public Field
{
public:
    typedef std::vector<T> StorageType;
    typedef typename StorageType::iterator iterator;
    typedef typename StorageType::const_iterator const_iterator;

    static const FieldType &getClassType() { return _type; }
    const FieldType &getType() const override { return _type; }

    iterator begin() { return _values.begin(); }
    iterator end() { return _values.end(); }
    const_iterator begin() const { return _values.begin(); }
    const_iterator end() const { return _values.end(); }
    UInt32 size() const { return static_cast<UInt32>(_values.size()); }
    T &operator[](UInt32 i) { return _values[i]; }
    const T &operator[](UInt32 i) const { return _values[i]; }
    void clear() { _values.clear(); }
    void resize(UInt32 size) { _values.resize(size); }
    void push_back(const T &value) { _values.push_back(value); }
    void insert(iterator place, const T &value) { _values.insert(place, value); }
    iterator erase(iterator place) { return _values.erase(place); }

    std::string &getValueByStr(std::string &text) const override
    {
        std::ostringstream stream;
        for (const T &value : _values)
            stream << value << ' ';
        return text = stream.str();
    }

private:
    static FieldType _type;

    StorageType _values;
};

template <class T, Int32 fieldNamespace>
FieldType MField<T, fieldNamespace>::_type("MField");

typedef SField<bool, 2> SFBool;
typedef SField<Int32> SFInt32;
typedef SField<UInt32> SFUInt32;
typedef SField<Real32> SFReal32;
typedef SField<std::string> SFString;
typedef SField<Vec3f> SFVec3f;
typedef MField<std::string> MFString;

class FieldDescription
{
public:
    typedef Field *(*Access)(FieldContainer &);

    FieldDescription(const Char8 *name, UInt32 id, Access access)
        : _name(name)
        , _id(id)
        , _access(access)
    {}

    const Char8 *getCName() const { return _name; }
    UInt32 getFieldId() const { return _id; }
    BitVector getFieldMask() const { return BitVector(1) << _id; }

protected:
    friend class FieldContainer;
    Field *getField(FieldContainer &container) const { return _access(container); }

private:
    const Char8 *_name;
    UInt32 _id;
    Access _access;
};

} // namespace osg
