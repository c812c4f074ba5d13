// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGSFSysTypes.h>

/// @file
/// The fields whose value is one plain number.

namespace ksNumericFields {

/// Calls \a visit with \a field as the SField<T> that it is, when T is one of \a Ts; tells whether it was.
template <class... Ts, class Visit>
bool visitAs(osg::Field &field, Visit &&visit)
{
    const auto visitOne = [&field, &visit](auto *typed) {
        using FieldT = std::remove_pointer_t<decltype(typed)>;
        if (field.getType() != FieldT::getClassType())
            return false;
        visit(static_cast<FieldT &>(field));
        return true;
    };
    return (visitOne(static_cast<osg::SField<Ts> *>(nullptr)) || ...);
}

/// The same for the ten number types that the library's commands edit: integers of 8 to 64 bits, with and
/// without sign, and floating-point numbers of 32 and 64 bits.
template <class Visit>
bool visit(osg::Field &field, Visit &&visit)
{
    return visitAs<osg::Int64, osg::UInt64, osg::Int32, osg::UInt32, osg::Int16, osg::UInt16, osg::Int8,
                   osg::UInt8, osg::Real32, osg::Real64>(field, visit);
}

} // namespace ksNumericFields
