// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGBaseFieldTypes.h>
#include <OpenSG/OSGChunkMaterial.h>

OSG_BEGIN_NAMESPACE

#define OSG_SIMPLE_MATERIAL_FIELDS(SF, MF)              \
    SF(SFColor3f, ambient, Ambient, Color3f(0, 0, 0))   \
    SF(SFColor3f, diffuse, Diffuse, Color3f(0, 0, 0))   \
    SF(SFColor3f, specular, Specular, Color3f(0, 0, 0)) \
    SF(SFReal32, shininess, Shininess, 1)               \
    SF(SFColor3f, emission, Emission, Color3f(0, 0, 0)) \
    SF(SFReal32, transparency, Transparency, 0)         \
    SF(SFBool, lit, Lit, true)                          \
    SF(SFGLenum, colorMaterial, ColorMaterial, 0x1201)

OSG_CONTAINER_POINTER(SimpleMaterial, ChunkMaterialPtr)
OSG_CONTAINER_BASE(SimpleMaterial, ChunkMaterial, OSG_SIMPLE_MATERIAL_FIELDS)

/// Material of a few colours. Shininess is the exponent of highlights, transparency goes from 0, opaque,
/// to 1. The colour material has OpenGL's values.
class SimpleMaterial : public SimpleMaterialBase
{
    OSG_CONTAINER(SimpleMaterial)
};

OSG_END_NAMESPACE
