// SPDX-License-Identifier: MIT
#include "ksEditorFixture.h"

#include <OpenSG/OSGDirectionalLight.h>
#include <OpenSG/OSGSpotLight.h>
#include <ksLightImporter.h>

#include <assimp/light.h>

#include <cmath>

namespace {

using Kind = ksLightValues::Kind;

constexpr float HalfPi = 1.5707963F;

class ksLightImporterTest : public ksEditorFixture
{
protected:
    ksLightValues values(ksModelFormat format = ksModelFormat::Other) const
    {
        return ksLightImporter::values(light, format);
    }

    aiLight light;
};

} // namespace

TEST_F(ksLightImporterTest, KnowsTheKinds)
{
    const std::pair<aiLightSourceType, Kind> kinds[] = {{aiLightSource_POINT, Kind::Point},
                                                        {aiLightSource_SPOT, Kind::Spot},
                                                        {aiLightSource_DIRECTIONAL, Kind::Directional},
                                                        {aiLightSource_AREA, Kind::Point},
                                                        {aiLightSource_AMBIENT, Kind::Point}};
    for (const auto &[type, kind] : kinds) {
        light.mType = type;
        EXPECT_EQ(values().kind, kind) << type;
    }
}

TEST_F(ksLightImporterTest, SeparatesTheIntensityFromTheColour)
{
    light.mType = aiLightSource_POINT;
    light.mColorDiffuse = aiColor3D(40, 32, 20);
    light.mColorSpecular = aiColor3D(20, 20, 20);
    const ksLightValues bright = values();
    EXPECT_EQ(bright.intensity, 40);
    EXPECT_TRUE(bright.diffuse.equals(osg::Color4f(1, 0.8F, 0.5F, 1), 1e-6F));
    EXPECT_TRUE(bright.specular.equals(osg::Color4f(0.5F, 0.5F, 0.5F, 1), 1e-6F));
}

TEST_F(ksLightImporterTest, LeavesDimColoursAsTheyAre)
{
    light.mColorDiffuse = aiColor3D(0.5F, 0.25F, 0);
    EXPECT_EQ(values().intensity, 1);
    EXPECT_EQ(values().diffuse, osg::Color4f(0.5F, 0.25F, 0, 1));
}

TEST_F(ksLightImporterTest, DropsACopyOfTheColourFromTheAmbientShare)
{
    light.mType = aiLightSource_POINT;
    light.mColorDiffuse = light.mColorAmbient = aiColor3D(1, 0.5F, 0);
    EXPECT_EQ(values().ambient, osg::Color4f(0, 0, 0, 1));
    light.mColorAmbient = aiColor3D(0.25F, 0.25F, 0.25F);
    EXPECT_EQ(values().ambient, osg::Color4f(0.25F, 0.25F, 0.25F, 1));
    light.mType = aiLightSource_AMBIENT;
    light.mColorAmbient = light.mColorDiffuse;
    EXPECT_EQ(values().ambient, osg::Color4f(1, 0.5F, 0, 1));
}

TEST_F(ksLightImporterTest, NeverDividesByZero)
{
    light.mType = aiLightSource_POINT;
    light.mAttenuationLinear = 0;
    EXPECT_EQ(values().constantAttenuation, 1);
    light.mAttenuationQuadratic = 2;
    EXPECT_EQ(values().constantAttenuation, 0);
    EXPECT_EQ(values().quadraticAttenuation, 2);
}

TEST_F(ksLightImporterTest, LetsNoDirectionalLightFade)
{
    light.mType = aiLightSource_DIRECTIONAL;
    light.mAttenuationLinear = 1;
    EXPECT_EQ(values().constantAttenuation, 1);
    EXPECT_EQ(values().linearAttenuation, 0);
}

