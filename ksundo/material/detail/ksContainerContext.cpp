// SPDX-License-Identifier: MIT
#include <ksundo/core/ksEndEdit.h>
#include <ksundo/core/ksFindContainer.h>
#include <ksundo/material/detail/ksContainerContext.h>

#include <OSGColorComponentSettings.h>
#include <OSGUberMaterial.h>
#include <ksMessage.h>

namespace ksDetail {

void ksContainerContext::touch(unsigned int containerId, unsigned long long mask) const
{
    ksEndEdit(ksFindContainer<osg::FieldContainerPtr>(containerId), mask);
}

ksContainerContext::ksContainerContext(const osg::FieldContainerPtr &first,
                                       const osg::FieldContainerPtr &second)
    : firstId(first.getFieldContainerId())
    , secondId(second.getFieldContainerId())
{}

bool ksContainerContext::isSameContext(const ksContainerContext &other) const
{
    return other.firstId == firstId && other.secondId == secondId;
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
