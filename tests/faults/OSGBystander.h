// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGConfig.h>
#include <OpenSG/OSGContainerMacros.h>
#include <OpenSG/OSGFieldContainer.h>
#include <OpenSG/OSGMFBaseTypes.h>
#include <OpenSG/OSGSFSysTypes.h>

OSG_BEGIN_NAMESPACE

// clang-format off
#define OSG_BYSTANDER_FIELDS(SF, MF)         \
    SF(SFUInt64, first, First, 0)            \
    SF(SFInt64, second, Second, 0)           \
    SF(SFUInt32, third, Third, 0)            \
    SF(SFInt32, fourth, Fourth, 0)           \
    SF(SFUInt16, fifth, Fifth, 0)            \
    SF(SFInt16, sixth, Sixth, 0)             \
    SF(SFUInt8, seventh, Seventh, 0)         \
    SF(SFInt8, eighth, Eighth, 0)            \
    SF(SFReal64, ninth, Ninth, 0)            \
    SF(SFReal32, tenth, Tenth, 0)            \
    SF(SFReal32, eleventh, Eleventh, 0)      \
    MF(MFString, twelfth, Twelfth)
// clang-format on

OSG_CONTAINER_POINTER(Bystander, FieldContainerPtr)
OSG_CONTAINER_BASE(Bystander, FieldContainer, OSG_BYSTANDER_FIELDS)

/// A container of a type that no command is for. Each field is of a class next to that of the field with the
/// same id in osg::ProbeContainer.
class Bystander : public BystanderBase
{
    OSG_CONTAINER(Bystander)
};

OSG_END_NAMESPACE
