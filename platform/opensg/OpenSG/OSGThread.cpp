// SPDX-License-Identifier: MIT
#include <OpenSG/OSGThread.h>
#include <OpenSG/OSGThreadManager.h>

#include <utility>

OSG_BEGIN_NAMESPACE

__thread UInt32 ThreadContext::_aspect = 0;
__thread ChangeList *ThreadContext::_changeList = nullptr;
__thread PThreadBase *ThreadContext::_thread = nullptr;

void BaseThread::join(BaseThread *thread)
{
    if (thread != nullptr && thread->_thread.joinable()) {
        thread->_thread.join();
    }
}

ThreadCommonBase::ThreadCommonBase(const Char8 *name)
    : BaseThread(name)
    , _changeList(new ChangeList)
{
    _changeList->addRef();
}

ThreadCommonBase::~ThreadCommonBase(void)
{
    _changeList->subRef();
}

PThreadBase::PThreadBase(const Char8 *name)
    : ThreadCommonBase(name)
{}

void PThreadBase::enter(UInt32 aspect)
{
    _changeList->setAspect(aspect);
    ThreadContext::_aspect = aspect;
    ThreadContext::_changeList = _changeList;
    ThreadContext::_thread = this;
}

void PThreadBase::leave(void)
{
    ThreadContext::_aspect = 0;
    ThreadContext::_changeList = nullptr;
    ThreadContext::_thread = nullptr;
}

Thread::Thread(const Char8 *name)
    : PThreadBase(name)
{}

Thread::~Thread(void)
{
    join(this);
}

Thread *Thread::get(const Char8 *name)
{
    return ThreadManager::the()->getThread(name);
}

Thread *Thread::find(const Char8 *name)
{
    return ThreadManager::the()->findThread(name);
}

void Thread::run(UInt32 aspect)
{
    runFunction([this] { workProc(); }, aspect);
}

bool Thread::runFunction(std::function<void(void)> work, UInt32 aspect)
{
    join(this);
    _thread = std::thread([this, work = std::move(work), aspect] {
        enter(aspect);
        work();
    });
    return true;
}

bool Thread::runFunction(ThreadFuncF work, UInt32 aspect, void *argument)
{
    return runFunction([work, argument] { work(argument); }, aspect);
}

void Thread::workProc(void)
{}

ExternalThread::ExternalThread(const Char8 *name)
    : PThreadBase(name)
{}

ExternalThread *ExternalThread::get(const Char8 *name)
{
    return ThreadManager::the()->getExternalThread(name);
}

ExternalThread *ExternalThread::find(const Char8 *name)
{
    return ThreadManager::the()->findExternalThread(name);
}

void ExternalThread::initialize(UInt32 aspect)
{
    enter(aspect);
}

OSG_END_NAMESPACE
