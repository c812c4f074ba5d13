// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGFieldContainerFactory.h>

#include <QtGlobal>

#include <utility>
#include <vector>

/// Lets the id of one container name another one, or none, for as long as it lives. No program can do that,
/// since ids are never used again; a command must stand it all the same.
class ksSlotSwap
{
public:
    ksSlotSwap(osg::UInt32 id, const osg::FieldContainerPtr &other)
        : id(id)
        , before(std::exchange(slot(), other))
    {
        swapped.push_back(before);
    }
    ~ksSlotSwap()
    {
        swapped.pop_back();
        slot() = before;
    }
    Q_DISABLE_COPY(ksSlotSwap)

    /// The containers that are not to be found by their ids at the moment.
    static const std::vector<osg::FieldContainerPtr> &displaced() { return swapped; }

private:
    osg::FieldContainerPtr &slot() const
    {
        using Store = osg::FieldContainerFactory::FieldContainerStore;
        return const_cast<Store &>(*osg::FieldContainerFactory::the()->getFieldContainerStore()).at(id);
    }

    static inline std::vector<osg::FieldContainerPtr> swapped;

    const osg::UInt32 id;
    const osg::FieldContainerPtr before;
};
