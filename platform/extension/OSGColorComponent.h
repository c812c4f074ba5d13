// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGBaseFieldTypes.h>
#include <OpenSG/OSGImage.h>
#include <OpenSG/OSGVecFieldTypes.h>

OSG_BEGIN_NAMESPACE

#define OSG_COLOR_COMPONENT_FIELDS(SF, MF)    \
    SF(SFVec3f, color, Color, Vec3f(1, 1, 1)) \
    SF(SFReal32, weight, Weight, 1)           \
    SF(SFBool, enabled, Enabled, true)        \
    SF(SFImagePtr, image, Image, NullFC)

OSG_CONTAINER_POINTER(ColorComponent, AttachmentContainerPtr)
OSG_CONTAINER_BASE(ColorComponent, AttachmentContainer, OSG_COLOR_COMPONENT_FIELDS)

/// One of the layers of a material's colour: a colour (red, green, blue; 1 is full), multiplied by an image
/// if there is one, with a weight among the others. It does not know the materials that have it: whoever
/// edits it has to end an edit of their colour component data as well.
class ColorComponent : public ColorComponentBase
{
    OSG_CONTAINER_MEMBERS(ColorComponent)

public:
    /// Replaces the image; null takes it away. Releases the old one, which may destroy it, and takes a
    /// reference on the new one. The edit of this component is up to the caller.
    void setImage(const ImagePtr &image);

protected:
    ColorComponent(void) = default;

    /// The image is not copied.
    ColorComponent(const ColorComponent &source);
    ~ColorComponent(void) override;
};

OSG_END_NAMESPACE
