// SPDX-License-Identifier: MIT
#include <ksundo/core/ksEndEdit.h>
#include <ksundo/core/ksFindContainer.h>
#include <ksundo/material/detail/ksContainerContext.h>

#include <OSGColorComponentSettings.h>
#include <OSGUberMaterial.h>
#include <ksMessage.h>

namespace ksDetail {

void ksContainerContext::touch(unsigned int containerId, osg::BitVector mask) const
{
    ksEndEdit(ksFindContainer<osg::FieldContainerPtr>(containerId), mask);
}

void ksContainerContext::addContext(ksMessage &message, const char *firstKey, const char *secondKey) const
{
    if (firstId != 0)
        message.set(firstKey, firstId, true);
    if (secondId != 0)
        message.set(secondKey, secondId, true);
}

void ksContainerContext::touchMaterial() const
{
    touch(secondId, osg::ColorComponentSettingsBase::PlanarProjectionFieldMask);
    touch(firstId, osg::UberMaterialBase::ColorComponentDataFieldMask);
}

} // namespace ksDetail
