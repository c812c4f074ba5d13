// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGImage.h>
#include <OpenSG/OSGSimpleMaterial.h>

OSG_BEGIN_NAMESPACE

#define OSG_SIMPLE_TEXTURED_MATERIAL_FIELDS(SF, MF) \
    SF(SFImagePtr, image, Image, NullFC)            \
    SF(SFGLenum, minFilter, MinFilter, 0x2703)      \
    SF(SFGLenum, magFilter, MagFilter, 0x2601)      \
    SF(SFGLenum, envMode, EnvMode, 0x1E01)          \
    SF(SFBool, envMap, EnvMap, false)

OSG_CONTAINER_POINTER(SimpleTexturedMaterial, SimpleMaterialPtr)
OSG_CONTAINER_BASE(SimpleTexturedMaterial, SimpleMaterial, OSG_SIMPLE_TEXTURED_MATERIAL_FIELDS)

/// Material of a few colours and an image. The filters (trilinear at first) and the mode (replace at first)
/// have OpenGL's values; with envMap the image surrounds the object. A copy has no image.
class SimpleTexturedMaterial : public SimpleTexturedMaterialBase
{
    OSG_CONTAINER_MEMBERS(SimpleTexturedMaterial)

public:
    /// Replaces the image; null takes it away. Takes a reference on it and edits its parents, and releases
    /// the old one likewise. The edit of this material is up to the caller.
    void setImage(const ImagePtr &image);

protected:
    SimpleTexturedMaterial(void) = default;
    SimpleTexturedMaterial(const SimpleTexturedMaterial &source);
    ~SimpleTexturedMaterial(void) override;
};

OSG_END_NAMESPACE
