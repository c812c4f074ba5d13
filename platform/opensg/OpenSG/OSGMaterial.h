// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGAttachmentContainer.h>
#include <OpenSG/OSGSysFieldTypes.h>

OSG_BEGIN_NAMESPACE

#define OSG_MATERIAL_FIELDS(SF, MF)  \
    SF(SFInt32, sortKey, SortKey, 0) \
    SF(SFInt32, transparencyMode, TransparencyMode, 0)

OSG_CONTAINER_POINTER(Material, AttachmentContainerPtr)
OSG_ABSTRACT_CONTAINER_BASE(Material, AttachmentContainer, OSG_MATERIAL_FIELDS)

/// How surfaces look. Materials are drawn by sort key; the transparency mode is the renderer's.
class Material : public MaterialBase
{
    OSG_CONTAINER(Material)
};

OSG_END_NAMESPACE
