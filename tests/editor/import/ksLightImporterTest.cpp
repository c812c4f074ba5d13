// SPDX-License-Identifier: MIT
#include <editor/import/ksLightImporter.h>

#include <assimp/light.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

using osg::UberLight;

class ksLightImporterTest : public testing::Test
{
protected:
    ksLightValues values(ksModelFormat format = ksModelFormat::Other) const
    {
        return ksLightImporter::values(light, format);
    }

    void attenuate(float constant, float linear, float quadratic)
    {
        light.mAttenuationConstant = constant;
        light.mAttenuationLinear = linear;
        light.mAttenuationQuadratic = quadratic;
    }

    aiLight light;
};

} // namespace

TEST_F(ksLightImporterTest, GivesEveryKindItsCone)
{
    const std::pair<aiLightSourceType, float> kinds[] = {{aiLightSource_POINT, 360},
                                                         {aiLightSource_AREA, 360},
                                                         {aiLightSource_AMBIENT, 360},
                                                         {aiLightSource_DIRECTIONAL, 180}};
    for (const auto &[type, cone] : kinds) {
        light.mType = type;
        EXPECT_EQ(values().coneAngle, cone) << type;
        EXPECT_EQ(values().penumbraAngle, 0) << type;
    }
}

TEST_F(ksLightImporterTest, SeparatesTheIntensityFromTheColour)
{
    light.mType = aiLightSource_DIRECTIONAL;
    light.mColorDiffuse = aiColor3D(40, 32, 20);
    light.mColorSpecular = aiColor3D(20, 20, 20);
    const ksLightValues bright = values();
    EXPECT_EQ(bright.intensity, 40);
    EXPECT_TRUE(bright.diffuse.equals(osg::Vec3f(1, 0.8F, 0.5F), 1e-6F));
    EXPECT_TRUE(bright.glossy.equals(osg::Vec3f(0.5F, 0.5F, 0.5F), 1e-6F));
}

TEST_F(ksLightImporterTest, LeavesDimColoursAsTheyAre)
{
    light.mType = aiLightSource_DIRECTIONAL;
    light.mColorDiffuse = aiColor3D(0.5F, 0.25F, 0);
    EXPECT_EQ(values().intensity, 1);
    EXPECT_EQ(values().diffuse, osg::Vec3f(0.5F, 0.25F, 0));
}

TEST_F(ksLightImporterTest, TakesTheAmbientShareOnlyWhereThereIsNothingElse)
{
    light.mType = aiLightSource_AMBIENT;
    light.mColorAmbient = aiColor3D(0, 3, 0);
    EXPECT_EQ(values().diffuse, osg::Vec3f(0, 1, 0));
    EXPECT_EQ(values().intensity, 3);
    light.mColorDiffuse = aiColor3D(1, 0, 0);
    EXPECT_EQ(values().diffuse, osg::Vec3f(1, 0, 0));
    light.mColorDiffuse = aiColor3D();
    light.mType = aiLightSource_POINT;
    EXPECT_EQ(values().diffuse, osg::Vec3f(0, 0, 0));
}

TEST_F(ksLightImporterTest, FadesAsTheSteepestPartOfTheAttenuation)
{
    light.mType = aiLightSource_POINT;
    light.mColorDiffuse = aiColor3D(4, 4, 4);
    attenuate(2, 0, 0);
    EXPECT_EQ(values().attenuation, UberLight::None);
    EXPECT_EQ(values().intensity, 2);
    attenuate(0, 0.5F, 0);
    EXPECT_EQ(values().attenuation, UberLight::Linear);
    EXPECT_EQ(values().intensity, 8);
    attenuate(0, 0, 1);
    EXPECT_EQ(values().attenuation, UberLight::Quadratic);
    EXPECT_EQ(values().intensity, 4);
    // As bright as the file says at the distance 3.
    attenuate(1, 2, 3);
    EXPECT_EQ(values().attenuation, UberLight::Quadratic);
    EXPECT_EQ(values().referenceDistance, 3);
    EXPECT_FLOAT_EQ(values().intensity / 9, 4.0F / (1 + 6 + 27));
}

TEST_F(ksLightImporterTest, NeverDividesByZero)
{
    light.mType = aiLightSource_POINT;
    attenuate(0, 0, 0);
    EXPECT_EQ(values().attenuation, UberLight::None);
    EXPECT_EQ(values().intensity, 1);
    attenuate(0, 0, std::numeric_limits<float>::denorm_min());
    EXPECT_EQ(values().intensity, std::numeric_limits<float>::max());
    attenuate(-1, NAN, INFINITY);
    EXPECT_EQ(values().attenuation, UberLight::None);
}

