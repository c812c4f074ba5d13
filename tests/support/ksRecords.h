// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGFieldContainerFactory.h>
#include <OpenSG/OSGThread.h>

#include <algorithm>
#include <iterator>
#include <ostream>
#include <utility>
#include <vector>

/// The content of a change list as a value. Ids are counted from the first container that a recorder saw
/// made, which has id 1; older containers have ids of 0 and less.
struct ksRecords
{
    std::vector<std::pair<long long, osg::BitVector>> changed;
    std::vector<long long> addRefd;
    std::vector<long long> subRefd;
    std::vector<long long> created;
    std::vector<long long> destroyed;

    /// These build an expected value, in the order of the entries.
    ksRecords &change(long long id, osg::BitVector mask)
    {
        changed.emplace_back(id, mask);
        return *this;
    }
    ksRecords &addRef(long long id) { return append(addRefd, id); }
    ksRecords &subRef(long long id) { return append(subRefd, id); }
    ksRecords &create(long long id) { return append(created, id); }
    ksRecords &destroy(long long id) { return append(destroyed, id); }

    bool operator==(const ksRecords &other) const
    {
        return changed == other.changed && addRefd == other.addRefd && subRefd == other.subRefd &&
               created == other.created && destroyed == other.destroyed;
    }

    friend std::ostream &operator<<(std::ostream &stream, const ksRecords &records)
    {
        stream << "changed";
        for (const auto &[id, mask] : records.changed)
            stream << ' ' << id << "/0x" << std::hex << mask << std::dec;
        print(stream, "addRefd", records.addRefd);
        print(stream, "subRefd", records.subRefd);
        print(stream, "created", records.created);
        print(stream, "destroyed", records.destroyed);
        return stream;
    }

private:
    ksRecords &append(std::vector<long long> &ids, long long id)
    {
        ids.push_back(id);
        return *this;
    }

    static void print(std::ostream &stream, const char *title, const std::vector<long long> &ids)
    {
        stream << "; " << title;
        for (const long long id : ids)
            stream << ' ' << id;
    }
};

/// Reads what the calling thread records from the recorder's construction on; the list is empty then.
class ksRecorder
{
public:
    ksRecorder()
        : _before(
              static_cast<long long>(osg::FieldContainerFactory::the()->getFieldContainerStore()->size()) - 1)
    {
        list().clearAll();
    }

    /// The id of \a container as records have it.
    long long idOf(const osg::FieldContainerPtrBase &container) const
    {
        return idOf(container.getFieldContainerId());
    }

    /// The id of the container with the id \a id as records have it.
    long long idOf(osg::UInt32 id) const { return static_cast<long long>(id) - _before; }

    /// The content of \a changes.
    ksRecords read(const osg::ChangeList &changes) const
    {
        ksRecords records;
        std::for_each(changes.beginChanged(), changes.endChanged(),
                      [&](const auto &entry) { records.change(idOf(entry.first), entry.second); });
        copy(changes.beginAddRefd(), changes.endAddRefd(), records.addRefd);
        copy(changes.beginSubRefd(), changes.endSubRefd(), records.subRefd);
        copy(changes.beginCreated(), changes.endCreated(), records.created);
        copy(changes.beginDestroyed(), changes.endDestroyed(), records.destroyed);
        return records;
    }

    /// What the thread has recorded since the last time. Empties its list.
    ksRecords take()
    {
        ksRecords records = read(list());
        list().clearAll();
        return records;
    }

private:
    static osg::ChangeList &list() { return *osg::Thread::getCurrentChangeList(); }

    template <class Iterator>
    void copy(Iterator first, Iterator last, std::vector<long long> &ids) const
    {
        std::transform(first, last, std::back_inserter(ids), [this](osg::UInt32 id) { return idOf(id); });
    }

    const long long _before;
};
