// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGChangeList.h>
#include <OpenSG/OSGIDString.h>
#include <OpenSG/OSGThreadContext.h>

#include <functional>
#include <thread>

OSG_BEGIN_NAMESPACE

/// A thread with a name.
class BaseThread
{
public:
    BaseThread(const BaseThread &) = delete;
    BaseThread &operator=(const BaseThread &) = delete;
    virtual ~BaseThread(void) = default;

    const Char8 *getCName(void) const { return _name.str(); }

    /// Waits for the end of the thread's run.
    static void join(BaseThread *thread);

protected:
    explicit BaseThread(const Char8 *name)
        : _name(name)
    {}

    std::thread _thread;

private:
    const IDString _name;
};

/// A thread that works on the scene: it has an aspect and a change list. What such threads may do at the same
/// time, and what only while the others wait, is in docs/architecture.md, "Threads".
class ThreadCommonBase : public BaseThread
{
public:
    ~ThreadCommonBase(void) override;

    /// Owned by the thread, which may record to it at any time: others touch it while that one waits.
    ChangeList *getChangeList(void) { return _changeList; }

protected:
    explicit ThreadCommonBase(const Char8 *name);

    ChangeList *const _changeList;
};

class PThreadBase : public ThreadCommonBase
{
public:
    /// The calling thread's aspect; 0 unless it was started or initialised with another one.
    static UInt32 getAspect(void) { return ThreadContext::aspect(); }

    /// The list that the calling thread records to. Null before osgInit(), after osgExit() and in a foreign
    /// thread.
    static ChangeList *getCurrentChangeList(void) { return ThreadContext::changeList(); }

    /// The calling thread's object, or null.
    static PThreadBase *getCurrent(void) { return ThreadContext::thread(); }

protected:
    explicit PThreadBase(const Char8 *name);
    ~PThreadBase(void) override = default;

    /// Makes the calling thread this one, working on @p aspect.
    void enter(UInt32 aspect);

    /// Makes the calling thread a foreign one.
    static void leave(void);

private:
    friend bool osgInit(Int32 argc, Char8 **argv, UInt16 major, UInt16 minor, UInt16 release, bool debug,
                        bool dll, bool mt);
    friend bool osgExit(void);
};

typedef PThreadBase ThreadBase;

/// The work of a thread, with an argument.
typedef void (*ThreadFuncF)(void *);

/// A thread that the scene graph runs. Started and joined by one thread at a time.
class Thread : public PThreadBase
{
public:
    /// The thread of that name; made if there is none. Owned by the thread manager.
    static Thread *get(const Char8 *name);

    /// Null if there is no such thread.
    static Thread *find(const Char8 *name);

    /// Waits for the end of a run that is under way.
    ~Thread(void) override;

    /// Runs workProc() in a thread of its own, on @p aspect; waits for the end of the previous run first.
    void run(UInt32 aspect);

    /// Runs @p work instead of workProc(). Always true.
    bool runFunction(std::function<void(void)> work, UInt32 aspect);
    bool runFunction(ThreadFuncF work, UInt32 aspect, void *argument);

protected:
    friend class ThreadManager;

    explicit Thread(const Char8 *name);

    /// The work of run(); nothing in this class.
    virtual void workProc(void);
};

/// A thread that somebody else runs: it registers itself to work on the scene, under a name that no other
/// thread has at the time.
class ExternalThread : public PThreadBase
{
public:
    /// The thread of that name; made if there is none. Owned by the thread manager.
    static ExternalThread *get(const Char8 *name);

    /// Null if there is no such thread.
    static ExternalThread *find(const Char8 *name);

    /// To be called by the thread itself: from now on it works on @p aspect and records to this object's
    /// list.
    void initialize(UInt32 aspect);

private:
    friend class ThreadManager;

    explicit ExternalThread(const Char8 *name);
};

OSG_END_NAMESPACE
