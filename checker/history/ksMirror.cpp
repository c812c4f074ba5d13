// SPDX-License-Identifier: MIT
#include <checker/history/ksMirror.h>

#include <OpenSG/OSGChangeList.h>
#include <OpenSG/OSGThread.h>

namespace {
constexpr osg::UInt32 MirrorAspect = 1;
}

ksMirror::ksMirror()
    : thread(&ksMirror::loop, this)
{}

ksMirror::~ksMirror()
{
    {
        const std::lock_guard<std::mutex> lock(mutex);
        ending = true;
    }
    changed.notify_all();
    thread.join();
}

void ksMirror::update(const std::function<void()> &look)
{
    osg::ChangeList *changes = osg::Thread::getCurrentChangeList();
    run([changes, &look] {
        changes->applyToCurrent();
        look();
    });
    changes->clearAll();
}

void ksMirror::run(const std::function<void()> &newWork)
{
    std::unique_lock<std::mutex> lock(mutex);
    work = &newWork;
    changed.notify_all();
    changed.wait(lock, [this] { return work == nullptr; });
}

void ksMirror::loop()
{
    osg::ExternalThread::get("mirror")->initialize(MirrorAspect);
    std::unique_lock<std::mutex> lock(mutex);
    while (true) {
        changed.wait(lock, [this] { return ending || work != nullptr; });
        if (work == nullptr)
            return;
        (*work)();
        work = nullptr;
        changed.notify_all();
    }
}
