// SPDX-License-Identifier: MIT
#pragma once

#include <editor/document/ksSceneChanges.h>

#include <OpenSG/OSGFieldContainer.h>

#include <unordered_map>
#include <utility>
#include <vector>

/// What is computed of containers of the scene, each when it is first asked for, until an edit makes it
/// wrong.
template <class Pointer, class Value>
class ksSceneCache
{
public:
    /// \a maker computes a value from the fields \a fields of its container, as the calling thread's aspect
    /// has them.
    ksSceneCache(Value (*maker)(const Pointer &), osg::BitVector fields)
        : make(maker)
        , mask(fields)
    {}

    /// That of \a container, which may be null.
    Value &of(const Pointer &container)
    {
        stale.clear();
        const osg::UInt32 id = container.getFieldContainerId();
        const auto found = known.find(id);
        return found != known.end() ? found->second : known.emplace(id, make(container)).first->second;
    }

    /// Notes what \a changes make wrong, which the next call of of() lets go of.
    void follow(const ksSceneChanges &changes)
    {
        for (const auto &[id, changed] : changes.fields)
            if ((changed & mask) != 0)
                forget(id);
        for (const osg::UInt32 id : changes.destroyed)
            forget(id);
    }

    void clear()
    {
        known.clear();
        stale.clear();
    }

private:
    void forget(osg::UInt32 id)
    {
        if (const auto found = known.find(id); found != known.end()) {
            stale.push_back(std::move(found->second));
            known.erase(found);
        }
    }

    Value (*make)(const Pointer &);
    osg::BitVector mask;
    std::unordered_map<osg::UInt32, Value> known;
    std::vector<Value> stale;
};
