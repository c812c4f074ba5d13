// SPDX-License-Identifier: MIT
#include <OpenSG/OSGTypeBase.h>

#include <atomic>

OSG_BEGIN_NAMESPACE

namespace {

UInt32 nextTypeId(void)
{
    static std::atomic<UInt32> lastId{0};
    return ++lastId;
}

} // namespace

TypeBase::TypeBase(const Char8 *name, const Char8 *parentName)
    : _id(nextTypeId())
    , _name(name)
    , _parentName(parentName)
{}

TypeBase::~TypeBase(void) = default;

bool TypeBase::isDerivedFrom(const TypeBase &) const
{
    return false;
}

OSG_END_NAMESPACE
