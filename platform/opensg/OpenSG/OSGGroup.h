// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGCoredNodePtr.h>
#include <OpenSG/OSGNodeCore.h>

OSG_BEGIN_NAMESPACE

#define OSG_GROUP_FIELDS(SF, MF)

OSG_CONTAINER_POINTER(Group, NodeCorePtr)
OSG_CONTAINER_BASE(Group, NodeCore, OSG_GROUP_FIELDS)

/// Core of a node that only holds its children together.
class Group : public GroupBase
{
    OSG_CONTAINER(Group)
};

OSG_END_NAMESPACE
