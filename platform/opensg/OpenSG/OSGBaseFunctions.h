// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGBaseTypes.h>

OSG_BEGIN_NAMESPACE

/// Life of the scene graph: Startup until osgInit() has finished, Running, then Shutdown from osgExit() on.
enum SystemState
{
    Startup,
    Running,
    Shutdown
};

extern SystemState GlobalSystemState;

/// Starts the scene graph: the calling thread becomes "OSGAppThread" on aspect 0, the reference-count locks
/// are made, and every known container type gets its parent and its prototype. The thread's change list is
/// empty afterwards, and osgExit() is registered to run at exit. A further call does nothing and returns
/// true; after osgExit() it starts the scene graph again, with new prototypes. To be called before other
/// threads use the scene graph.
///
/// Exits the process with code 1 when @p major differs from the library's. The arguments have no meaning of
/// their own.
bool osgInit(Int32 argc, Char8 **argv, UInt16 major = OSG_MAJOR_VERSION, UInt16 minor = OSG_MINOR_VERSION,
             UInt16 release = OSG_RELEASE_VERSION, bool debug = false, bool dll = true, bool mt = true);

/// Ends the scene graph: the prototypes are released, so that nothing can be made any more, and the calling
/// thread records no changes. Containers that somebody still holds stay, are found by their ids and can be
/// edited and released, also while static objects are destroyed. To be called when no other thread uses the
/// scene graph any more. A second call does nothing. Always true.
bool osgExit(void);

OSG_END_NAMESPACE
