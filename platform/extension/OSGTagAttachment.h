// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGAttachment.h>
#include <OpenSG/OSGSysFieldTypes.h>

OSG_BEGIN_NAMESPACE

#define OSG_TAG_ATTACHMENT_FIELDS(SF, MF) \
    MF(MFString, systemTags, SystemTags)  \
    MF(MFString, userTags, UserTags)      \
    MF(MFString, layerTags, LayerTags)    \
    MF(MFUInt64, tagValues, TagValues)

OSG_CONTAINER_POINTER(TagAttachment, AttachmentPtr)
OSG_CONTAINER_BASE(TagAttachment, Attachment, OSG_TAG_ATTACHMENT_FIELDS)

/// The tags of a node or another container, UTF-8.
///
/// - **systemTags** are the application's own marks, which people do not see.
/// - **userTags** are what people file containers under.
/// - **layerTags** are the names of the layers that the container is shown on.
/// - **tagValues** are the numbers that the application keeps with the user's and the layers' tags.
class TagAttachment : public TagAttachmentBase
{
    OSG_CONTAINER(TagAttachment)
};

OSG_END_NAMESPACE
