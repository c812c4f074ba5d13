// SPDX-License-Identifier: MIT
#pragma once

#include "OSGLamp.h"

OSG_BEGIN_NAMESPACE

#define OSG_SHELF_FIELDS(SF, MF) MF(MFLampPtr, lamps, Lamps)

OSG_CONTAINER_POINTER(Shelf, FieldContainerPtr)
OSG_CONTAINER_BASE(Shelf, FieldContainer, OSG_SHELF_FIELDS)

/// A shelf that its lamps live on.
class Shelf : public ShelfBase
{
    OSG_CONTAINER_MEMBERS(Shelf)

public:
    void addLamp(const LampPtr &lamp)
    {
        addRefCP(lamp);
        _mfLamps.push_back(lamp);
    }

protected:
    Shelf() = default;

    Shelf(const Shelf &source)
        : Inherited(source)
    {
        _mfLamps.clear();
    }

    ~Shelf() override
    {
        for (const LampPtr &lamp : _mfLamps) {
            subRefCP(lamp);
        }
    }
};

OSG_END_NAMESPACE
