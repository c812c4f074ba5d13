// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGAttachment.h>

OSG_BEGIN_NAMESPACE

#define OSG_STATE_CHUNK_FIELDS(SF, MF) SF(SFBool, ignore, Ignore, false)

OSG_CONTAINER_POINTER(StateChunk, AttachmentPtr)
OSG_ABSTRACT_CONTAINER_BASE(StateChunk, Attachment, OSG_STATE_CHUNK_FIELDS)

/// A part of what a material sets before surfaces are drawn, unless it is to be ignored.
class StateChunk : public StateChunkBase
{
    OSG_CONTAINER(StateChunk)
};

OSG_END_NAMESPACE
