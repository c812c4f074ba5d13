// SPDX-License-Identifier: MIT
#include "OSGLamp.h"

OSG_BEGIN_NAMESPACE

OSG_DEFINE_CONTAINER(Lamp, NodeCore, "", OSG_LAMP_FIELDS)

void Lamp::changed(BitVector whichField, UInt32 origin)
{
    if (whichField & PowerFieldMask) {
        setHeat(getPower() * 0.9f);
    }
    Inherited::changed(whichField, origin);
}

OSG_END_NAMESPACE
