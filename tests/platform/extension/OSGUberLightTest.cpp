// SPDX-License-Identifier: MIT
#include "ksFieldTable.h"

#include <OSGUberLight.h>

#include <gtest/gtest.h>

#include <initializer_list>
#include <limits>
#include <support/ksAspects.h>
#include <support/ksRecords.h>

namespace {

using namespace osg;

/// A light (id 1) of intensity 0.7, held once here.
class OSGUberLightTest : public testing::Test
{
protected:
    OSGUberLightTest()
    {
        light->setIntensity(0.7f);
        recorder.take();
    }
    ~OSGUberLightTest() override
    {
        light = NullFC;
        recorder.take();
    }

    /// The intensity after a change from one mode to another at a distance.
    Real32 intensityAfter(UberLight::LightAttenuation from, UberLight::LightAttenuation to, Real32 distance)
    {
        light->setAttenuation(from);
        light->setIntensity(0.7f);
        light->setReferenceDistance(distance);
        light->setAttenuation(to);
        EXPECT_EQ(light->getAttenuation(), to);
        return light->getIntensity();
    }

    ksRecorder recorder;
    UberLightRefPtr light{UberLight::create()};
};

TEST_F(OSGUberLightTest, IsAGroupWithTheseFields)
{
    EXPECT_EQ(UberLight::getClassType().getParent(), &Group::getClassType());
    EXPECT_EQ(ksFieldTableOf<UberLight>(),
              (std::vector<std::string>{
                  "diffuse SFVec3f = 1 1 1", "glossy SFVec3f = 1 1 1", "intensity SFReal32 = 1",
                  "penumbraAngle SFReal32 = 0", "coneAngle SFReal32 = 180", "attenuation SFUInt32 = 0",
                  "referenceDistance SFReal32 = 3", "visibilityReference SFNodePtr = 0"}));
    static_assert(sizeof(UberLight::LightAttenuation) == 4);
}

TEST_F(OSGUberLightTest, IntensityFollowsTheModeSoThatTheBrightnessAtTheReferenceDistanceStays)
{
    const auto None = UberLight::None;
    const auto Linear = UberLight::Linear;
    const auto Quadratic = UberLight::Quadratic;

    EXPECT_FLOAT_EQ(intensityAfter(None, Linear, 3), 0.7f * 3);
    EXPECT_FLOAT_EQ(intensityAfter(None, Quadratic, 3), 0.7f * 9);
    EXPECT_FLOAT_EQ(intensityAfter(Linear, Quadratic, 3), 0.7f * 3);
    EXPECT_FLOAT_EQ(intensityAfter(Linear, None, 3), 0.7f / 3);
    EXPECT_FLOAT_EQ(intensityAfter(Quadratic, None, 3), 0.7f / 9);
    EXPECT_FLOAT_EQ(intensityAfter(Quadratic, Linear, 3), 0.7f / 3);
    EXPECT_FLOAT_EQ(intensityAfter(None, Quadratic, 0.5f), 0.7f / 4);
}

TEST_F(OSGUberLightTest, SameModeKeepsTheIntensityBitForBit)
{
    for (const auto mode : {UberLight::None, UberLight::Linear, UberLight::Quadratic})
        EXPECT_EQ(intensityAfter(mode, mode, 0.3f), 0.7f);
}

TEST_F(OSGUberLightTest, UnknownModeIsKeptAndCountsAsNone)
{
    const auto unknown = static_cast<UberLight::LightAttenuation>(0xFFFFFFFFu);

    EXPECT_EQ(intensityAfter(UberLight::None, unknown, 3), 0.7f);
    EXPECT_FLOAT_EQ(intensityAfter(unknown, UberLight::Linear, 3), 0.7f * 3);
}

TEST_F(OSGUberLightTest, IntensityStaysWithoutASensibleReferenceDistance)
{
    using Limits = std::numeric_limits<Real32>;
    for (const Real32 distance : {0.0f, -0.0f, -3.0f, Limits::infinity(), Limits::quiet_NaN()})
        EXPECT_EQ(intensityAfter(UberLight::None, UberLight::Quadratic, distance), 0.7f) << distance;
}

TEST_F(OSGUberLightTest, EditsAreUpToTheCaller)
{
    light->setAttenuation(UberLight::Quadratic);
    EXPECT_EQ(recorder.take(), ksRecords());

    endEditCP(light, UberLight::AttenuationFieldMask | UberLight::IntensityFieldMask);
    ksExpectSync(light);
}

} // namespace