TEST_F(ksLightImporterTest, LetsNoLightFadeThatComesFromAfarOrEverywhere)
{
    attenuate(0, 1, 1);
    for (const aiLightSourceType type : {aiLightSource_DIRECTIONAL, aiLightSource_AMBIENT}) {
        light.mType = type;
        EXPECT_EQ(values().attenuation, UberLight::None);
        EXPECT_EQ(values().intensity, 1);
    }
}

TEST_F(ksLightImporterTest, TakesOpeningAnglesAsTheFormatMeansThem)
{
    light.mType = aiLightSource_SPOT;
    light.mAngleInnerCone = 0.25F;
    light.mAngleOuterCone = 0.5F;
    constexpr float QuarterRadian = 14.3239449F;
    EXPECT_FLOAT_EQ(values(ksModelFormat::Gltf).coneAngle, 2 * QuarterRadian);
    EXPECT_FLOAT_EQ(values(ksModelFormat::Gltf).penumbraAngle, 2 * QuarterRadian);
    EXPECT_FLOAT_EQ(values(ksModelFormat::Other).coneAngle, QuarterRadian);
    EXPECT_FLOAT_EQ(values(ksModelFormat::Other).penumbraAngle, QuarterRadian);
    EXPECT_FLOAT_EQ(values(ksModelFormat::Collada).coneAngle, QuarterRadian);
    EXPECT_EQ(values(ksModelFormat::Collada).penumbraAngle, 0);
}

TEST_F(ksLightImporterTest, KeepsConesWithinTheirBounds)
{
    light.mType = aiLightSource_SPOT;
    light.mAngleInnerCone = light.mAngleOuterCone = 6.2831853F;
    EXPECT_EQ(values(ksModelFormat::Gltf).coneAngle, 180);
    light.mAngleInnerCone = light.mAngleOuterCone = 0;
    EXPECT_GT(values(ksModelFormat::Gltf).coneAngle, 0);
    // A cone whose outer angle is the smaller one.
    light.mAngleInnerCone = 1;
    light.mAngleOuterCone = 0.5F;
    EXPECT_EQ(values(ksModelFormat::Gltf).penumbraAngle, 0);
}

TEST_F(ksLightImporterTest, NormalisesDirections)
{
    light.mType = aiLightSource_DIRECTIONAL;
    EXPECT_EQ(values().direction, osg::Vec3f(0, 0, -1));
    light.mDirection = aiVector3D(0, -2, 0);
    EXPECT_EQ(values().direction, osg::Vec3f(0, -1, 0));
}

TEST_F(ksLightImporterTest, CountsNumbersThatAreNotFiniteAsNothing)
{
    light.mType = aiLightSource_POINT;
    light.mColorDiffuse = aiColor3D(NAN, INFINITY, 0.5F);
    light.mPosition = aiVector3D(NAN, 1, 2);
    light.mDirection = aiVector3D(NAN, NAN, NAN);
    attenuate(1, 0, 0);
    EXPECT_EQ(values().diffuse, osg::Vec3f(0, 0, 0.5F));
    EXPECT_EQ(values().position, osg::Vec3f(0, 1, 2));
    EXPECT_EQ(values().direction, osg::Vec3f(0, 0, -1));
}

TEST_F(ksLightImporterTest, MakesACoreOfTheValues)
{
    ksLightValues wanted;
    wanted.diffuse = osg::Vec3f(1, 0.5F, 0.25F);
    wanted.glossy = osg::Vec3f(0.5F, 1, 0);
    wanted.intensity = 7;
    wanted.attenuation = UberLight::Quadratic;
    wanted.referenceDistance = 5;
    wanted.coneAngle = 30;
    wanted.penumbraAngle = 10;
    const osg::UberLightRefPtr core(ksLightImporter::createCore(wanted));
    EXPECT_EQ(core->getDiffuse(), wanted.diffuse);
    EXPECT_EQ(core->getGlossy(), wanted.glossy);
    EXPECT_EQ(core->getIntensity(), 7);
    EXPECT_EQ(core->getAttenuation(), UberLight::Quadratic);
    EXPECT_EQ(core->getReferenceDistance(), 5);
    EXPECT_EQ(core->getConeAngle(), 30);
    EXPECT_EQ(core->getPenumbraAngle(), 10);
}
