// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGField.h>
#include <OpenSG/OSGSFBaseTypes.h>
#include <OpenSG/OSGSFSysTypes.h>

/// \a field as a \a FieldT when that is exactly its class; null otherwise, and for null.
template <class FieldT>
FieldT *ksFieldCast(osg::Field *field)
{
    const bool isFieldT = field != nullptr && field->getType() == FieldT::getClassType();
    return isFieldT ? static_cast<FieldT *>(field) : nullptr;
}
