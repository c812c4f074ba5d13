// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGBaseTypes.h>

OSG_BEGIN_NAMESPACE

class ChangeList;
class PThreadBase;

/// The state of the calling thread: its aspect, its change list, its thread object. Every access to a
/// container asks for the aspect, so the state lies where it takes one instruction to read.
class ThreadContext
{
public:
    static UInt32 aspect(void) { return _aspect; }
    static ChangeList *changeList(void) { return _changeList; }
    static PThreadBase *thread(void) { return _thread; }

private:
    friend class AspectScope;
    friend class PThreadBase;

    static __thread UInt32 _aspect __attribute__((tls_model("initial-exec")));
    static __thread ChangeList *_changeList __attribute__((tls_model("initial-exec")));
    static __thread PThreadBase *_thread __attribute__((tls_model("initial-exec")));
};

/// Moves the calling thread to another aspect, and back at its end. Used while copies for that aspect are
/// made, synced and destroyed, so that each copy finds and changes the copies of its own aspect. The thread
/// keeps its change list.
class AspectScope
{
public:
    explicit AspectScope(UInt32 aspect)
        : _previous(ThreadContext::_aspect)
    {
        ThreadContext::_aspect = aspect;
    }
    ~AspectScope(void) { ThreadContext::_aspect = _previous; }

    AspectScope(const AspectScope &) = delete;
    AspectScope &operator=(const AspectScope &) = delete;

private:
    const UInt32 _previous;
};

OSG_END_NAMESPACE
