// SPDX-License-Identifier: MIT
#include <OpenSG/OSGMaterial.h>

OSG_BEGIN_NAMESPACE

OSG_DEFINE_ABSTRACT_CONTAINER(Material, AttachmentContainer, "", OSG_MATERIAL_FIELDS)

OSG_END_NAMESPACE
