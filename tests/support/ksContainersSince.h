// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGFieldContainerFactory.h>

#include <support/ksRecords.h>
#include <support/ksSlotSwap.h>
#include <vector>

/// All living containers that have been made since \a recorder was, each once. One whose id names another
/// container at the moment is among them all the same.
inline std::vector<osg::FieldContainerPtr> ksContainersSince(const ksRecorder &recorder)
{
    const auto &store = *osg::FieldContainerFactory::the()->getFieldContainerStore();
    std::vector<osg::FieldContainerPtr> containers;
    const auto add = [&](const osg::FieldContainerPtr &container) {
        if (container != osg::NullFC && recorder.idOf(container) > 0)
            containers.push_back(container);
    };
    for (osg::UInt32 id = 0; id < store.size(); ++id)
        if (store[id].getFieldContainerId() == id)
            add(store[id]);
    for (const osg::FieldContainerPtr &container : ksSlotSwap::displaced())
        add(container);
    return containers;
}
