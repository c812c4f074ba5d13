// SPDX-License-Identifier: MIT
#include <editor/export/ksLightExporter.h>

#include <QJsonArray>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

class ksLightExporterTest : public testing::Test
{
protected:
    QJsonValue exported(const char *member) const
    {
        return ksLightExporter::toGltf(light, QStringLiteral("Lamp")).value(QLatin1String(member));
    }

    /// The opening of the inner or outer cone, in degrees.
    double opening(const char *angle) const
    {
        constexpr double HalvesToDegrees = 2 * 57.29577951308232;
        return exported("spot")[QLatin1String(angle)].toDouble() * HalvesToDegrees;
    }

    void setCone(float cone, float penumbra)
    {
        light->setConeAngle(cone);
        light->setPenumbraAngle(penumbra);
    }

    osg::UberLightPtr light = osg::UberLight::create();
    osg::UberLightRefPtr holder{light};
};

} // namespace

TEST_F(ksLightExporterTest, TellsKindsApart)
{
    light->osg::UberLightBase::setAttenuation(osg::UberLight::Quadratic);
    setCone(60, 20);
    EXPECT_EQ(exported("type").toString(), QStringLiteral("spot"));
    EXPECT_NEAR(opening("innerConeAngle"), 60, 1e-5);
    EXPECT_NEAR(opening("outerConeAngle"), 80, 1e-5);
    setCone(360, 0);
    EXPECT_EQ(exported("type").toString(), QStringLiteral("point"));
    EXPECT_TRUE(exported("spot").isUndefined());
    setCone(180, 0);
    EXPECT_EQ(exported("type").toString(), QStringLiteral("spot"));
    light->osg::UberLightBase::setAttenuation(osg::UberLight::None);
    EXPECT_EQ(exported("type").toString(), QStringLiteral("directional"));
    EXPECT_EQ(exported("name").toString(), QStringLiteral("Lamp"));
}

/// The outer angle is larger than the inner one, and at most a right angle.
TEST_F(ksLightExporterTest, KeepsConesWithinWhatGltfAllows)
{
    const std::pair<float, float> cones[] = {{0, 0},   {180, 90},  {170, 100},
                                             {-5, -5}, {NAN, NAN}, {90, INFINITY}};
    for (const auto &[cone, penumbra] : cones) {
        setCone(cone, penumbra);
        if (exported("type").toString() == QLatin1String("point"))
            continue;
        EXPECT_GE(opening("innerConeAngle"), 0) << cone;
        EXPECT_GT(opening("outerConeAngle"), opening("innerConeAngle")) << cone;
        EXPECT_LE(opening("outerConeAngle"), 180.0001) << cone;
    }
}

TEST_F(ksLightExporterTest, IsAsBrightAtTheReferenceDistance)
{
    setCone(360, 0);
    light->setIntensity(8);
    light->setReferenceDistance(5);
    const std::pair<osg::UberLight::LightAttenuation, double> cases[] = {
        {osg::UberLight::Quadratic, 8}, {osg::UberLight::Linear, 40}, {osg::UberLight::None, 200}};
    for (const auto &[mode, intensity] : cases) {
        light->osg::UberLightBase::setAttenuation(mode);
        EXPECT_DOUBLE_EQ(exported("intensity").toDouble(), intensity);
    }
    light->setReferenceDistance(0);
    EXPECT_EQ(exported("intensity").toDouble(), 8);
}

TEST_F(ksLightExporterTest, KeepsColoursWithinWhatGltfAllows)
{
    light->osg::UberLightBase::setAttenuation(osg::UberLight::Quadratic);
    light->setIntensity(3);
    light->setDiffuse({4, 1, -1});
    EXPECT_EQ(exported("color"), QJsonValue(QJsonArray{1, 0.25, 0}));
    EXPECT_EQ(exported("intensity").toDouble(), 12);
    light->setDiffuse({std::numeric_limits<float>::quiet_NaN(), 0.5F, 0});
    EXPECT_EQ(exported("color"), QJsonValue(QJsonArray{0, 0.5, 0}));
    light->setIntensity(std::numeric_limits<float>::infinity());
    EXPECT_EQ(exported("intensity").toDouble(), 0);
}
