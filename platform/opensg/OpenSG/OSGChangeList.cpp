// SPDX-License-Identifier: MIT
#include <OpenSG/OSGChangeList.h>
#include <OpenSG/OSGFieldContainer.h>
#include <OpenSG/OSGLog.h>

#include <algorithm>
#include <string>
#include <unordered_map>

OSG_BEGIN_NAMESPACE

namespace {

template <class T>
void append(std::vector<T> &entries, const std::vector<T> &more)
{
    entries.reserve(entries.size() + more.size());
    entries.insert(entries.end(), more.begin(), more.end());
}

/// Calls @p work with the containers of @p ids, without as many of each as there are in @p settled.
template <class Work>
void forUnsettled(const std::vector<UInt32> &ids, const std::vector<UInt32> &settled, Work work)
{
    std::unordered_map<UInt32, UInt32> left;
    for (const UInt32 id : settled) {
        ++left[id];
    }
    for (const UInt32 id : ids) {
        const auto found = left.find(id);
        if (found != left.end() && found->second > 0) {
            --found->second;
        } else {
            work(FieldContainerFactory::the()->getContainer(id));
        }
    }
}

void dumpIds(const Char8 *title, const std::vector<UInt32> &ids)
{
    std::string line(title);
    for (const UInt32 id : ids) {
        line += ' ' + std::to_string(id);
    }
    logNotice(line);
}

/// Keeps a list from recording, and lets it record afterwards, whatever it did before.
class ReadOnlyScope
{
public:
    explicit ReadOnlyScope(ChangeList *list)
        : _list(list)
    {
        set(true);
    }
    ~ReadOnlyScope(void) { set(false); }

    ReadOnlyScope(const ReadOnlyScope &) = delete;
    ReadOnlyScope &operator=(const ReadOnlyScope &) = delete;

private:
    void set(bool readOnly) const
    {
        if (_list != nullptr) {
            _list->setReadOnly(readOnly);
        }
    }

    ChangeList *const _list;
};

} // namespace

bool ChangeList::_readWriteDefault = false;

ChangeList::ChangeList(void)
    : _readOnly(!_readWriteDefault)
{}

void ChangeList::setReadWriteDefault(bool readWrite)
{
    _readWriteDefault = readWrite;
}

void ChangeList::addChanged(const FieldContainerPtr &fc, BitVector whichField)
{
    if (!_readOnly) {
        _changed.emplace_back(fc.getFieldContainerId(), whichField);
    }
}

void ChangeList::addAddRefd(const FieldContainerPtr &fc)
{
    if (!_readOnly) {
        _addRefd.push_back(fc.getFieldContainerId());
    }
}

void ChangeList::addSubRefd(const FieldContainerPtr &fc)
{
    if (!_readOnly) {
        _subRefd.push_back(fc.getFieldContainerId());
    }
}

void ChangeList::addCreated(const UInt32 id)
{
    if (!_readOnly) {
        _created.push_back(id);
    }
}

void ChangeList::addDestroyed(const UInt32 id)
{
    if (!_readOnly) {
        _destroyed.push_back(id);
    }
}

bool ChangeList::empty(void) const
{
    return _changed.empty() && _addRefd.empty() && _subRefd.empty() && _created.empty() && _destroyed.empty();
}

void ChangeList::clearAll(void)
{
    _changed.clear();
    _addRefd.clear();
    _subRefd.clear();
    _created.clear();
    _destroyed.clear();
    _settledAdds.clear();
    _settledSubs.clear();
}

void ChangeList::swap(ChangeList &other)
{
    _changed.swap(other._changed);
    _addRefd.swap(other._addRefd);
    _subRefd.swap(other._subRefd);
    _created.swap(other._created);
    _destroyed.swap(other._destroyed);
    _settledAdds.swap(other._settledAdds);
    _settledSubs.swap(other._settledSubs);
}

bool ChangeList::merge(const ChangeList &other)
{
    append(_changed, other._changed);
    append(_addRefd, other._addRefd);
    append(_subRefd, other._subRefd);
    append(_created, other._created);
    append(_destroyed, other._destroyed);
    append(_settledAdds, other._settledAdds);
    append(_settledSubs, other._settledSubs);
    return true;
}

void ChangeList::setAspect(UInt32 aspect)
{
    _aspect = aspect;
    clearAll();
}

void ChangeList::applyTo(UInt32 aspect)
{
    if (aspect == _aspect) {
        return;
    }
    replay(aspect);
    clearAll();
    setReadOnly(false);
}

void ChangeList::applyToCurrent(void)
{
    applyTo(ThreadContext::aspect());
    clearAll();
}

void ChangeList::settle(IdStore &settled, const FieldContainerPtr &fc, UInt32 count)
{
    if (!_readOnly) {
        settled.insert(settled.end(), count, fc.getFieldContainerId());
    }
}

void ChangeList::unsettle(IdStore &settled, const FieldContainerPtr &fc)
{
    const auto last = std::find(settled.rbegin(), settled.rend(), fc.getFieldContainerId());
    if (!_readOnly && last != settled.rend()) {
        settled.erase(last.base() - 1);
    }
}

void ChangeList::replay(UInt32 aspect) const
{
    const ReadOnlyScope readOnly(Thread::getCurrentChangeList());
    const AspectScope scope(aspect);
    for (const ChangeEntry &entry : _changed) {
        const FieldContainerPtr fc = FieldContainerFactory::the()->getContainer(entry.first);
        if (fc != NullFC) {
            fc.executeSync(_aspect, aspect, entry.second);
            fc->changed(entry.second, ChangedOrigin::Sync);
        }
    }
    forUnsettled(_addRefd, _settledAdds, [](const FieldContainerPtr &fc) { addRefCP(fc); });
    forUnsettled(_subRefd, _settledSubs, [](const FieldContainerPtr &fc) { subRefCP(fc); });
}

void ChangeList::dump(void) const
{
    std::string line("changed:");
    for (const ChangeEntry &entry : _changed) {
        line += ' ' + std::to_string(entry.first) + '/' + std::to_string(entry.second);
    }
    logNotice(line);
    dumpIds("addRefd:", _addRefd);
    dumpIds("subRefd:", _subRefd);
    dumpIds("created:", _created);
    dumpIds("destroyed:", _destroyed);
}

OSG_END_NAMESPACE
