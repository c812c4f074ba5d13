// SPDX-License-Identifier: MIT
#pragma once

#include <portExtension.h>

namespace osg {

class ConstraintObject : public AttachmentContainer
{
    PORT_CREATED_CLASS(ConstraintObject)
    PORT_SF(SFUInt32, Referred, AttachmentContainer::NextFieldId)
};

} // namespace osg
