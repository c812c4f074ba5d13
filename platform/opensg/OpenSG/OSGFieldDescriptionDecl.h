// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGFieldContainerPtrDecl.h>
#include <OpenSG/OSGTypeBase.h>

#include <string>

OSG_BEGIN_NAMESPACE

class Field;

/// Gives a container's field.
typedef Field *(FieldContainer::*FieldAccessMethod)(void);

/// Gives a container's field by its id.
typedef Field *(FieldContainer::*FieldIndexAccessMethod)(UInt32);

/// Describes one field of a container type.
class FieldDescription
{
public:
    /// @param fieldType     what the field says it is; trust the field's own getType()
    /// @param id            from 1, without gaps over a type and its parents
    /// @param mask          the bit of the id
    /// @param internal      true: kept by the container itself, not to be edited or saved
    /// @param accessMethod  null: the field cannot be reached by the description
    /// @param defaultValue  text of the value at first, or null
    FieldDescription(const TypeBase &fieldType, const Char8 *name, UInt32 id, BitVector mask, bool internal,
                     FieldAccessMethod accessMethod, const Char8 *defaultValue = nullptr);
    FieldDescription(const TypeBase &fieldType, const Char8 *name, UInt32 id, BitVector mask, bool internal,
                     FieldIndexAccessMethod accessMethod, const Char8 *defaultValue = nullptr);

    const IDString &getName(void) const { return _name; }
    const Char8 *getCName(void) const { return _name.str(); }
    UInt32 getFieldId(void) const { return _fieldId; }
    BitVector getFieldMask(void) const { return _fieldMask; }

    /// Type that the description declares, and its id.
    const TypeBase &getFieldType(void) const { return _fieldType; }
    UInt32 getTypeId(void) const { return _fieldType.getId(); }

    /// Null if none was given.
    const Char8 *getDefaultValue(void) const { return _hasDefault ? _defaultValue.c_str() : nullptr; }

    bool isInternal(void) const { return _internal; }

    /// True if id and name are given.
    bool isValid(void) const { return _fieldId != 0 && !_name.isEmpty(); }

    /// The container's field, in the copy for the calling thread's aspect if a handle is given. The container
    /// must be of the described type. Null for a null handle; also null, with a warning in the log, without
    /// an access method.
    Field *getField(FieldContainer &container) const;
    Field *getField(const FieldContainerPtr &container) const;

private:
    const TypeBase &_fieldType;
    const IDString _name;
    const UInt32 _fieldId;
    const BitVector _fieldMask;
    const bool _internal;
    const bool _hasDefault;
    const std::string _defaultValue;
    const FieldAccessMethod _accessMethod = nullptr;
    const FieldIndexAccessMethod _indexAccessMethod = nullptr;
};

OSG_END_NAMESPACE
