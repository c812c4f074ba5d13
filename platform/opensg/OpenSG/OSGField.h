// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGFieldType.h>

#include <string>

OSG_BEGIN_NAMESPACE

/// One field of a container, or a field on its own: a value (SField) or a list of values (MField).
class Field
{
public:
    virtual ~Field(void) = default;

    virtual const FieldType &getType(void) const = 0;
    const DataType &getContentType(void) const { return getType().getContentType(); }
    FieldType::Cardinality getCardinality(void) const { return getType().getCardinality(); }

    /// A single field is never empty and has size 1.
    virtual bool isEmpty(void) const = 0;
    virtual UInt32 getSize(void) const = 0;

    /// Sets the value of a single field; text that says nothing of one changes nothing. Appends a value to a
    /// list, zero if the text says nothing of one. Numbers are read as far as they go, see ValueText.
    virtual void pushValueByStr(const Char8 *text) = 0;

    /// Writes the value to @p text and returns it. Those of a list are appended, separated by ", ".
    virtual std::string &getValueByStr(std::string &text) const = 0;

    /// Copies @p source if it is of exactly the same type, else does nothing. No container's reference count
    /// changes.
    virtual void setAbstrValue(const Field &source) = 0;

    /// Writes type and value to the log.
    void dump(void) const;

protected:
    Field(void) = default;
    Field(const Field &) = default;
    Field &operator=(const Field &) = default;
};

OSG_END_NAMESPACE
