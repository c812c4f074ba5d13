// SPDX-License-Identifier: MIT
#pragma once

#include <OpenSG/OSGFieldContainerPtrDecl.h>

#include <deque>
#include <map>
#include <mutex>
#include <string>
#include <vector>

OSG_BEGIN_NAMESPACE

class FieldContainerType;
class NodeCore;

/// Translates container ids, for a file or a connection that numbers containers in its own way.
class FieldContainerMapper
{
public:
    virtual ~FieldContainerMapper(void) = default;

    /// The factory's id for @p id; 0 if there is none.
    virtual UInt32 map(UInt32 id) = 0;
};

/// Knows all containers by id and all container types by id and name. Lives for the rest of the process.
///
/// All threads may use it at any time, but for what its functions say. A container that is found by its id
/// may go at the next moment unless the finder, or what it works on, has a reference on it. One that another
/// thread makes can be used once that thread has passed its id or handle on.
class FieldContainerFactory
{
public:
    typedef std::vector<FieldContainerPtr> FieldContainerStore;
    typedef std::map<UInt32, FieldContainerType *> TypeIdMap;
    typedef TypeIdMap::iterator TypeMapIterator;

    static FieldContainerFactory *the(void);

    /// Null for 0, an id that was never given or a container that has gone.
    FieldContainerPtr getContainer(UInt32 id) const;

    /// The container of the mapped id; without a mapper the same as getContainer().
    FieldContainerPtr getMappedContainer(UInt32 id) const;

    /// Null removes the mapper. It stays with the caller. Not while another thread asks for a mapped
    /// container; map() itself is called on the thread that asks.
    void setMapper(FieldContainerMapper *mapper);

    /// All containers by id; slot 0 and those of containers that have gone are null. Ids are never used
    /// again, so the size is the next id. Grows with every new container: no place in it lasts. To be read
    /// while no other thread makes or destroys containers.
    const FieldContainerStore *getFieldContainerStore(void) const { return &_store; }

    /// A new container by type name; null if the type is unknown, abstract or, for the last three, of another
    /// kind.
    FieldContainerPtr createFieldContainer(const Char8 *typeName) const;
    NodePtr createNode(const Char8 *typeName) const;
    FCPtr<AttachmentContainerPtr, NodeCore> createNodeCore(const Char8 *typeName) const;
    AttachmentPtr createAttachment(const Char8 *typeName) const;

    /// Null if there is no such type.
    FieldContainerType *findType(UInt32 typeId) const;
    FieldContainerType *findType(const Char8 *typeName) const;

    UInt32 getNumTypes(void) const;

    /// All types by id. To be walked while no other thread loads or unloads a library that brings types.
    TypeMapIterator beginTypes(void) { return _typesById.begin(); }
    TypeMapIterator endTypes(void) { return _typesById.end(); }

    UInt32 getNumGroups(void) const;

    /// 0 if there is no such group.
    UInt16 findGroupId(const Char8 *groupName) const;

    /// Null if there is no such group.
    const Char8 *findGroupName(UInt16 groupId) const;

    /// Gives parent and prototype to the types that were registered since osgInit(), for libraries loaded
    /// later; other threads may use those types afterwards. False if a type has a parent that is not known.
    bool initializePendingTypes(void);

    /// Empties the container's slot; false if that worked, true for a null handle or a container not
    /// registered. The container itself lives on.
    bool unregisterFieldContainer(const FieldContainerPtr &fc);

private:
    friend class FieldContainer;
    friend class FieldContainerType;
    friend bool osgInit(Int32 argc, Char8 **argv, UInt16 major, UInt16 minor, UInt16 release, bool debug,
                        bool dll, bool mt);
    friend bool osgExit(void);

    FieldContainerFactory(void);

    UInt32 registerFieldContainer(const FieldContainerPtr &fc);

    UInt16 registerGroup(const Char8 *groupName);

    /// Runs @p initMethod, which may be null, before another thread can make the prototype.
    void registerType(FieldContainerType &type, void (*initMethod)(void));
    void unregisterType(FieldContainerType &type);
    void initializeType(FieldContainerType &type);

    /// Gives the types a prototype again that have none since releasePrototypes().
    void makePrototypes(void);
    void releasePrototypes(void);

    mutable std::mutex _mutex;
    FieldContainerStore _store;
    FieldContainerMapper *_mapper = nullptr;

    /// Recursive, as a prototype may look types up while it is made.
    typedef std::lock_guard<std::recursive_mutex> TypesGuard;
    mutable std::recursive_mutex _typesMutex;
    TypeIdMap _typesById;
    std::map<std::string, FieldContainerType *> _typesByName;
    std::deque<std::string> _groups; // whose names stay where they are
};

OSG_END_NAMESPACE
