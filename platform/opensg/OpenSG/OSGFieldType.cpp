// SPDX-License-Identifier: MIT
#include <OpenSG/OSGFieldFactory.h>
#include <OpenSG/OSGFieldType.h>

OSG_BEGIN_NAMESPACE

FieldType::FieldType(const Char8 *name, const DataType &contentType, CreateFieldMethod createMethod,
                     Cardinality cardinality)
    : DataType(name, "Field")
    , _contentType(contentType)
    , _createMethod(createMethod)
    , _cardinality(cardinality)
{
    FieldFactory::the().registerType(*this);
}

OSG_END_NAMESPACE
