// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGIDString.h>

OSG_BEGIN_NAMESPACE

/// A type known at run time: of a value, a field or a container. Ids are unique across all kinds of types;
/// they follow the order of registration, so they differ from program to program.
class TypeBase
{
public:
    TypeBase(const Char8 *name, const Char8 *parentName);
    TypeBase(const TypeBase &) = delete;
    TypeBase &operator=(const TypeBase &) = delete;
    virtual ~TypeBase(void);

    UInt32 getId(void) const { return _id; }

    const IDString &getName(void) const { return _name; }
    const Char8 *getCName(void) const { return _name.str(); }

    /// Empty for a type without a parent.
    const IDString &getParentName(void) const { return _parentName; }
    const Char8 *getCParentName(void) const { return _parentName.str(); }

    /// Always false: only container types know their parents, and ask with a container type.
    virtual bool isDerivedFrom(const TypeBase &other) const;

    bool operator==(const TypeBase &other) const { return _id == other._id; }
    bool operator!=(const TypeBase &other) const { return _id != other._id; }

private:
    const UInt32 _id;
    const IDString _name;
    const IDString _parentName;
};

OSG_END_NAMESPACE
