// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGFieldContainerPtrDecl.h>
#include <OpenSG/OSGMemoryObject.h>

#include <utility>
#include <vector>

OSG_BEGIN_NAMESPACE

/// What one thread did to containers, so that it can be done to another aspect as well: five lists, each in
/// the order of the calls and with duplicates, without an order between them. Read-only lists, the default,
/// record nothing.
///
/// A list belongs to one thread at a time. Applying it works on the copies of both aspects, so that no other
/// thread may work on either meanwhile.
class ChangeList : public MemoryObject
{
public:
    typedef std::pair<UInt32, BitVector> ChangeEntry;
    typedef UInt32 IdRefEntry;
    typedef std::vector<ChangeEntry> ChangedStore;
    typedef std::vector<IdRefEntry> IdStore;
    typedef UInt32 changed_size_type;
    typedef UInt32 refd_size_type;
    typedef UInt32 idrefd_size_type;
    typedef ChangedStore::const_iterator changed_const_iterator;
    typedef IdStore::const_iterator refd_const_iterator;
    typedef IdStore::const_iterator idrefd_const_iterator;

    ChangeList(void);

    /// A list that nobody counts a reference of is deleted by its maker.
    ~ChangeList(void) override = default;

    /// Whether lists made from now on record. To be called before osgInit().
    static void setReadWriteDefault(bool readWrite = true);

    changed_const_iterator beginChanged(void) const { return _changed.begin(); }
    changed_const_iterator endChanged(void) const { return _changed.end(); }
    refd_const_iterator beginAddRefd(void) const { return _addRefd.begin(); }
    refd_const_iterator endAddRefd(void) const { return _addRefd.end(); }
    refd_const_iterator beginSubRefd(void) const { return _subRefd.begin(); }
    refd_const_iterator endSubRefd(void) const { return _subRefd.end(); }
    idrefd_const_iterator beginCreated(void) const { return _created.begin(); }
    idrefd_const_iterator endCreated(void) const { return _created.end(); }
    idrefd_const_iterator beginDestroyed(void) const { return _destroyed.begin(); }
    idrefd_const_iterator endDestroyed(void) const { return _destroyed.end(); }

    changed_size_type sizeChanged(void) const { return static_cast<UInt32>(_changed.size()); }
    refd_size_type sizeAddRefd(void) const { return static_cast<UInt32>(_addRefd.size()); }
    refd_size_type sizeSubRefd(void) const { return static_cast<UInt32>(_subRefd.size()); }
    idrefd_size_type sizeCreated(void) const { return static_cast<UInt32>(_created.size()); }
    idrefd_size_type sizeDestroyed(void) const { return static_cast<UInt32>(_destroyed.size()); }

    void addChanged(const FieldContainerPtr &fc, BitVector whichField);
    void addAddRefd(const FieldContainerPtr &fc);
    void addSubRefd(const FieldContainerPtr &fc);
    void addCreated(const UInt32 id);
    void addDestroyed(const UInt32 id);

    bool empty(void) const;
    void clearAll(void);

    /// Exchanges the entries; aspect and mode stay.
    void swap(ChangeList &other);

    /// Appends all entries of @p other, also to a read-only list. Always true.
    bool merge(const ChangeList &other);

    /// The aspect that the entries were recorded in. Setting it clears the list.
    void setAspect(UInt32 aspect);
    UInt32 getAspect(void) const { return _aspect; }

    void setReadOnly(bool readOnly) { _readOnly = readOnly; }
    bool isReadOnly(void) const { return _readOnly; }

    /// Brings @p aspect up to date: copies the changed fields and calls the change handlers (origin Sync),
    /// then takes and releases the references. Containers that have gone are skipped. The calling thread's
    /// own list records nothing meanwhile; it and this list are read-write afterwards, and this list is
    /// empty. Nothing at all happens if @p aspect is the list's own.
    void applyTo(UInt32 aspect);

    /// The same for the calling thread's aspect; the list is empty afterwards in any case.
    void applyToCurrent(void);
    void apply(void) { applyToCurrent(); }
    void applyAndClear(void) { applyToCurrent(); }

    /// Writes the entries to the log.
    void dump(void) const;

private:
    friend class FieldContainerPtrBase;
    friend class PThreadBase;

    void replay(UInt32 aspect) const;

    /// Notes that as many entries of @p fc are not to be replayed, as the other aspect has had them at once.
    void settle(IdStore &settled, const FieldContainerPtr &fc, UInt32 count);

    /// Takes back one that was noted last.
    void unsettle(IdStore &settled, const FieldContainerPtr &fc);

    static bool _readWriteDefault;

    ChangedStore _changed;
    IdStore _addRefd;
    IdStore _subRefd;
    IdStore _created;
    IdStore _destroyed;
    IdStore _settledAdds;
    IdStore _settledSubs;
    UInt32 _aspect = 0;
    bool _readOnly;
};

OSG_END_NAMESPACE
