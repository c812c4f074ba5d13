// SPDX-License-Identifier: MIT
#include "OSGUBRDFMaterial.h"

OSG_BEGIN_NAMESPACE

OSG_DEFINE_CONTAINER(UBRDFMaterial, Material, "", OSG_UBRDF_MATERIAL_FIELDS)

UBRDFMaterial::UBRDFMaterial(const UBRDFMaterial &source)
    : Inherited(source)
{
    _sfEnvironment.setValue(NullFC);
}

UBRDFMaterial::~UBRDFMaterial(void)
{
    setEnvironment(NullFC);
}

void UBRDFMaterial::setEnvironment(const MaterialPtr &environment)
{
    setRefdCP(_sfEnvironment.getValue(), environment);
}

OSG_END_NAMESPACE
