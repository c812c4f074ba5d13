// SPDX-License-Identifier: MIT
#pragma once

#include <ksundo/transform/ksFunctionUndoCommand.h>

/// Reads and sets what a function command holds, which programs cannot.
template <class T>
struct ksFunctionTarget : ksFunctionUndoCommand<T>
{
    static osg::UInt32 &idOf(ksFunctionUndoCommand<T> &command)
    {
        return command.*(&ksFunctionTarget::nodeId);
    }
    static T &valueOf(ksFunctionUndoCommand<T> &command) { return command.*(&ksFunctionTarget::value); }
};
