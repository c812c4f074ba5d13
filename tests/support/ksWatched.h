// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGChangeList.h>
#include <OpenSG/OSGFieldContainer.h>
#include <OpenSG/OSGFieldContainerType.h>
#include <OpenSG/OSGThread.h>

#include <QtGlobal>

#include <functional>
#include <ostream>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

/// The values of the fields \a mask of \a container, one after the other.
inline std::string ksValuesOf(const osg::FieldContainerPtr &container, osg::BitVector mask)
{
    std::string values;
    for (osg::UInt32 id = 1; id <= container->getType().getNumFieldDescs(); ++id) {
        if ((mask & osg::TypeTraits<osg::BitVector>::One << id) == 0)
            continue;
        std::string value;
        values += container->getField(id)->getValueByStr(value) + ';';
    }
    return values;
}

/// One call of a container's change handler: the container, what the handler was told, how many changes the
/// thread's change list held, and what else could be found then.
struct ksHandlerCall
{
    osg::UInt32 id;
    osg::BitVector mask;
    osg::UInt32 origin;
    osg::UInt32 recorded;
    std::string found;

    auto tied() const { return std::tie(id, mask, origin, recorded, found); }
    bool operator==(const ksHandlerCall &other) const { return tied() == other.tied(); }

    friend std::ostream &operator<<(std::ostream &stream, const ksHandlerCall &call)
    {
        return stream << call.id << "/0x" << std::hex << call.mask << std::dec << ", origin " << call.origin
                      << ", recorded " << call.recorded << ", found " << call.found;
    }
};

/// Collects the calls of the change handlers of all watched containers for as long as it lives. One at a
/// time.
class ksHandlerCalls
{
public:
    /// \a find tells what can be found at the time of a call; by default the values of the fields in
    /// question.
    explicit ksHandlerCalls(std::function<std::string()> find = {})
        : find(std::move(find))
    {
        current = this;
    }
    ~ksHandlerCalls() { current = nullptr; }
    Q_DISABLE_COPY(ksHandlerCalls)

    /// The calls since the last time.
    std::vector<ksHandlerCall> take() { return std::exchange(calls, {}); }

    static void note(const osg::FieldContainerPtr &container, osg::BitVector mask, osg::UInt32 origin)
    {
        if (current == nullptr)
            return;
        const osg::ChangeList *changes = osg::PThreadBase::getCurrentChangeList();
        current->calls.push_back({container.getFieldContainerId(), mask, origin,
                                  changes == nullptr ? 0 : changes->sizeChanged(),
                                  current->find ? current->find() : ksValuesOf(container, mask)});
        if (current->onCall)
            current->onCall();
    }

    /// What is called at the end of each call, empty for nothing.
    std::function<void()> onCall;

private:
    static inline ksHandlerCalls *current = nullptr;
    std::function<std::string()> find;
    std::vector<ksHandlerCall> calls;
};

/// A container of the type \a Base whose calls of the change handler can be collected.
template <class Base>
class ksWatched : public Base
{
public:
    static typename Base::Ptr create() { return Base::template newContainer<ksWatched>(); }

    /// Lets all containers of the type be watched that are made from now on, until the end of the process.
    static void watchType() { Base::getClassType().setPrototype(create()); }

    osg::FieldContainerPtr shallowCopy() const override
    {
        return Base::template newContainer<ksWatched>(this);
    }

    void changed(osg::BitVector whichField, osg::UInt32 origin) override
    {
        ksHandlerCalls::note(typename Base::Ptr(*this), whichField, origin);
        Base::changed(whichField, origin);
    }
};
