// SPDX-License-Identifier: MIT
#include "OSGUberMaterial.h"

OSG_BEGIN_NAMESPACE

OSG_DEFINE_CONTAINER(UberMaterial, Material, "", OSG_UBER_MATERIAL_FIELDS)

namespace {

Vec3f blend(const MFColorComponentPtr &components)
{
    Vec3f sum;
    Real32 weights = 0;
    for (const ColorComponentPtr &component : components) {
        if (component != NullFC && component->getEnabled() && component->getWeight() > 0) {
            sum += component->getColor() * component->getWeight();
            weights += component->getWeight();
        }
    }
    return weights > 0 ? sum * (1 / weights) : Vec3f(1, 1, 1);
}

} // namespace

UberMaterial::UberMaterial(const UberMaterial &source)
    : Inherited(source)
{
    _mfColorComponentData.clear();
    _sfComponentSettings.setValue(NullFC);
}

UberMaterial::~UberMaterial(void)
{
    for (const ColorComponentPtr &component : _mfColorComponentData) {
        subRefCP(component);
    }
    setComponentSettings(NullFC);
}

void UberMaterial::addColorComponent(const ColorComponentPtr &component)
{
    if (component != NullFC) {
        addRefCP(component);
        _mfColorComponentData.push_back(component);
    }
}

bool UberMaterial::subColorComponent(const ColorComponentPtr &component)
{
    const auto found = _mfColorComponentData.find(component);
    if (component == NullFC || found == _mfColorComponentData.end()) {
        return false;
    }
    const ColorComponentPtr leaving = *found;
    _mfColorComponentData.erase(found);
    subRefCP(leaving);
    return true;
}

void UberMaterial::setComponentSettings(const ColorComponentSettingsPtr &settings)
{
    setRefdCP(_sfComponentSettings.getValue(), settings);
}

void UberMaterial::changed(BitVector whichField, UInt32 origin)
{
    if (whichField & ColorComponentDataFieldMask) {
        _blendedColor = blend(_mfColorComponentData);
    }
    Inherited::changed(whichField, origin);
}

OSG_END_NAMESPACE
