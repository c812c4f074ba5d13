// SPDX-License-Identifier: MIT
#include "ksFieldTable.h"

#include <OSGUBRDFMaterial.h>

#include <gtest/gtest.h>

namespace {

using namespace osg;

TEST(OSGUBRDFMaterialTest, IsAMaterialWithTheseFields)
{
    EXPECT_EQ(UBRDFMaterial::getClassType().getParent(), &Material::getClassType());
    EXPECT_EQ(ksFieldTableOf<UBRDFMaterial>(),
              (std::vector<std::string>{"baseColor SFVec3f = 1 1 1", "roughness SFReal32 = 0.5",
                                        "metalness SFReal32 = 0", "refractionIndex SFReal32 = 1.5",
                                        "environment SFMaterialPtr = 0"}));
}

TEST(OSGUBRDFMaterialTest, EnvironmentMayBeAMaterialOfTheSameKind)
{
    const UBRDFMaterialRefPtr material(UBRDFMaterial::create());
    const UBRDFMaterialRefPtr environment(UBRDFMaterial::create());

    material->setEnvironment(environment.get());

    EXPECT_TRUE(material->getEnvironment() == environment.get());
    EXPECT_EQ(environment.get().getRefCount(), 2);
}

} // namespace
