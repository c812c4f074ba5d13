// SPDX-License-Identifier: MIT
#pragma once

#include <ksundo/material/ksContainerContext.h>

#include <OSGColorComponentSettings.h>
#include <OSGUberMaterial.h>

/// Touches the planar projection of component settings, then the colour components of their material, in the
/// name of a command in whose context they are.
inline void ksTouchMaterial(const ksContainerContext &context, osg::UInt32 materialId, osg::UInt32 settingsId)
{
    context.touch(settingsId, osg::ColorComponentSettingsBase::PlanarProjectionFieldMask);
    context.touch(materialId, osg::UberMaterialBase::ColorComponentDataFieldMask);
}
