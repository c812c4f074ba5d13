// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGMFBaseTypes.h>
#include <OpenSG/OSGNodeCore.h>
#include <OpenSG/OSGSFSysTypes.h>

OSG_BEGIN_NAMESPACE

#define OSG_LAMP_FIELDS(SF, MF)       \
    SF(SFReal32, power, Power, 40.0f) \
    MF(MFString, labels, Labels)      \
    SF(InternalField<SFReal32>, heat, Heat, 0.0f)

OSG_CONTAINER_POINTER(Lamp, NodeCorePtr)
OSG_CONTAINER_BASE(Lamp, NodeCore, OSG_LAMP_FIELDS)

/// A lamp that warms up with its power.
class Lamp : public LampBase
{
    OSG_CONTAINER(Lamp)

public:
    void changed(BitVector whichField, UInt32 origin) override;
};

OSG_END_NAMESPACE
