// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGAttachmentContainer.h>
#include <OpenSG/OSGBaseFieldTypes.h>
#include <OpenSG/OSGSysFieldTypes.h>
#include <OpenSG/OSGVecFieldTypes.h>

OSG_BEGIN_NAMESPACE

#define OSG_COLOR_COMPONENT_SETTINGS_FIELDS(SF, MF)        \
    SF(SFVec2f, mappingScale, MappingScale, Vec2f(1, 1))   \
    SF(SFVec2f, mappingOffset, MappingOffset, Vec2f(0, 0)) \
    SF(SFReal32, mappingRotation, MappingRotation, 0)      \
    SF(SFBool, planarProjection, PlanarProjection, false)  \
    SF(SFReal32, projectionSize, ProjectionSize, 1)

OSG_CONTAINER_POINTER(ColorComponentSettings, AttachmentContainerPtr)
OSG_CONTAINER_BASE(ColorComponentSettings, AttachmentContainer, OSG_COLOR_COMPONENT_SETTINGS_FIELDS)

/// How the images of a material's colour components lie on surfaces. Texture coordinates are scaled, then
/// turned by **mappingRotation** (degrees, counter-clockwise), then moved by **mappingOffset**. With
/// **planarProjection** they are not those of the surface: the images are thrown onto it along the z axis, in
/// squares of **projectionSize** units of the scene.
class ColorComponentSettings : public ColorComponentSettingsBase
{
    OSG_CONTAINER(ColorComponentSettings)
};

OSG_END_NAMESPACE
