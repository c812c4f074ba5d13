// SPDX-License-Identifier: MIT
#include <ksundo/core/ksFindContainer.h>
#include <ksundo/core/ksTouch.h>
#include <ksundo/material/ksContainerContext.h>

#include <ksMessage.h>

void ksContainerContext::touch(unsigned int containerId, unsigned long long mask) const
{
    ksTouch(ksFindContainer<osg::FieldContainerPtr>(containerId), mask);
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
