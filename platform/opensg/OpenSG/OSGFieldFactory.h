// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGField.h>
#include <OpenSG/OSGFieldType.h>

#include <map>
#include <mutex>
#include <string>

OSG_BEGIN_NAMESPACE

/// Makes fields by the id or name of their type.
class FieldFactory
{
public:
    static FieldFactory &the(void);

    /// A new field with a default value, or null if there is no such type. The caller deletes it.
    Field *createField(UInt32 typeId) const;
    Field *createField(const Char8 *typeName) const;

    /// Null if there is no such type.
    static FieldType *getFieldType(UInt32 typeId);
    static FieldType *getFieldType(const Char8 *typeName);

    static UInt32 getNFieldTypes(void);

private:
    friend class FieldType;

    FieldFactory(void) = default;
    void registerType(FieldType &type);

    std::mutex _mutex;
    std::map<UInt32, FieldType *> _typesById;
    std::map<std::string, FieldType *> _typesByName;
};

OSG_END_NAMESPACE
