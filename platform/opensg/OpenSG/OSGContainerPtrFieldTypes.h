// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGContainerMacros.h>

#include <map>

/// @file
/// Fields of the handles that most containers refer to each other with.

OSG_BEGIN_NAMESPACE

OSG_FIELD_VALUE(FieldDataTraits, 0, FieldContainerPtr, FieldContainerPtr)
OSG_FIELD_VALUE(FieldDataTraits, 0, AttachmentContainerPtr, AttachmentContainerPtr)
OSG_FIELD_VALUE(FieldDataTraits, 0, AttachmentPtr, AttachmentPtr)
OSG_FIELD_VALUE(FieldDataTraits, 0, NodePtr, NodePtr)
OSG_CONTAINER_POINTER(NodeCore, AttachmentContainerPtr)

/// Attachments by (group id << 16) | binding.
typedef std::map<UInt32, AttachmentPtr> AttachmentMap;

/// "key id" of all attachments, separated by spaces. Reading takes no references.
template <>
struct ValueText<AttachmentMap>
{
    static bool getFromString(AttachmentMap &value, const Char8 *text);
    static void putToString(const AttachmentMap &value, std::string &text);
};

OSG_FIELD_VALUE(FieldDataTraits, 0, AttachmentMap, AttachmentMap)

OSG_END_NAMESPACE
