// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGConfig.h>
#include <OpenSG/OSGContainerMacros.h>
#include <OpenSG/OSGFieldContainer.h>

OSG_BEGIN_NAMESPACE

#define OSG_BYSTANDER_FIELDS(SF, MF)

OSG_CONTAINER_POINTER(Bystander, FieldContainerPtr)
OSG_CONTAINER_BASE(Bystander, FieldContainer, OSG_BYSTANDER_FIELDS)

/// A container of a type that no command is for, without a field of its own.
class Bystander : public BystanderBase
{
    OSG_CONTAINER(Bystander)
};

OSG_END_NAMESPACE
