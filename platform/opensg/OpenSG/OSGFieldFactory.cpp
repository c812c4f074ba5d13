// SPDX-License-Identifier: MIT
#include <OpenSG/OSGFieldFactory.h>

OSG_BEGIN_NAMESPACE

namespace {

template <class Map, class Key>
FieldType *lookUp(const Map &types, const Key &key)
{
    const auto found = types.find(key);
    return found != types.end() ? found->second : nullptr;
}

Field *createOf(const FieldType *type)
{
    return type != nullptr ? type->createField() : nullptr;
}

} // namespace

FieldFactory &FieldFactory::the(void)
{
    static FieldFactory &factory = *new FieldFactory;
    return factory;
}

Field *FieldFactory::createField(UInt32 typeId) const
{
    return createOf(getFieldType(typeId));
}

Field *FieldFactory::createField(const Char8 *typeName) const
{
    return createOf(getFieldType(typeName));
}

FieldType *FieldFactory::getFieldType(UInt32 typeId)
{
    const std::lock_guard<std::mutex> guard(the()._mutex);
    return lookUp(the()._typesById, typeId);
}

FieldType *FieldFactory::getFieldType(const Char8 *typeName)
{
    const std::lock_guard<std::mutex> guard(the()._mutex);
    return typeName != nullptr ? lookUp(the()._typesByName, typeName) : nullptr;
}

UInt32 FieldFactory::getNFieldTypes(void)
{
    const std::lock_guard<std::mutex> guard(the()._mutex);
    return static_cast<UInt32>(the()._typesById.size());
}

void FieldFactory::registerType(FieldType &type)
{
    const std::lock_guard<std::mutex> guard(_mutex);
    _typesById.emplace(type.getId(), &type);
    _typesByName.emplace(type.getCName(), &type);
}

OSG_END_NAMESPACE
