// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGField.h>
#include <OpenSG/OSGFieldContainer.h>
#include <OpenSG/OSGSFBaseTypes.h>
#include <OpenSG/OSGSFSysTypes.h>

namespace ksDetail {

/// The field of \a container with the id \a fieldId, counted from 1; null when there is none, and for NullFC.
inline osg::Field *ksFindField(const osg::FieldContainerPtr &container, osg::UInt32 fieldId)
{
    return container == osg::NullFC ? nullptr : container->getField(fieldId);
}

/// \a field as a \a FieldT when that is exactly its class; null otherwise, and for null.
template <class FieldT>
FieldT *ksFieldCast(osg::Field *field)
{
    const bool isFieldT = field != nullptr && field->getType() == FieldT::getClassType();
    return isFieldT ? static_cast<FieldT *>(field) : nullptr;
}

} // namespace ksDetail
