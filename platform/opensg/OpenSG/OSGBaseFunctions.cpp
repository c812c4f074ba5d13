// SPDX-License-Identifier: MIT
#include <OpenSG/OSGBaseFunctions.h>
#include <OpenSG/OSGFieldContainer.h>
#include <OpenSG/OSGLog.h>
#include <OpenSG/OSGThreadManager.h>

#include <cstdlib>

OSG_BEGIN_NAMESPACE

SystemState GlobalSystemState = Startup;

bool osgInit(Int32, Char8 **, UInt16 major, UInt16, UInt16, bool, bool, bool)
{
    if (major != OSG_MAJOR_VERSION) {
        logWarning("the application was built for version " + std::to_string(major) +
                   " of the scene graph, not " + std::to_string(OSG_MAJOR_VERSION));
        std::exit(1);
    }
    if (GlobalSystemState == Running) {
        return true;
    }
    ThreadManager &threads = *ThreadManager::the();
    threads.getThread("OSGAppThread")->enter(0);
    FieldContainerPtrBase::_pRefCountLock = threads.getLockPool("DSPTRRefCountLockPool");
    FieldContainerFactory::the()->makePrototypes();
    FieldContainerFactory::the()->initializePendingTypes();
    Thread::getCurrentChangeList()->clearAll();
    GlobalSystemState = Running;
    std::atexit([] { osgExit(); });
    return true;
}

bool osgExit(void)
{
    if (GlobalSystemState == Running) {
        GlobalSystemState = Shutdown;
        PThreadBase::leave();
        FieldContainerFactory::the()->releasePrototypes();
        FieldContainerPtrBase::_pRefCountLock = nullptr;
    }
    return true;
}

OSG_END_NAMESPACE
