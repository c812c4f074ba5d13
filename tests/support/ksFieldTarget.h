// SPDX-License-Identifier: MIT
#pragma once

#include <ksundo/field/ksFieldBaseUndoCommand.h>

/// Reads and sets what a field command aims at, which programs cannot.
struct ksFieldTarget : ksFieldBaseUndoCommand
{
    static osg::UInt32 &idOfContainer(ksFieldBaseUndoCommand &command)
    {
        return command.*(&ksFieldTarget::fcId);
    }
    static osg::UInt32 &idOfField(ksFieldBaseUndoCommand &command)
    {
        return command.*(&ksFieldTarget::fieldId);
    }
    static osg::BitVector &maskOf(ksFieldBaseUndoCommand &command)
    {
        return command.*(&ksFieldTarget::fieldMask);
    }
};
