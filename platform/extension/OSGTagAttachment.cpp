// SPDX-License-Identifier: MIT
#include "OSGTagAttachment.h"

OSG_BEGIN_NAMESPACE

OSG_DEFINE_CONTAINER(TagAttachment, Attachment, "", OSG_TAG_ATTACHMENT_FIELDS)

OSG_END_NAMESPACE
