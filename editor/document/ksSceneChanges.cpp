// SPDX-License-Identifier: MIT
#include <editor/document/ksSceneChanges.h>

#include <OpenSG/OSGChangeList.h>
#include <OpenSG/OSGThread.h>

namespace {

/// The aspect that is shown.
constexpr osg::UInt32 ShownAspect = 1;

} // namespace

bool ksSceneChanges::concern(osg::UInt32 container, osg::BitVector mask) const
{
    const auto found = fields.find(container);
    return found != fields.end() && (found->second & mask) != 0;
}

ksSceneChanges ksTakeSceneChanges()
{
    osg::ChangeList &list = *osg::Thread::getCurrentChangeList();
    ksSceneChanges changes;
    for (auto entry = list.beginChanged(); entry != list.endChanged(); ++entry)
        changes.fields[entry->first] |= entry->second;
    changes.created.assign(list.beginCreated(), list.endCreated());
    changes.destroyed.assign(list.beginDestroyed(), list.endDestroyed());
    for (const osg::UInt32 id : changes.created)
        changes.fields[id] = ~osg::BitVector(0);
    for (const osg::UInt32 id : changes.destroyed)
        changes.fields.erase(id);
    list.applyTo(ShownAspect);
    return changes;
}
