// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGGroup.h>
#include <OpenSG/OSGSysFieldTypes.h>

OSG_BEGIN_NAMESPACE

#define OSG_SWITCH_FIELDS(SF, MF) SF(SFInt32, choice, Choice, -1)

OSG_CONTAINER_POINTER(Switch, GroupPtr)
OSG_CONTAINER_BASE(Switch, Group, OSG_SWITCH_FIELDS)

/// Core of a node that shows the child at position `choice`; -1 shows none, -2 all.
class Switch : public SwitchBase
{
    OSG_CONTAINER(Switch)

public:
    enum
    {
        NONE = -1,
        ALL = -2
    };
};

OSG_END_NAMESPACE
