// SPDX-License-Identifier: MIT
#include "OSGConstraintObject.h"

OSG_BEGIN_NAMESPACE

OSG_DEFINE_CONTAINER(ConstraintObject, AttachmentContainer, "", OSG_CONSTRAINT_OBJECT_FIELDS)

AttachmentContainerPtr ConstraintObject::getNode(void) const
{
    return AttachmentContainerPtr::dcast(FieldContainerFactory::the()->getContainer(getNodeId()));
}

void ConstraintObject::setNode(const AttachmentContainerPtr &node)
{
    setNodeId(node.getFieldContainerId());
}

OSG_END_NAMESPACE
