// SPDX-License-Identifier: MIT
#pragma once

#include <portExtension.h>

namespace osg {

class TransformVariant : public FieldContainer
{
    PORT_CREATED_CLASS(TransformVariant)
    PORT_SF(SFString, Name, 1)
    PORT_SF(SField<UInt64>, ApplyFlags, 2)
};

} // namespace osg
