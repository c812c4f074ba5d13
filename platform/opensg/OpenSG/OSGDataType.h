// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGTypeBase.h>

OSG_BEGIN_NAMESPACE

/// The type of a value that fields hold.
class DataType : public TypeBase
{
public:
    explicit DataType(const Char8 *name, const Char8 *parentName = nullptr)
        : TypeBase(name, parentName)
    {}
};

OSG_END_NAMESPACE