TEST_F(ksLightImporterTest, TakesOpeningAnglesAsTheFormatMeansThem)
{
    light.mType = aiLightSource_SPOT;
    light.mAngleInnerCone = 0.25F;
    light.mAngleOuterCone = 0.5F;
    EXPECT_FLOAT_EQ(values(ksModelFormat::Gltf).spotCutOff, 0.5F);
    EXPECT_FLOAT_EQ(values(ksModelFormat::Other).spotCutOff, 0.25F);
    EXPECT_FLOAT_EQ(values(ksModelFormat::Collada).spotCutOff, 0.125F);
}

TEST_F(ksLightImporterTest, HalvesTheLightBetweenTheAngles)
{
    light.mType = aiLightSource_SPOT;
    light.mAngleInnerCone = 0.3F;
    light.mAngleOuterCone = 0.5F;
    EXPECT_NEAR(std::pow(std::cos(0.4), values(ksModelFormat::Gltf).spotExponent), 0.5, 1e-5);
    light.mAngleInnerCone = 0.5F;
    EXPECT_EQ(values(ksModelFormat::Gltf).spotExponent, 0);
}

TEST_F(ksLightImporterTest, KeepsConesWithinTheirBounds)
{
    light.mType = aiLightSource_SPOT;
    light.mAngleInnerCone = light.mAngleOuterCone = 6.2831853F;
    EXPECT_FLOAT_EQ(values(ksModelFormat::Gltf).spotCutOff, HalfPi);
    light.mAngleInnerCone = light.mAngleOuterCone = 0;
    EXPECT_GT(values(ksModelFormat::Gltf).spotCutOff, 0);
    // A cone whose outer angle is the smaller one.
    light.mAngleInnerCone = 1;
    light.mAngleOuterCone = 0.5F;
    EXPECT_FLOAT_EQ(values(ksModelFormat::Gltf).spotCutOff, 1);
    EXPECT_LE(values(ksModelFormat::Gltf).spotExponent, 128);
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
    light.mAttenuationLinear = NAN;
    EXPECT_EQ(values().diffuse, osg::Color4f(0, 0, 0.5F, 1));
    EXPECT_EQ(values().position, osg::Pnt3f(0, 1, 2));
    EXPECT_EQ(values().constantAttenuation, 1);
}

TEST_F(ksLightImporterTest, MakesTheCoreOfTheKind)
{
    ksLightValues wanted;
    wanted.diffuse = osg::Color4f(1, 0.5F, 0.25F, 1);
    wanted.position = osg::Pnt3f(1, 2, 3);
    wanted.direction = osg::Vec3f(0, -1, 0);
    wanted.spotCutOff = 0.5F;
    wanted.spotExponent = 3;
    wanted.quadraticAttenuation = 2;

    const osg::LightRefPtr point(ksLightImporter::createCore(wanted, child));
    EXPECT_STREQ(point->getTypeName(), "PointLight");
    EXPECT_EQ(point->getDiffuse(), wanted.diffuse);
    EXPECT_EQ(point->getBeacon(), child);
    EXPECT_EQ(point->getQuadraticAttenuation(), 2);
    EXPECT_EQ(osg::PointLightPtr::dcast(point.get())->getPosition(), wanted.position);

    wanted.kind = Kind::Spot;
    const osg::SpotLightRefPtr spot(osg::SpotLightPtr::dcast(ksLightImporter::createCore(wanted, child)));
    ASSERT_NE(spot, osg::NullFC);
    EXPECT_EQ(spot->getDirection(), wanted.direction);
    EXPECT_EQ(spot->getSpotCutOff(), 0.5F);
    EXPECT_EQ(spot->getSpotExponent(), 3);
    EXPECT_EQ(spot->getPosition(), wanted.position);

    // Directional lights of the scene graph hold the way to the light.
    wanted.kind = Kind::Directional;
    const auto sun = osg::DirectionalLightRefPtr(
        osg::DirectionalLightPtr::dcast(ksLightImporter::createCore(wanted, child)));
    ASSERT_NE(sun, osg::NullFC);
    EXPECT_EQ(sun->getDirection(), osg::Vec3f(0, 1, 0));
}
