// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGFieldContainerFactory.h>

#include <QtGlobal>

#include <utility>

/// Lets the id of one container name another one, or none, for as long as it lives. No program can do that,
/// since ids are never used again; a command must stand it all the same.
class ksSlotSwap
{
public:
    ksSlotSwap(osg::UInt32 id, const osg::FieldContainerPtr &other)
        : id(id)
        , before(std::exchange(slot(), other))
    {}
    ~ksSlotSwap() { slot() = before; }
    Q_DISABLE_COPY(ksSlotSwap)

private:
    osg::FieldContainerPtr &slot() const
    {
        using Store = osg::FieldContainerFactory::FieldContainerStore;
        return const_cast<Store &>(*osg::FieldContainerFactory::the()->getFieldContainerStore()).at(id);
    }

    const osg::UInt32 id;
    const osg::FieldContainerPtr before;
};
