// SPDX-License-Identifier: MIT
#pragma once

#include "OSGColorComponent.h"
#include "OSGColorComponentSettings.h"

#include <OpenSG/OSGMaterial.h>

OSG_BEGIN_NAMESPACE

#define OSG_UBER_MATERIAL_FIELDS(SF, MF)                            \
    MF(MFColorComponentPtr, colorComponentData, ColorComponentData) \
    SF(SFColorComponentSettingsPtr, componentSettings, ComponentSettings, NullFC)

OSG_CONTAINER_POINTER(UberMaterial, MaterialPtr)
OSG_CONTAINER_BASE(UberMaterial, Material, OSG_UBER_MATERIAL_FIELDS)

/// Material whose colour is a blend of components, with settings for their images. It holds a reference on
/// each entry of the list and on the settings. The edits of both are up to the caller.
class UberMaterial : public UberMaterialBase
{
    OSG_CONTAINER_MEMBERS(UberMaterial)

public:
    /// Adds a component at the end and takes a reference on it. Null does nothing.
    void addColorComponent(const ColorComponentPtr &component);

    /// Removes the first such component and releases the reference, which may destroy it. False if there is
    /// none.
    bool subColorComponent(const ColorComponentPtr &component);

    /// Replaces the settings; null takes them away. Releases the old ones, which may destroy them, and takes
    /// a reference on the new ones.
    void setComponentSettings(const ColorComponentSettingsPtr &settings);

    /// What the material looks like from afar: the mean of the colours of its enabled components, by their
    /// weights, without their images. White if none has a weight above 0. Every aspect computes it when an
    /// edit of the colour component data reaches it, and keeps it until the next.
    const Vec3f &getBlendedColor(void) const { return _blendedColor; }

    /// An edit of the colour component data blends the colours anew.
    void changed(BitVector whichField, UInt32 origin) override;

protected:
    UberMaterial(void) = default;

    /// Components and settings are not copied.
    UberMaterial(const UberMaterial &source);
    ~UberMaterial(void) override;

private:
    Vec3f _blendedColor{1, 1, 1};
};

OSG_END_NAMESPACE
