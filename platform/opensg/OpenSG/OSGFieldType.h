// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGDataType.h>

OSG_BEGIN_NAMESPACE

class Field;

/// The type of a field: how many values of which type, and how to make one.
class FieldType : public DataType
{
public:
    enum Cardinality
    {
        SINGLE_FIELD,
        MULTI_FIELD
    };

    typedef Field *(*CreateFieldMethod)(void);

    /// Registers the type with the field factory, for the rest of the process.
    FieldType(const Char8 *name, const DataType &contentType, CreateFieldMethod createMethod,
              Cardinality cardinality);

    const DataType &getContentType(void) const { return _contentType; }
    Cardinality getCardinality(void) const { return _cardinality; }

    /// A new field with a default value; the caller deletes it.
    Field *createField(void) const { return _createMethod(); }

private:
    const DataType &_contentType;
    const CreateFieldMethod _createMethod;
    const Cardinality _cardinality;
};

OSG_END_NAMESPACE
