// SPDX-License-Identifier: MIT
#include <OpenSG/OSGFieldDescription.h>
#include <OpenSG/OSGLog.h>

OSG_BEGIN_NAMESPACE

FieldDescription::FieldDescription(const TypeBase &fieldType, const Char8 *name, UInt32 id, BitVector mask,
                                   bool internal, FieldAccessMethod accessMethod, const Char8 *defaultValue)
    : _fieldType(fieldType)
    , _name(name)
    , _fieldId(id)
    , _fieldMask(mask)
    , _internal(internal)
    , _hasDefault(defaultValue != nullptr)
    , _defaultValue(_hasDefault ? defaultValue : "")
    , _accessMethod(accessMethod)
{}

FieldDescription::FieldDescription(const TypeBase &fieldType, const Char8 *name, UInt32 id, BitVector mask,
                                   bool internal, FieldIndexAccessMethod accessMethod,
                                   const Char8 *defaultValue)
    : _fieldType(fieldType)
    , _name(name)
    , _fieldId(id)
    , _fieldMask(mask)
    , _internal(internal)
    , _hasDefault(defaultValue != nullptr)
    , _defaultValue(_hasDefault ? defaultValue : "")
    , _indexAccessMethod(accessMethod)
{}

Field *FieldDescription::getField(FieldContainer &container) const
{
    if (_accessMethod != nullptr) {
        return (container.*_accessMethod)();
    }
    if (_indexAccessMethod != nullptr) {
        return (container.*_indexAccessMethod)(_fieldId);
    }
    logWarning(std::string("field '") + _name.str() + "' has no access method");
    return nullptr;
}

Field *FieldDescription::getField(const FieldContainerPtr &container) const
{
    return container != NullFC ? getField(*container) : nullptr;
}

OSG_END_NAMESPACE
