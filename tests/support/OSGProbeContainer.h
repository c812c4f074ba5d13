// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGConfig.h>
#include <OpenSG/OSGContainerMacros.h>
#include <OpenSG/OSGFieldContainer.h>
#include <OpenSG/OSGMFBaseTypes.h>
#include <OpenSG/OSGMFSysTypes.h>
#include <OpenSG/OSGSFBaseTypes.h>
#include <OpenSG/OSGSFSysTypes.h>

#include <string>
#include <vector>

OSG_BEGIN_NAMESPACE

OSG_CONTAINER_POINTER(ProbeContainer, FieldContainerPtr)

// clang-format off
#define OSG_PROBE_CONTAINER_FIELDS(SF, MF)       \
    SF(SFInt64, int64, Int64, 0)                 \
    SF(SFUInt64, uint64, UInt64, 0)              \
    SF(SFInt32, int32, Int32, 0)                 \
    SF(SFUInt32, uint32, UInt32, 0)              \
    SF(SFInt16, int16, Int16, 0)                 \
    SF(SFUInt16, uint16, UInt16, 0)              \
    SF(SFInt8, int8, Int8, 0)                    \
    SF(SFUInt8, uint8, UInt8, 0)                 \
    SF(SFReal32, real32, Real32, 0)              \
    SF(SFReal64, real64, Real64, 0)              \
    SF(SFBool, flag, Flag, false)                \
    SF(SFString, text, Text, "")                 \
    SF(SFGLenum, glEnum, GlEnum, 0)              \
    SF(SFTime, time, Time, 0)                    \
    SF(SFString, label, Label, "")               \
    MF(MFInt32, numbers, Numbers)                \
    MF(MFString, words, Words)                   \
    MF(MFString, tags, Tags)                     \
    SF(SFInt32, parents, OwnParents, 0)          \
    SF(SFInt32, Parents, OtherParents, 0)        \
    SF(SFInt32, Level, FirstLevel, 0)            \
    SF(SFInt32, level, SecondLevel, 0)           \
    SF(SFInt32, q, Q, 0)
// clang-format on

OSG_CONTAINER_BASE(ProbeContainer, FieldContainer, OSG_PROBE_CONTAINER_FIELDS)

/// A container with a field of every class that field commands know, and some that they do not, which notes
/// how its change handler is called. Its second field has the mask that a node's volume has.
class ProbeContainer : public ProbeContainerBase
{
    OSG_CONTAINER(ProbeContainer)

public:
    /// One call of the change handler: what it was told, the value of the field at that time, and how many
    /// changes the thread's change list held.
    struct Call
    {
        BitVector mask;
        UInt32 origin;
        std::string value;
        UInt32 recorded;
    };

    void changed(BitVector whichField, UInt32 origin) override;

    /// The calls of all probes since the last time.
    static std::vector<Call> takeCalls();
};

OSG_END_NAMESPACE
