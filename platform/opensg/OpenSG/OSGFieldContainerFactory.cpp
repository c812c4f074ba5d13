// SPDX-License-Identifier: MIT
#include <OpenSG/OSGFieldContainerFactory.h>
#include <OpenSG/OSGLog.h>
#include <OpenSG/OSGNodeCore.h>

#include <algorithm>

OSG_BEGIN_NAMESPACE

FieldContainerFactory::FieldContainerFactory(void)
    : _store(1)
{}

FieldContainerFactory *FieldContainerFactory::the(void)
{
    static FieldContainerFactory *factory = new FieldContainerFactory;
    return factory;
}

FieldContainerPtr FieldContainerFactory::getContainer(UInt32 id) const
{
    const std::lock_guard<std::mutex> guard(_mutex);
    return id < _store.size() ? _store[id] : FieldContainerPtr();
}

FieldContainerPtr FieldContainerFactory::getMappedContainer(UInt32 id) const
{
    return getContainer(_mapper != nullptr ? _mapper->map(id) : id);
}

void FieldContainerFactory::setMapper(FieldContainerMapper *mapper)
{
    _mapper = mapper;
}

FieldContainerPtr FieldContainerFactory::createFieldContainer(const Char8 *typeName) const
{
    const FieldContainerType *type = findType(typeName);
    return type != nullptr ? type->createFieldContainer() : FieldContainerPtr();
}

NodePtr FieldContainerFactory::createNode(const Char8 *typeName) const
{
    const FieldContainerType *type = findType(typeName);
    return type != nullptr ? type->createNode() : NodePtr();
}

NodeCorePtr FieldContainerFactory::createNodeCore(const Char8 *typeName) const
{
    const FieldContainerType *type = findType(typeName);
    return type != nullptr ? type->createNodeCore() : NodeCorePtr();
}

AttachmentPtr FieldContainerFactory::createAttachment(const Char8 *typeName) const
{
    const FieldContainerType *type = findType(typeName);
    return type != nullptr ? type->createAttachment() : AttachmentPtr();
}

FieldContainerType *FieldContainerFactory::findType(UInt32 typeId) const
{
    const TypesGuard guard(_typesMutex);
    const auto found = _typesById.find(typeId);
    return found != _typesById.end() ? found->second : nullptr;
}

FieldContainerType *FieldContainerFactory::findType(const Char8 *typeName) const
{
    const TypesGuard guard(_typesMutex);
    const auto found = typeName != nullptr ? _typesByName.find(typeName) : _typesByName.end();
    return found != _typesByName.end() ? found->second : nullptr;
}

UInt32 FieldContainerFactory::getNumTypes(void) const
{
    const TypesGuard guard(_typesMutex);
    return static_cast<UInt32>(_typesById.size());
}

UInt32 FieldContainerFactory::getNumGroups(void) const
{
    const TypesGuard guard(_typesMutex);
    return static_cast<UInt32>(_groups.size());
}

UInt16 FieldContainerFactory::findGroupId(const Char8 *groupName) const
{
    const TypesGuard guard(_typesMutex);
    const auto found =
        groupName != nullptr ? std::find(_groups.begin(), _groups.end(), groupName) : _groups.end();
    return found != _groups.end() ? static_cast<UInt16>(found - _groups.begin() + 1) : UInt16(0);
}

const Char8 *FieldContainerFactory::findGroupName(UInt16 groupId) const
{
    const TypesGuard guard(_typesMutex);
    return groupId != 0 && groupId <= _groups.size() ? _groups[groupId - 1].c_str() : nullptr;
}

bool FieldContainerFactory::initializePendingTypes(void)
{
    const TypesGuard guard(_typesMutex);
    bool isComplete = true;
    for (const auto &[id, type] : _typesById) {
        initializeType(*type);
        isComplete = isComplete && type->isInitialized();
    }
    return isComplete;
}

void FieldContainerFactory::initializeType(FieldContainerType &type)
{
    if (type.isInitialized()) {
        return;
    }
    FieldContainerType *parent = nullptr;
    if (!type.getParentName().isEmpty()) {
        parent = findType(type.getCParentName());
        if (parent == nullptr) {
            logWarning(std::string("type '") + type.getCName() + "' has the unknown parent '" +
                       type.getCParentName() + "'");
            return;
        }
        initializeType(*parent);
        if (!parent->isInitialized()) {
            return;
        }
    }
    type.initialize(parent);
}

bool FieldContainerFactory::unregisterFieldContainer(const FieldContainerPtr &fc)
{
    const UInt32 id = fc.getFieldContainerId();
    const std::lock_guard<std::mutex> guard(_mutex);
    if (id == 0 || id >= _store.size() || _store[id] != fc) {
        return true;
    }
    _store[id] = NullFC;
    return false;
}

UInt32 FieldContainerFactory::registerFieldContainer(const FieldContainerPtr &fc)
{
    const std::lock_guard<std::mutex> guard(_mutex);
    _store.push_back(fc);
    return static_cast<UInt32>(_store.size() - 1);
}

UInt16 FieldContainerFactory::registerGroup(const Char8 *groupName)
{
    const TypesGuard guard(_typesMutex);
    const UInt16 known = findGroupId(groupName);
    if (known != 0) {
        return known;
    }
    _groups.emplace_back(groupName);
    return static_cast<UInt16>(_groups.size());
}

void FieldContainerFactory::registerType(FieldContainerType &type, void (*initMethod)(void))
{
    const TypesGuard guard(_typesMutex);
    _typesById.emplace(type.getId(), &type);
    _typesByName.emplace(type.getCName(), &type);
    if (initMethod != nullptr) {
        initMethod();
    }
}

void FieldContainerFactory::unregisterType(FieldContainerType &type)
{
    const TypesGuard guard(_typesMutex);
    _typesById.erase(type.getId());
    const auto found = _typesByName.find(type.getCName());
    if (found != _typesByName.end() && found->second == &type) {
        _typesByName.erase(found);
    }
}

void FieldContainerFactory::makePrototypes(void)
{
    const TypesGuard guard(_typesMutex);
    for (const auto &[id, type] : _typesById) {
        if (type->isInitialized()) {
            type->makePrototype();
        }
    }
}

void FieldContainerFactory::releasePrototypes(void)
{
    const TypesGuard guard(_typesMutex);
    for (const auto &[id, type] : _typesById) {
        type->releasePrototype();
    }
}

OSG_END_NAMESPACE
