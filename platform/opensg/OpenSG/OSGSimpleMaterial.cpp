// SPDX-License-Identifier: MIT
#include <OpenSG/OSGSimpleMaterial.h>

OSG_BEGIN_NAMESPACE

OSG_DEFINE_CONTAINER(SimpleMaterial, ChunkMaterial, "", OSG_SIMPLE_MATERIAL_FIELDS)

OSG_END_NAMESPACE
