// SPDX-License-Identifier: MIT
#include <OpenSG/OSGChangeList.h>
#include <OpenSG/OSGFieldContainer.h>
#include <OpenSG/OSGLog.h>

#include <string>

OSG_BEGIN_NAMESPACE

namespace {

template <class T>
void append(std::vector<T> &entries, const std::vector<T> &more)
{
    entries.reserve(entries.size() + more.size());
    entries.insert(entries.end(), more.begin(), more.end());
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
}

void ChangeList::swap(ChangeList &other)
{
    _changed.swap(other._changed);
    _addRefd.swap(other._addRefd);
    _subRefd.swap(other._subRefd);
    _created.swap(other._created);
    _destroyed.swap(other._destroyed);
}

bool ChangeList::merge(const ChangeList &other)
{
    append(_changed, other._changed);
    append(_addRefd, other._addRefd);
    append(_subRefd, other._subRefd);
    append(_created, other._created);
    append(_destroyed, other._destroyed);
    return true;
}

void ChangeList::setAspect(UInt32 aspect)
{
    _aspect = aspect;
    clearAll();
}

void ChangeList::applyTo(UInt32 aspect)
{
    replay(aspect);
    clearAll();
}

void ChangeList::applyToCurrent(void)
{
    replay(Thread::getAspect());
}

void ChangeList::applyAndClear(void)
{
    applyTo(Thread::getAspect());
}

void ChangeList::replay(UInt32 aspect) const
{
    const ReadOnlyScope readOnly(Thread::getCurrentChangeList());
    if (aspect != _aspect) {
        const AspectScope scope(aspect);
        const FieldContainerFactory &factory = *FieldContainerFactory::the();
        for (const ChangedEntry &entry : _changed) {
            const FieldContainerPtr fc = factory.getContainer(entry.first);
            if (fc != NullFC) {
                fc.executeSync(_aspect, aspect, entry.second);
                fc->changed(entry.second, ChangedOrigin::Sync);
            }
        }
        for (const UInt32 id : _addRefd) {
            addRefCP(factory.getContainer(id));
        }
        for (const UInt32 id : _subRefd) {
            subRefCP(factory.getContainer(id));
        }
    }
}

void ChangeList::dump(void) const
{
    std::string line("changed:");
    for (const ChangedEntry &entry : _changed) {
        line += ' ' + std::to_string(entry.first) + '/' + std::to_string(entry.second);
    }
    logNotice(line);
    dumpIds("addRefd:", _addRefd);
    dumpIds("subRefd:", _subRefd);
    dumpIds("created:", _created);
    dumpIds("destroyed:", _destroyed);
}

OSG_END_NAMESPACE
